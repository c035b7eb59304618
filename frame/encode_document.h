#ifndef KELMORA_FRAME_ENCODE_DOCUMENT_H
#define KELMORA_FRAME_ENCODE_DOCUMENT_H

#include "frame/encode.h"

#include <cstdint>

namespace kelmora {

/// Writes a to-translator's document into the host's buffer. Returns false when memory ran out; what the buffer holds
/// is then no document.
[[nodiscard]] bool encode_document(kelmora_resource *head, char **out, Format format, NodeToJson to_json);

inline bool root_is_array(const kelmora_resource &head, Format format)
{
    if (format.root() == Root::by_list_flag)
        return head.is_list != 0;
    return format.root() == Root::always_array;
}

/// Whether the head's count bounds the entries.
inline bool is_counted(Format format)
{
    return format.nodes() == Nodes::counting || format.nodes() == Nodes::head_repeated;
}

/// Calls visit(node) for the nodes that the format names.
template <class Visit> void for_each_node(kelmora_resource *head, Format format, Visit visit)
{
    const Nodes nodes = format.nodes();
    const bool counted = is_counted(format);
    kelmora_resource *node = head;
    for (std::uint32_t done = 0; node != nullptr && (!counted || done < head->count); ++done) {
        visit(node);
        if (nodes == Nodes::head_only)
            break;
        if (nodes != Nodes::head_repeated)
            node = kelmora_resource_get_next(node);
    }
}

/// Writes the nodes as the elements of a list, or all into one object.
inline void nodes_to_json(ArrayEncoder &list, kelmora_resource *head, Format format, NodeToJson to_json)
{
    for_each_node(head, format, [&](kelmora_resource *node) {
        list.object([&](Encoder &element) {
            to_json(element, kelmora_resource_get_data(node), format.with_head_id() ? head->id : node->id);
        });
    });
}

inline void nodes_to_json(Encoder &single, kelmora_resource *head, Format format, NodeToJson to_json)
{
    for_each_node(head, format, [&](kelmora_resource *node) {
        to_json(single, kelmora_resource_get_data(node), format.with_head_id() ? head->id : node->id);
    });
}

} // namespace kelmora

#endif
