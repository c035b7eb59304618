#ifndef KELMORA_BENCH_BASELINES_JSON_H
#define KELMORA_BENCH_BASELINES_JSON_H

#include "bench/record.h"

#include "kelmora_host.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <jansson.h>

namespace kelmora_bench {

inline constexpr std::size_t pretty = 2000;

/// Renders and releases the document, and copies the text into the host's buffer.
inline int render(json_t *document, std::size_t flags, char **out)
{
    char *text = json_dumps(document, flags);
    hand_over(text, std::strlen(text) + 1, out);
    std::free(text);
    json_decref(document);
    return 1;
}

/// What every list resource does: one object a node, in an array.
template <class Record, void (*fill)(json_t *object, const Record &record, const char *id)>
int render_nodes(kelmora_resource *head, std::size_t flags, char **out)
{
    json_t *list = json_array();
    for (kelmora_resource *node = head; node != nullptr; node = kelmora_resource_get_next(node)) {
        json_t *object = json_object();
        fill(object, record_of<const Record>(node), node->id);
        json_array_append_new(list, object);
    }
    return render(list, flags, out);
}

/// Parses a document, reads it into the node's record and releases it.
template <class Record, void (*from_json)(const json_t *in, Record &record)>
int document_from_json(kelmora_resource *node, const char *text)
{
    json_t *document = json_loads(text, 0, nullptr);
    from_json(document, record_of<Record>(node));
    json_decref(document);
    return 1;
}

template <std::size_t width> void store_string(char (&field)[width], const json_t *text)
{
    if (text != nullptr)
        store_string(field, json_string_value(text));
}

template <class Integer> void store_integer(Integer &field, const json_t *integer)
{
    if (integer != nullptr)
        field = static_cast<Integer>(json_integer_value(integer));
}

inline void store_boolean(std::uint8_t &field, const json_t *boolean)
{
    if (boolean != nullptr)
        field = json_is_true(boolean) ? 1 : 0;
}

} // namespace kelmora_bench

#endif
