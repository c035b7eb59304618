// cJSON, with constant keys and with the records' own texts.
#include "bench/other_libraries/fields.h"
#include "bench/other_libraries/other_libraries.h"
#include "bench/record.h"

#include <cjson/cJSON.h>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace kelmora_bench {

namespace {

class Out {
public:
    void text(const char *key, const char *field) { add(key, cJSON_CreateStringReference(field)); }
    void integer(const char *key, double field) { add(key, cJSON_CreateNumber(field)); }
    void boolean(const char *key, std::uint8_t field) { add(key, cJSON_CreateBool(field)); }

    template <class Node, class Each> void list(const char *key, const Node *first, Each each)
    {
        cJSON *array = cJSON_CreateArray();
        for (const Node *node = first; node != nullptr; node = node->next) {
            Out entry;
            each(entry, *node);
            cJSON_AddItemToArray(array, entry.object());
        }
        add(key, array);
    }

    [[nodiscard]] cJSON *object() { return object_; }

private:
    void add(const char *key, cJSON *value) { cJSON_AddItemToObjectCS(object_, key, value); }

    cJSON *object_ = cJSON_CreateObject();
};

class In {
public:
    explicit In(const cJSON *object) : object_(object) {}

    template <std::size_t width> void text(const char *key, char (&field)[width])
    {
        if (const cJSON *value = find(key))
            store_string(field, cJSON_GetStringValue(value));
    }

    template <class Integer> void integer(const char *key, Integer &field)
    {
        if (const cJSON *value = find(key))
            field = static_cast<Integer>(cJSON_GetNumberValue(value));
    }

    void boolean(const char *key, std::uint8_t &field)
    {
        if (const cJSON *value = find(key))
            field = cJSON_IsTrue(value) != 0 ? 1 : 0;
    }

    template <class Node, class Each> void list(const char *key, Node *&first, Each each)
    {
        Node **link = &first;
        const cJSON *element = nullptr;
        cJSON_ArrayForEach(element, find(key))
        {
            In entry(element);
            each(entry, *append(link));
        }
    }

private:
    const cJSON *find(const char *key) { return cJSON_GetObjectItemCaseSensitive(object_, key); }

    const cJSON *object_;
};

template <class Record> int to(kelmora_resource *head, char **out)
{
    cJSON *list = cJSON_CreateArray();
    for (kelmora_resource *node = head; node != nullptr; node = kelmora_resource_get_next(node)) {
        Out object;
        to_json(object, record_of<const Record>(node), node->id);
        cJSON_AddItemToArray(list, object.object());
    }
    char *text = cJSON_PrintBuffered(list, smallest_buffer, 0);
    hand_over(text, std::strlen(text) + 1, out);
    cJSON_free(text);
    cJSON_Delete(list);
    return 1;
}

template <class Record> int from(kelmora_resource *node, const char *text, kelmora_errorlist * /*errors*/)
{
    cJSON *document = cJSON_Parse(text);
    if (document == nullptr)
        return 0;
    In in(document);
    from_json(in, record_of<Record>(node));
    cJSON_Delete(document);
    return 1;
}

} // namespace

const OtherLibrary cjson_peer{
    .name = "cJSON",
    .wireless_to = to<kelmora_wireless>,
    .wireless_from = from<kelmora_wireless>,
    .pon_counters_to = to<kelmora_pon_counters>,
    .firewall_to = to<kelmora_firewall_ip_port_filtering>,
    .firewall_from = from<kelmora_firewall_ip_port_filtering>,
};

} // namespace kelmora_bench
