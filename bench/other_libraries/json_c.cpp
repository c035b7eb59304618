// json-c, with constant keys that it need not look for.
#include "bench/other_libraries/fields.h"
#include "bench/other_libraries/other_libraries.h"
#include "bench/record.h"

#include <cstddef>
#include <cstdint>
#include <json-c/json.h>

namespace kelmora_bench {

namespace {

// The default one is seeded at random, so that counts would change from run to run.
[[maybe_unused]] const int hash = json_global_set_string_hash(JSON_C_STR_HASH_PERLLIKE);

class Out {
public:
    void text(const char *key, const char *field) { add(key, json_object_new_string(field)); }
    void integer(const char *key, std::int64_t field) { add(key, json_object_new_int64(field)); }
    void boolean(const char *key, std::uint8_t field) { add(key, json_object_new_boolean(field)); }

    template <class Node, class Each> void list(const char *key, const Node *first, Each each)
    {
        json_object *array = json_object_new_array();
        for (const Node *node = first; node != nullptr; node = node->next) {
            Out entry;
            each(entry, *node);
            json_object_array_add(array, entry.object());
        }
        add(key, array);
    }

    [[nodiscard]] json_object *object() { return object_; }

private:
    void add(const char *key, json_object *value)
    {
        json_object_object_add_ex(object_, key, value, JSON_C_OBJECT_ADD_KEY_IS_NEW | JSON_C_OBJECT_ADD_CONSTANT_KEY);
    }

    json_object *object_ = json_object_new_object();
};

class In {
public:
    explicit In(const json_object *object) : object_(object) {}

    template <std::size_t width> void text(const char *key, char (&field)[width])
    {
        if (json_object *value = find(key))
            store_string(field, json_object_get_string(value));
    }

    template <class Integer> void integer(const char *key, Integer &field)
    {
        if (const json_object *value = find(key))
            field = static_cast<Integer>(json_object_get_int64(value));
    }

    void boolean(const char *key, std::uint8_t &field)
    {
        if (const json_object *value = find(key))
            field = json_object_get_boolean(value) != 0 ? 1 : 0;
    }

    template <class Node, class Each> void list(const char *key, Node *&first, Each each)
    {
        const json_object *array = find(key);
        if (array == nullptr)
            return;
        Node **link = &first;
        const std::size_t size = json_object_array_length(array);
        for (std::size_t i = 0; i < size; ++i) {
            In entry(json_object_array_get_idx(array, i));
            each(entry, *append(link));
        }
    }

private:
    json_object *find(const char *key)
    {
        json_object *value = nullptr;
        json_object_object_get_ex(object_, key, &value);
        return value;
    }

    const json_object *object_;
};

template <class Record> int to(kelmora_resource *head, char **out)
{
    json_object *list = json_object_new_array_ext(static_cast<int>(head->count));
    for (kelmora_resource *node = head; node != nullptr; node = kelmora_resource_get_next(node)) {
        Out object;
        to_json(object, record_of<const Record>(node), node->id);
        json_object_array_add(list, object.object());
    }
    std::size_t length = 0;
    const char *text =
        json_object_to_json_string_length(list, JSON_C_TO_STRING_PLAIN | JSON_C_TO_STRING_NOSLASHESCAPE, &length);
    hand_over(text, length + 1, out);
    json_object_put(list);
    return 1;
}

template <class Record> int from(kelmora_resource *node, const char *text, kelmora_errorlist * /*errors*/)
{
    json_object *document = json_tokener_parse(text);
    if (document == nullptr)
        return 0;
    In in(document);
    from_json(in, record_of<Record>(node));
    json_object_put(document);
    return 1;
}

} // namespace

const OtherLibrary json_c_peer{
    .name = "json-c",
    .wireless_to = to<kelmora_wireless>,
    .wireless_from = from<kelmora_wireless>,
    .pon_counters_to = to<kelmora_pon_counters>,
    .firewall_to = to<kelmora_firewall_ip_port_filtering>,
    .firewall_from = from<kelmora_firewall_ip_port_filtering>,
};

} // namespace kelmora_bench
