#ifndef KELMORA_FRAME_DIRECT_TEXT_H
#define KELMORA_FRAME_DIRECT_TEXT_H

#include "frame/direct/escape.h"

#include <cstddef>

namespace kelmora {

/// As strcmp, which the plug-in does not import.
[[nodiscard]] int compare(const char *left, const char *right);

/// A JSON text in the making, byte for byte what json_dumps renders of the same values. The buffer grows once the text
/// is sure to need it, and until then nothing is written behind the text. After a failure nothing is written any more.
///
/// An object has most_members at most, and where members are sorted objects are nested most_levels deep at most: what
/// is past that fails. (Resources have 18, and 3.) A key that the outermost object of a text in a block of its own has
/// already keeps its place and takes the new value; any other object is given each key once.
class Text {
public:
    static constexpr unsigned most_members = 24;
    static constexpr unsigned most_levels = 4;

    struct Layout;

    /// An object or array that is open.
    struct Open {
        char front;            ///< stands in front of the next item: its bracket, and a comma behind the first one
        char back;             ///< its closing bracket
        unsigned char members; ///< of an object so far; of an array those of the object around it
        unsigned char again;   ///< the member whose key came again, and whose new value is the last one; or `none`
        Layout *around;        ///< of the object around it
    };
    static constexpr unsigned char none = 0xFF;

    /// Writes into the host's buffer, or with `out` NULL into a block of its own.
    /// pretty: with an indent of 16, members in the order of their names, and all escapes.
    Text(char **out, bool pretty);
    Text(const Text &) = delete;
    Text &operator=(const Text &) = delete;
    ~Text();

    [[nodiscard]] Escapes escapes() const { return pretty_ ? Escapes::ascii_and_slash : Escapes::necessary; }

    /// Begins a member, or with a key of NULL an element: where its value of `size` bytes goes. NULL after a failure.
    char *begin(Open &in, const char *key, std::size_t size);

    /// front: the bracket of an object or array; around: what it is begun in, NULL for the root.
    [[nodiscard]] Open open(char front, const Open *around);
    void close(Open &value);

    /// For want of memory, or past the limits above.
    void fail();

    /// The whole text; NULL after a failure. The host's buffer is then as large as make_room() makes it.
    [[nodiscard]] const char *finish();

    /// The members of an open object, or of the last one in the same place: as a rule the next one has the same.
    struct Layout {
        std::size_t indent = 0;
        std::size_t starts[most_members + 1]; ///< where each begins, or did in the last object; where the last one ends
        const char *keys[most_members];
        unsigned short sizes[most_members]; ///< of what stands before their values
        unsigned char order[most_members];  ///< by name
        unsigned char known = 0;            ///< how many there are
        unsigned char ordered = 0;          ///< how many the order has
    };

private:
    static constexpr unsigned places = 3; ///< that are told apart on a level
    static constexpr unsigned layouts = 1 + (most_levels - 1) * places;

    [[nodiscard]] std::size_t length() const { return static_cast<std::size_t>(at_ - text_); }
    char *begin_new(Open &in, const char *key, std::size_t size);
    bool learn(Open &in, const char *key, std::size_t size);
    void put_in_place(Open &in);
    void sort(unsigned members);
    void sort_in_smallest_buffer(unsigned first, unsigned last);
    void place_in_order(unsigned first, unsigned last, char *sorted);
    void forget_inside(const char *begin, const char *end);
    char *put_line(char *to) const;
    char *take(std::size_t size);
    bool reserve(std::size_t size) { return static_cast<std::size_t>(end_ - at_) >= size || grow(size); }
    bool grow(std::size_t size);

    char *own_ = nullptr;
    char **out_;
    char *text_;
    char *at_;
    char *end_; ///< of what can be written; the NUL has room behind it
    std::size_t indent_ = 0;
    bool pretty_;
    bool failed_ = false;
    unsigned depth_ = 0;        ///< objects that are open
    Layout *layout_ = layouts_; ///< of the innermost of them
    Layout layouts_[layouts];
};

} // namespace kelmora

#endif
