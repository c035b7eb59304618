#include "frame/encode_document.h"

#include "frame/document.h"
#include "frame/output.h"

#include <cstdlib>

namespace kelmora {

namespace {

/// The finished document, or NULL when memory ran out.
json_t *build(kelmora_resource *head, Format format, NodeToJson to_json)
{
    if (root_is_array(*head, format)) {
        ArrayEncoder list;
        nodes_to_json(list, head, format, to_json);
        return list.take();
    }
    Encoder single;
    nodes_to_json(single, head, format, to_json);
    return single.take();
}

} // namespace

bool encode_document(kelmora_resource *head, char **out, Format format, NodeToJson to_json)
{
    const Document document(build(head, format, to_json));
    char *text = document.root() != nullptr ? json_dumps(document.root(), format.flags()) : nullptr;
    const bool done = hand_over(text, out);
    std::free(text);
    return done;
}

} // namespace kelmora
