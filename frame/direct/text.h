#ifndef KELMORA_FRAME_DIRECT_TEXT_H
#define KELMORA_FRAME_DIRECT_TEXT_H

#include "frame/direct/quote.h"
#include "frame/output.h"

#include <cstddef>

namespace kelmora {

/// A member's name, of less than 256 bytes, which stays where it is. Without characters: none, as of an element.
struct Name {
    constexpr Name() = default;
    [[gnu::always_inline]] constexpr Name(const char *name)
        : characters(name), length(__builtin_strlen(name)) {} // implicit: literals turn into it

    const char *characters = nullptr;
    std::size_t length = 0;
};

/// As strcmp, which the plug-in does not import.
[[nodiscard]] int compare(const char *left, const char *right);

/// A JSON text in the making, byte for byte what json_dumps renders of the same values. The buffer grows once the text
/// is sure to need it, and after that also to put members in order. After a failure nothing is written any more.
///
/// Members are put in order in the objects of a pretty text, by their names, and in the outermost object of a text in a
/// block of its own, where a name that comes again takes the earlier value's place. Any other object is given each name
/// once. Where members are put in order there are most_members at most, and such objects are nested most_levels deep at
/// most: what is past that fails. (Resources have 18, and 3.)
class Text {
public:
    static constexpr unsigned most_members = 24;
    static constexpr unsigned most_levels = 4;

    /// The members of an object, and of the last one in the same place: as a rule the next one has the same.
    struct Order {
        [[nodiscard]] bool has(unsigned member, const char *name) const
        {
            return member < known && names[member] == name;
        }
        /// Whether so many members are in order as they come.
        [[nodiscard]] bool is_kept(unsigned members) const { return ordered == members && first == members; }
        void learn(unsigned char member, const char *name)
        {
            names[member] = name;
            known = static_cast<unsigned char>(member + 1);
            ordered = 0;
        }

        std::size_t begin;                    ///< of the object
        std::size_t gap;                      ///< from there to where its members are written
        std::size_t size = 0;                 ///< of the last object, if its members did not come in order
        std::size_t starts[most_members + 1]; ///< where they begin, and where one more would
        const char *names[most_members];
        unsigned char order[most_members];
        unsigned char known = 0;   ///< how many names there are
        unsigned char ordered = 0; ///< of how many members the order is
        unsigned char kept = 0;    ///< how many the order has: fewer where a name came again
        unsigned char first = 0;   ///< that is not in its place
    };

    /// An object or array that is open.
    struct Open {
        char front;            ///< stands in front of the next item: its bracket, and a comma behind the first one
        char back;             ///< its closing bracket
        unsigned char members; ///< that are to be put in order, so far; of an array those of the object around it
        Order *order;          ///< of those members; NULL where they stay as they come

        /// Whether members are written without what stands in front of them: it is put there with their order.
        [[nodiscard]] bool is_bare() const { return order != nullptr && order->gap != 0; }
    };

    /// Where a value goes unless the text has to be enlarged for it.
    struct Room {
        char *begin;
        std::size_t size;
    };

    /// Writes into the host's buffer, or with `out` NULL into a block of its own.
    /// pretty: with an indent of 16, members in the order of their names, and all escapes.
    Text(char **out, bool pretty);
    Text(const Text &) = delete;
    Text &operator=(const Text &) = delete;
    ~Text();

    [[nodiscard]] Escapes escapes() const { return pretty_ ? Escapes::ascii_and_slash : Escapes::necessary; }

    /// For the next item's value: it may be written here before begin() is called with its size.
    [[nodiscard]] Room room(const Open &in, std::size_t name_length) const
    {
        const std::size_t before = (in.is_bare() ? 0 : lead_size(in.front)) + name_size(name_length);
        const auto left = static_cast<std::size_t>(end_ - at_);
        return before < left ? Room{at_ + before, left - before} : Room{nullptr, 0};
    }

    /// Begins a member, or without a name an element: where its value of `size` bytes goes. NULL after a failure.
    char *begin(Open &in, const char *name, std::size_t name_length, std::size_t size);

    /// front: the bracket of an object or array; around: what it is begun in, NULL for the root.
    [[nodiscard]] Open open(char front, const Open *around);
    void close(Open &value);

    /// For want of memory, or past the limits above.
    void fail();

    /// The whole text; NULL after a failure. The host's buffer is then as large as make_room() makes it.
    [[nodiscard]] const char *finish();

private:
    static constexpr unsigned places = 2; ///< that are told apart on a level

    [[nodiscard]] bool is_smallest() const { return static_cast<std::size_t>(end_ - text_) < smallest_buffer; }
    [[nodiscard]] std::size_t length() const { return static_cast<std::size_t>(at_ - text_); }
    /// The size of what stands between the items before and the next one.
    [[nodiscard]] std::size_t lead_size(char front) const
    {
        const std::size_t blank = front == ',' ? 1 : 0;
        return 1 + (pretty_ ? 1 + indent_ : blank);
    }
    /// The size of a name with its quotes, colon and blank; without a name 0.
    static std::size_t name_size(std::size_t length) { return length != 0 ? length + 4 : 0; }

    char *put_lead(char *to, char front) const;
    char *begin_new(Open &in, const char *name, std::size_t name_length, std::size_t size, std::size_t whole);
    void find_order(Order &order, unsigned members) const;
    void arrange(Open &in);
    void put_in_order_on_stack(const Order &order);
    char *put_in_order(const Order &order, char *to) const;
    void put_back(const Order &order, const char *members, const char *end);
    void take_over_order(Open &in);
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
    unsigned level_ = 0; ///< objects that are open and put in order
    Order orders_[most_levels * places];
};

} // namespace kelmora

#endif
