#ifndef KELMORA_FRAME_ENCODE_H
#define KELMORA_FRAME_ENCODE_H

#include "frame/encoder.h"

#include <jansson.h>

namespace kelmora {

/// Which nodes a to-translator writes and what its root is. Combined with |; without more the root is an array of one
/// object a node when the head's list flag is set, else one object that every node writes into.
enum class Shape : unsigned {
    counting = 0,      ///< as many nodes as the head's count says; the walk ends early at the last node
    walking = 1,       ///< the head and every node behind it; the count is not read
    head_only = 2,     ///< the head alone
    head_repeated = 3, ///< as many entries as the count says, each made from the head

    always_array = 4,        ///< whatever the list flag says
    always_object = 8,       ///< whatever the list flag says
    literal_when_empty = 16, ///< "[]" when the count is 0, whatever the root would be
    head_id = 32             ///< every node is written with the head's id
};

constexpr Shape operator|(Shape left, Shape right)
{
    return static_cast<Shape>(static_cast<unsigned>(left) | static_cast<unsigned>(right));
}

/// The flag word with which a to-translator renders its document.
enum class Flags : std::size_t {
    compact = 0,           ///< one line, keys in the order in which they were set
    insertion_order = 256, ///< the same text; JSON_PRESERVE_ORDER
    pretty = 2000          ///< indent of 16, \u escapes, keys sorted by name, "/" escaped
};

static_assert(static_cast<std::size_t>(Flags::insertion_order) == JSON_PRESERVE_ORDER);
static_assert(static_cast<std::size_t>(Flags::pretty) == (JSON_INDENT(16) | JSON_ENSURE_ASCII | JSON_SORT_KEYS |
                                                          JSON_PRESERVE_ORDER | JSON_ENCODE_ANY | JSON_ESCAPE_SLASH));

/// Writes one node: its record, and its id.
using WriteNode = void (*)(Encoder &out, const void *record, const NodeId &id);

/// Both in one word: the target takes four arguments in registers, and this saves a fifth.
class Format {
public:
    constexpr Format(Shape shape, Flags flags)
        : word_(static_cast<unsigned>(flags) << flags_shift | static_cast<unsigned>(shape))
    {
    }

    [[nodiscard]] constexpr Shape shape() const { return static_cast<Shape>(word_ & ((1U << flags_shift) - 1)); }
    [[nodiscard]] constexpr std::size_t flags() const { return word_ >> flags_shift; }

private:
    static constexpr unsigned flags_shift = 8;

    unsigned word_;
};

/// A to-translator. Returns 1; 0 when memory ran out, and then the text is the empty document of the root's kind.
int encode(kelmora_resource *head, char **out, Format format, WriteNode write);

namespace detail {

template <auto write> struct NodeWriter;

template <class Record, void (*write)(Encoder &, const Record &, const NodeId &)> struct NodeWriter<write> {
    static void call(Encoder &out, const void *record, const NodeId &id)
    {
        write(out, *static_cast<const Record *>(record), id);
    }
};

template <class Record, void (*write)(Encoder &, const Record *, const NodeId &)> struct NodeWriter<write> {
    static void call(Encoder &out, const void *record, const NodeId &id)
    {
        write(out, static_cast<const Record *>(record), id);
    }
};

template <class Record, void (*write)(Encoder &, const Record &)> struct NodeWriter<write> {
    static void call(Encoder &out, const void *record, const NodeId & /*id*/)
    {
        write(out, *static_cast<const Record *>(record));
    }
};

} // namespace detail

/// A to-translator of the function that writes one record: void write(Encoder &, const Record &, const NodeId &), or
/// without the id where the resource shows none; a record that may be NULL is taken as a pointer.
template <auto write> int encode(kelmora_resource *head, char **out, Shape shape, Flags flags)
{
    return encode(head, out, Format(shape, flags), &detail::NodeWriter<write>::call);
}

} // namespace kelmora

#endif
