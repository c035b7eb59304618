#include "bench/baselines/baselines.h"
#include "bench/baselines/json.h"

#include "records/firewall.h"

namespace kelmora_bench {

namespace {

void fill(json_t *out, const kelmora_firewall_ip_port_filtering &filter, const char *id)
{
    json_object_set_new(out, "id", json_string(id));
    json_object_set_new(out, "outgoing_default_action", json_integer(filter.outgoing_default_action));
    json_object_set_new(out, "incoming_default_action", json_integer(filter.incoming_default_action));
    json_t *list = json_array();
    for (const auto *rule = filter.filter_lists; rule != nullptr; rule = rule->next) {
        json_t *entry = json_object();
        json_object_set_new(entry, "rule_action", json_boolean(rule->rule_action));
        json_object_set_new(entry, "source_ip_address", json_string(rule->source_ip_address));
        json_object_set_new(entry, "dest_ip_address", json_string(rule->dest_ip_address));
        json_object_set_new(entry, "source_subnet_mask", json_integer(rule->source_subnet_mask));
        json_object_set_new(entry, "dest_subnet_mask", json_integer(rule->dest_subnet_mask));
        json_object_set_new(entry, "source_port_from", json_integer(rule->source_port_from));
        json_object_set_new(entry, "source_port_to", json_integer(rule->source_port_to));
        json_object_set_new(entry, "dest_port_from", json_integer(rule->dest_port_from));
        json_object_set_new(entry, "dest_port_to", json_integer(rule->dest_port_to));
        json_object_set_new(entry, "direction", json_integer(rule->direction));
        json_object_set_new(entry, "protocol", json_integer(rule->protocol));
        json_object_set_new(entry, "interface_index", json_string(rule->interface_index));
        json_array_append_new(list, entry);
    }
    json_object_set_new(out, "filter_lists", list);
}

void from_json(const json_t *in, kelmora_firewall_ip_port_filtering &filter)
{
    store_integer(filter.outgoing_default_action, json_object_get(in, "outgoing_default_action"));
    store_integer(filter.incoming_default_action, json_object_get(in, "incoming_default_action"));
    auto **link = &filter.filter_lists;
    const json_t *list = json_object_get(in, "filter_lists");
    const std::size_t size = json_array_size(list);
    for (std::size_t i = 0; i < size; ++i) {
        const json_t *entry = json_array_get(list, i);
        auto *rule = append(link);
        store_boolean(rule->rule_action, json_object_get(entry, "rule_action"));
        store_string(rule->source_ip_address, json_object_get(entry, "source_ip_address"));
        store_string(rule->dest_ip_address, json_object_get(entry, "dest_ip_address"));
        store_integer(rule->source_subnet_mask, json_object_get(entry, "source_subnet_mask"));
        store_integer(rule->dest_subnet_mask, json_object_get(entry, "dest_subnet_mask"));
        store_integer(rule->source_port_from, json_object_get(entry, "source_port_from"));
        store_integer(rule->source_port_to, json_object_get(entry, "source_port_to"));
        store_integer(rule->dest_port_from, json_object_get(entry, "dest_port_from"));
        store_integer(rule->dest_port_to, json_object_get(entry, "dest_port_to"));
        store_integer(rule->direction, json_object_get(entry, "direction"));
        store_integer(rule->protocol, json_object_get(entry, "protocol"));
        store_string(rule->interface_index, json_object_get(entry, "interface_index"));
    }
}

} // namespace

} // namespace kelmora_bench

using namespace kelmora_bench;

int firewall_ip_port_filtering_to_baseline(kelmora_resource *head, char **out)
{
    return render_nodes<kelmora_firewall_ip_port_filtering, fill>(head, 0, out);
}

int firewall_ip_port_filtering_from_baseline(kelmora_resource *node, const char *text, kelmora_errorlist * /*errors*/)
{
    return document_from_json<kelmora_firewall_ip_port_filtering, from_json>(node, text);
}
