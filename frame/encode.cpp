#include "frame/encode.h"

#include "frame/document.h"
#include "frame/output.h"

#include <cstdlib>
#include <cstring>

namespace kelmora {

namespace {

bool root_is_array(const kelmora_resource &head, Format format)
{
    if (format.root() == Root::by_list_flag)
        return head.is_list != 0;
    return format.root() == Root::always_array;
}

/// Calls visit(node) for the nodes that the format names.
template <class Visit> void for_each_node(kelmora_resource *head, Format format, Visit visit)
{
    const Nodes nodes = format.nodes();
    const bool counted = nodes == Nodes::counting || nodes == Nodes::head_repeated;
    kelmora_resource *node = head;
    for (std::uint32_t done = 0; node != nullptr && (!counted || done < head->count); ++done) {
        visit(node);
        if (nodes == Nodes::head_only)
            break;
        if (nodes != Nodes::head_repeated)
            node = kelmora_resource_get_next(node);
    }
}

/// The finished document, or NULL when memory ran out.
json_t *build(kelmora_resource *head, Format format, NodeToJson to_json)
{
    const auto node_to_json = [=](Encoder &object, kelmora_resource *node) {
        to_json(object, kelmora_resource_get_data(node), format.with_head_id() ? head->id : node->id);
    };
    if (root_is_array(*head, format)) {
        ArrayEncoder list;
        for_each_node(head, format, [&](kelmora_resource *node) {
            list.object([&](Encoder &element) { node_to_json(element, node); });
        });
        return list.take();
    }
    Encoder single;
    for_each_node(head, format, [&](kelmora_resource *node) { node_to_json(single, node); });
    return single.take();
}

/// Copies the rendered text into the host's buffer. Returns false when there is no text or no room for it.
bool hand_over(const char *text, char **out)
{
    if (text == nullptr)
        return false;
    const std::size_t length = std::strlen(text);
    if (!make_room(out, length))
        return false;
    std::memcpy(*out, text, length + 1);
    return true;
}

constexpr char empty_array[] = "[]";
constexpr char empty_object[] = "{}";

} // namespace

int encode(kelmora_resource *head, char **out, Format format, NodeToJson to_json)
{
    if (format.if_any() && head->count == 0) {
        std::memcpy(*out, empty_array, sizeof empty_array);
        return 1;
    }
    const Document document(build(head, format, to_json));
    char *text = document.root() != nullptr ? json_dumps(document.root(), format.flags()) : nullptr;
    const bool done = hand_over(text, out);
    std::free(text);
    if (!done)
        std::memcpy(*out, root_is_array(*head, format) ? empty_array : empty_object, sizeof empty_array);
    return done ? 1 : 0;
}

} // namespace kelmora
