#include "bench/baselines/baselines.h"
#include "bench/baselines/json.h"

#include "records/firewall.h"

namespace kelmora_bench {

namespace {

void fill(json_t *out, const kelmora_parental_control &control)
{
    json_object_set_new(out, "enabled", json_boolean(control.enabled));
    json_t *list = json_array();
    for (const auto *rule = control.parental_control_list; rule != nullptr; rule = rule->next) {
        json_t *entry = json_object();
        json_object_set_new(entry, "username", json_string(rule->username));
        json_object_set_new(entry, "address_type", json_integer(rule->address_type));
        json_object_set_new(entry, "ip_address_from", json_string(rule->ip_address_from));
        json_object_set_new(entry, "ip_address_to", json_string(rule->ip_address_to));
        json_object_set_new(entry, "mac_address", json_string(rule->mac_address));
        json_object_set_new(entry, "days", json_integer(rule->days));
        json_object_set_new(entry, "hours_begin", json_integer(rule->hours_begin));
        json_object_set_new(entry, "minutes_begin", json_integer(rule->minutes_begin));
        json_object_set_new(entry, "hours_end", json_integer(rule->hours_end));
        json_object_set_new(entry, "minutes_end", json_integer(rule->minutes_end));
        json_array_append_new(list, entry);
    }
    json_object_set_new(out, "parental_control_list", list);
}

void from_json(const json_t *in, kelmora_parental_control &control)
{
    store_boolean(control.enabled, json_object_get(in, "enabled"));
    const json_t *list = json_object_get(in, "parental_control_list");
    const std::size_t size = json_array_size(list);
    kelmora_parental_control_allocate_list(&control, static_cast<std::uint32_t>(size), nullptr);
    auto *rule = control.parental_control_list;
    for (std::size_t i = 0; i < size; ++i) {
        const json_t *element = json_array_get(list, i);
        store_string(rule->username, json_object_get(element, "username"));
        store_integer(rule->address_type, json_object_get(element, "address_type"));
        store_string(rule->ip_address_from, json_object_get(element, "ip_address_from"));
        store_string(rule->ip_address_to, json_object_get(element, "ip_address_to"));
        store_string(rule->mac_address, json_object_get(element, "mac_address"));
        store_integer(rule->days, json_object_get(element, "days"));
        store_integer(rule->hours_begin, json_object_get(element, "hours_begin"));
        store_integer(rule->minutes_begin, json_object_get(element, "minutes_begin"));
        store_integer(rule->hours_end, json_object_get(element, "hours_end"));
        store_integer(rule->minutes_end, json_object_get(element, "minutes_end"));
        rule = rule->next;
    }
}

} // namespace

} // namespace kelmora_bench

using namespace kelmora_bench;

int parental_control_to_baseline(kelmora_resource *head, char **out)
{
    json_t *object = json_object();
    fill(object, record_of<kelmora_parental_control>(head));
    return render(object, 0, out);
}

int parental_control_from_baseline(kelmora_resource *node, const char *text, kelmora_errorlist * /*errors*/)
{
    return document_from_json<kelmora_parental_control, from_json>(node, text);
}
