#include "frame/encode.h"

#include "frame/encode_document.h"

#include <cstring>

namespace kelmora {

namespace {

constexpr char empty_array[] = "[]";
constexpr char empty_object[] = "{}";

} // namespace

int encode(kelmora_resource *head, char **out, Format format, NodeToJson to_json)
{
    if (format.if_any() && head->count == 0) {
        std::memcpy(*out, empty_array, sizeof empty_array);
        return 1;
    }
    const bool done = encode_document(head, out, format, to_json);
    if (!done)
        std::memcpy(*out, root_is_array(*head, format) ? empty_array : empty_object, sizeof empty_array);
    return done ? 1 : 0;
}

} // namespace kelmora
