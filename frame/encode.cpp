#include "frame/encode.h"

#include "frame/document.h"
#include "frame/output.h"

#include <cstdlib>
#include <cstring>

namespace kelmora {

namespace {

constexpr bool has(Shape shape, Shape option)
{
    return (static_cast<unsigned>(shape) & static_cast<unsigned>(option)) != 0;
}

constexpr Shape nodes_of(Shape shape) { return static_cast<Shape>(static_cast<unsigned>(shape) & 3U); }

bool root_is_array(const kelmora_resource &head, Shape shape)
{
    if (has(shape, Shape::always_array))
        return true;
    return head.is_list != 0 && !has(shape, Shape::always_object);
}

/// Calls visit(node) for the nodes that the shape names.
template <class Visit> void for_each_node(kelmora_resource *head, Shape shape, Visit visit)
{
    const Shape nodes = nodes_of(shape);
    const bool counted = nodes == Shape::counting || nodes == Shape::head_repeated;
    kelmora_resource *node = head;
    for (std::uint32_t done = 0; node != nullptr && (!counted || done < head->count); ++done) {
        visit(node);
        if (nodes == Shape::head_only)
            break;
        if (nodes != Shape::head_repeated)
            node = kelmora_resource_get_next(node);
    }
}

/// The finished document, or NULL when memory ran out.
json_t *build(kelmora_resource *head, Shape shape, WriteNode write)
{
    const auto write_into = [=](Encoder &object, kelmora_resource *node) {
        write(object, kelmora_resource_get_data(node), has(shape, Shape::head_id) ? head->id : node->id);
    };
    if (root_is_array(*head, shape)) {
        ArrayEncoder list;
        for_each_node(head, shape, [&](kelmora_resource *node) {
            list.object([&](Encoder &element) { write_into(element, node); });
        });
        return list.take();
    }
    Encoder single;
    for_each_node(head, shape, [&](kelmora_resource *node) { write_into(single, node); });
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

int encode(kelmora_resource *head, char **out, Format format, WriteNode write)
{
    const Shape shape = format.shape();
    if (has(shape, Shape::literal_when_empty) && head->count == 0) {
        std::memcpy(*out, empty_array, sizeof empty_array);
        return 1;
    }
    const Document document(build(head, shape, write));
    char *text = document.root() != nullptr ? json_dumps(document.root(), format.flags()) : nullptr;
    const bool done = hand_over(text, out);
    std::free(text);
    if (!done)
        std::memcpy(*out, root_is_array(*head, shape) ? empty_array : empty_object, sizeof empty_array);
    return done ? 1 : 0;
}

} // namespace kelmora
