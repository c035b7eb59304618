// The baseline's own library, by its format strings: json_pack and json_unpack.
#include "bench/baselines/json.h"
#include "bench/other_libraries/other_libraries.h"

#include "records/firewall.h"
#include "records/pon.h"
#include "records/wireless.h"

#include <cstddef>
#include <cstdint>
#include <jansson.h>

namespace kelmora_bench {

namespace {

template <class Record, json_t *(*pack)(const Record &record, const char *id)>
int to(kelmora_resource *head, char **out)
{
    json_t *list = json_array();
    for (kelmora_resource *node = head; node != nullptr; node = kelmora_resource_get_next(node))
        json_array_append_new(list, pack(record_of<const Record>(node), node->id));
    return render(list, 0, out);
}

template <class Record, int (*unpack)(json_t *document, Record &record)>
int from(kelmora_resource *node, const char *text, kelmora_errorlist * /*errors*/)
{
    json_t *document = json_loads(text, 0, nullptr);
    const int result = unpack(document, record_of<Record>(node));
    json_decref(document);
    return result == 0 ? 1 : 0;
}

json_int_t wide(json_int_t integer) { return integer; }

template <std::size_t width> void store_given(char (&field)[width], const char *text)
{
    if (text != nullptr)
        store_string(field, text);
}

json_t *pack_network(const kelmora_wireless &network, const char *id)
{
    return json_pack("{s:I,s:b,s:s,s:I,s:s,s:s,s:b,s:s,s:s,s:I,s:I,s:s,s:b,s:b,s:I,s:b}", "mode", wide(network.mode),
                     "enabled", network.enabled, "id", id, "ieee_std", wide(network.ieee_std), "interfaceID",
                     network.interfaceID, "radioID", network.radioID, "broadcast", network.broadcast, "ssid",
                     network.ssid, "bssid", network.bssid, "cipher", wide(network.cipher), "crypto",
                     wide(network.crypto), "key", network.key, "wps", network.wps, "isRoot", network.isRoot,
                     "client_mode_rssi", wide(network.client_mode_rssi), "guest_network", network.guest_network);
}

int unpack_network(json_t *document, kelmora_wireless &network)
{
    const char *interface_id = nullptr;
    const char *radio_id = nullptr;
    const char *ssid = nullptr;
    const char *key = nullptr;
    int broadcast = network.broadcast;
    int wps = network.wps;
    int enabled = network.enabled;
    int is_root = network.isRoot;
    int guest_network = network.guest_network;
    json_int_t cipher = network.cipher;
    json_int_t crypto = network.crypto;
    json_int_t mode = network.mode;
    json_int_t client_mode_rssi = network.client_mode_rssi;
    json_int_t ieee_std = network.ieee_std;
    const int result =
        json_unpack(document, "{s?s,s?s,s?b,s?s,s?I,s?I,s?I,s?s,s?b,s?b,s?b,s?I,s?I,s?b}", "interfaceID", &interface_id,
                    "radioID", &radio_id, "broadcast", &broadcast, "ssid", &ssid, "cipher", &cipher, "crypto", &crypto,
                    "mode", &mode, "key", &key, "wps", &wps, "enabled", &enabled, "isRoot", &is_root,
                    "client_mode_rssi", &client_mode_rssi, "ieee_std", &ieee_std, "guest_network", &guest_network);
    store_given(network.interfaceID, interface_id);
    store_given(network.radioID, radio_id);
    store_given(network.ssid, ssid);
    store_given(network.key, key);
    network.broadcast = static_cast<std::uint8_t>(broadcast);
    network.wps = static_cast<std::uint8_t>(wps);
    network.enabled = static_cast<std::uint8_t>(enabled);
    network.isRoot = static_cast<std::uint8_t>(is_root);
    network.guest_network = static_cast<std::uint8_t>(guest_network);
    network.cipher = static_cast<std::uint32_t>(cipher);
    network.crypto = static_cast<std::uint32_t>(crypto);
    network.mode = static_cast<std::uint32_t>(mode);
    network.client_mode_rssi = static_cast<std::int32_t>(client_mode_rssi);
    network.ieee_std = static_cast<std::uint32_t>(ieee_std);
    return result;
}

json_t *pack_counters(const kelmora_pon_counters &counters, const char *id)
{
    return json_pack("{s:s,s:I,s:I,s:I,s:I,s:I,s:I,s:I,s:I,s:I,s:I,s:I,s:I,s:I,s:I,s:I}", "id", id, "tx_bytes",
                     wide(counters.tx_bytes), "rx_bytes", wide(counters.rx_bytes), "tx_packets",
                     wide(counters.tx_packets), "rx_packets", wide(counters.rx_packets), "tx_unicast_packets",
                     wide(counters.tx_unicast_packets), "rx_unicast_packets", wide(counters.rx_unicast_packets),
                     "tx_multicast_packets", wide(counters.tx_multicast_packets), "rx_multicast_packets",
                     wide(counters.rx_multicast_packets), "tx_broadcast_packets", wide(counters.tx_broadcast_packets),
                     "rx_broadcast_packets", wide(counters.rx_broadcast_packets), "tx_pause_packets",
                     wide(counters.tx_pause_packets), "rx_pause_packets", wide(counters.rx_pause_packets), "fec_errors",
                     wide(counters.fec_errors), "hec_errors", wide(counters.hec_errors), "dropped_packets",
                     wide(counters.dropped_packets));
}

json_t *pack_rule(const kelmora_firewall_ip_port_filtering_rule &rule)
{
    return json_pack("{s:b,s:s,s:s,s:i,s:i,s:i,s:i,s:i,s:i,s:I,s:I,s:s}", "rule_action", rule.rule_action,
                     "source_ip_address", rule.source_ip_address, "dest_ip_address", rule.dest_ip_address,
                     "source_subnet_mask", rule.source_subnet_mask, "dest_subnet_mask", rule.dest_subnet_mask,
                     "source_port_from", rule.source_port_from, "source_port_to", rule.source_port_to, "dest_port_from",
                     rule.dest_port_from, "dest_port_to", rule.dest_port_to, "direction", wide(rule.direction),
                     "protocol", wide(rule.protocol), "interface_index", rule.interface_index);
}

int unpack_rule(json_t *entry, kelmora_firewall_ip_port_filtering_rule &rule)
{
    const char *source_ip_address = nullptr;
    const char *dest_ip_address = nullptr;
    const char *interface_index = nullptr;
    int rule_action = rule.rule_action;
    int source_subnet_mask = rule.source_subnet_mask;
    int dest_subnet_mask = rule.dest_subnet_mask;
    int source_port_from = rule.source_port_from;
    int source_port_to = rule.source_port_to;
    int dest_port_from = rule.dest_port_from;
    int dest_port_to = rule.dest_port_to;
    json_int_t direction = rule.direction;
    json_int_t protocol = rule.protocol;
    const int result =
        json_unpack(entry, "{s?b,s?s,s?s,s?i,s?i,s?i,s?i,s?i,s?i,s?I,s?I,s?s}", "rule_action", &rule_action,
                    "source_ip_address", &source_ip_address, "dest_ip_address", &dest_ip_address, "source_subnet_mask",
                    &source_subnet_mask, "dest_subnet_mask", &dest_subnet_mask, "source_port_from", &source_port_from,
                    "source_port_to", &source_port_to, "dest_port_from", &dest_port_from, "dest_port_to", &dest_port_to,
                    "direction", &direction, "protocol", &protocol, "interface_index", &interface_index);
    store_given(rule.source_ip_address, source_ip_address);
    store_given(rule.dest_ip_address, dest_ip_address);
    store_given(rule.interface_index, interface_index);
    rule.rule_action = static_cast<std::uint8_t>(rule_action);
    rule.source_subnet_mask = static_cast<std::uint8_t>(source_subnet_mask);
    rule.dest_subnet_mask = static_cast<std::uint8_t>(dest_subnet_mask);
    rule.source_port_from = static_cast<std::uint16_t>(source_port_from);
    rule.source_port_to = static_cast<std::uint16_t>(source_port_to);
    rule.dest_port_from = static_cast<std::uint16_t>(dest_port_from);
    rule.dest_port_to = static_cast<std::uint16_t>(dest_port_to);
    rule.direction = static_cast<std::uint32_t>(direction);
    rule.protocol = static_cast<std::uint32_t>(protocol);
    return result;
}

json_t *pack_filter(const kelmora_firewall_ip_port_filtering &filter, const char *id)
{
    json_t *rules = json_array();
    for (const auto *rule = filter.filter_lists; rule != nullptr; rule = rule->next)
        json_array_append_new(rules, pack_rule(*rule));
    return json_pack("{s:s,s:I,s:I,s:o}", "id", id, "outgoing_default_action", wide(filter.outgoing_default_action),
                     "incoming_default_action", wide(filter.incoming_default_action), "filter_lists", rules);
}

int unpack_filter(json_t *document, kelmora_firewall_ip_port_filtering &filter)
{
    json_int_t outgoing_default_action = filter.outgoing_default_action;
    json_int_t incoming_default_action = filter.incoming_default_action;
    json_t *rules = nullptr;
    int result = json_unpack(document, "{s?I,s?I,s?o}", "outgoing_default_action", &outgoing_default_action,
                             "incoming_default_action", &incoming_default_action, "filter_lists", &rules);
    filter.outgoing_default_action = static_cast<std::uint32_t>(outgoing_default_action);
    filter.incoming_default_action = static_cast<std::uint32_t>(incoming_default_action);
    auto **link = &filter.filter_lists;
    std::size_t i = 0;
    json_t *entry = nullptr;
    json_array_foreach(rules, i, entry)
    {
        if (result == 0)
            result = unpack_rule(entry, *append(link));
    }
    return result;
}

} // namespace

const OtherLibrary jansson_pack_peer{
    .name = "json_pack, json_unpack",
    .wireless_to = to<kelmora_wireless, pack_network>,
    .wireless_from = from<kelmora_wireless, unpack_network>,
    .pon_counters_to = to<kelmora_pon_counters, pack_counters>,
    .firewall_to = to<kelmora_firewall_ip_port_filtering, pack_filter>,
    .firewall_from = from<kelmora_firewall_ip_port_filtering, unpack_filter>,
};

} // namespace kelmora_bench
