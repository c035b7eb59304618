#ifndef KELMORA_FRAME_ENCODE_H
#define KELMORA_FRAME_ENCODE_H

#include "frame/encoder.h"

#include <jansson.h>

namespace kelmora {

/// Which nodes a to-translator writes. With `_if_any` none of them when the head's count is 0, and the text is then
/// "[]", whatever the root.
enum class Nodes : unsigned {
    counting = 0,      ///< as many as the head's count says; the walk ends early at the last node
    walking = 1,       ///< the head and every node behind it; the count is not read
    head_only = 2,     ///< the head alone
    head_repeated = 3, ///< as many entries as the count says, each made from the head

    walking_with_head_id = walking | 4, ///< every node is written with the head's id

    counting_if_any = counting | 8,
    walking_if_any = walking | 8,
    head_only_if_any = head_only | 8
};

/// What the root of a to-translator's document is.
enum class Root : unsigned {
    by_list_flag = 0, ///< an array of one object a node when the head's list flag is set, else one object for all nodes
    always_array = 16, ///< whatever the list flag says
    always_object = 32 ///< whatever the list flag says
};

/// The flag word with which a to-translator renders its document.
enum class Flags : std::size_t {
    plain = 0,             ///< one line, keys in the order in which they were set
    insertion_order = 256, ///< the same text; JSON_PRESERVE_ORDER
    pretty = 2000          ///< indent of 16, \u escapes, keys sorted by name, "/" escaped
};

static_assert(static_cast<std::size_t>(Flags::insertion_order) == JSON_PRESERVE_ORDER);
static_assert(static_cast<std::size_t>(Flags::pretty) == (JSON_INDENT(16) | JSON_ENSURE_ASCII | JSON_SORT_KEYS |
                                                          JSON_PRESERVE_ORDER | JSON_ENCODE_ANY | JSON_ESCAPE_SLASH));

/// Writes one node: its record, and its id.
using NodeToJson = void (*)(Encoder &out, const void *record, const NodeId &id);

/// All three in one word: the target takes four arguments in registers, and this saves two more.
class Format {
public:
    constexpr Format(Nodes nodes, Root root, Flags flags)
        : word_(static_cast<unsigned>(flags) << flags_shift | static_cast<unsigned>(root) |
                static_cast<unsigned>(nodes))
    {
    }

    /// One of counting, walking, head_only and head_repeated.
    [[nodiscard]] constexpr Nodes nodes() const { return static_cast<Nodes>(word_ & 3U); }
    [[nodiscard]] constexpr bool with_head_id() const { return (word_ & 4U) != 0; }
    [[nodiscard]] constexpr bool if_any() const { return (word_ & 8U) != 0; }
    [[nodiscard]] constexpr Root root() const { return static_cast<Root>(word_ & 0x30U); }
    [[nodiscard]] constexpr std::size_t flags() const { return word_ >> flags_shift; }

private:
    static constexpr unsigned flags_shift = 8;

    unsigned word_;
};

/// A to-translator. Returns 1; 0 when memory ran out, and then the text is the empty document of the root's kind.
int encode(kelmora_resource *head, char **out, Format format, NodeToJson to_json);

namespace detail {

template <auto to_json> struct NodeWriter;

template <class Record, void (*to_json)(Encoder &, const Record &, const NodeId &)> struct NodeWriter<to_json> {
    static void call(Encoder &out, const void *record, const NodeId &id)
    {
        to_json(out, *static_cast<const Record *>(record), id);
    }
};

template <class Record, void (*to_json)(Encoder &, const Record *, const NodeId &)> struct NodeWriter<to_json> {
    static void call(Encoder &out, const void *record, const NodeId &id)
    {
        to_json(out, static_cast<const Record *>(record), id);
    }
};

template <class Record, void (*to_json)(Encoder &, const Record &)> struct NodeWriter<to_json> {
    static void call(Encoder &out, const void *record, const NodeId & /*id*/)
    {
        to_json(out, *static_cast<const Record *>(record));
    }
};

} // namespace detail

/// A to-translator of the function that writes one record: void to_json(Encoder &, const Record &, const NodeId &), or
/// without the id where the resource shows none; a record that may be NULL is taken as a pointer.
template <auto to_json> int encode(kelmora_resource *head, char **out, Nodes nodes, Root root, Flags flags)
{
    return encode(head, out, Format(nodes, root, flags), &detail::NodeWriter<to_json>::call);
}

/// The same, its root by the list flag.
template <auto to_json> int encode(kelmora_resource *head, char **out, Nodes nodes, Flags flags)
{
    return encode<to_json>(head, out, nodes, Root::by_list_flag, flags);
}

} // namespace kelmora

#endif
