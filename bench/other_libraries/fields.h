#ifndef KELMORA_BENCH_OTHER_LIBRARIES_FIELDS_H
#define KELMORA_BENCH_OTHER_LIBRARIES_FIELDS_H

// The fields of the three resources, once for all other_libraries that go key by key. Each other_library brings an Out
// and an In that turn a field into calls of its library: text(key, field), integer(key, field), boolean(key, field),
// and for a chain list(key, first, each), which calls each(entry, node) with an Out or In for each node. An In stores
// what is there, and leaves the fields whose keys are not.

#include "records/firewall.h"
#include "records/pon.h"
#include "records/wireless.h"

namespace kelmora_bench {

template <class Out> void to_json(Out &out, const kelmora_wireless &network, const char *id)
{
    out.integer("mode", network.mode);
    out.boolean("enabled", network.enabled);
    out.text("id", id);
    out.integer("ieee_std", network.ieee_std);
    out.text("interfaceID", network.interfaceID);
    out.text("radioID", network.radioID);
    out.boolean("broadcast", network.broadcast);
    out.text("ssid", network.ssid);
    out.text("bssid", network.bssid);
    out.integer("cipher", network.cipher);
    out.integer("crypto", network.crypto);
    out.text("key", network.key);
    out.boolean("wps", network.wps);
    out.boolean("isRoot", network.isRoot);
    out.integer("client_mode_rssi", network.client_mode_rssi);
    out.boolean("guest_network", network.guest_network);
}

template <class In> void from_json(In &in, kelmora_wireless &network)
{
    in.text("interfaceID", network.interfaceID);
    in.text("radioID", network.radioID);
    in.boolean("broadcast", network.broadcast);
    in.text("ssid", network.ssid);
    in.integer("cipher", network.cipher);
    in.integer("crypto", network.crypto);
    in.integer("mode", network.mode);
    in.text("key", network.key);
    in.boolean("wps", network.wps);
    in.boolean("enabled", network.enabled);
    in.boolean("isRoot", network.isRoot);
    in.integer("client_mode_rssi", network.client_mode_rssi);
    in.integer("ieee_std", network.ieee_std);
    in.boolean("guest_network", network.guest_network);
}

template <class Out> void to_json(Out &out, const kelmora_pon_counters &counters, const char *id)
{
    out.text("id", id);
    out.integer("tx_bytes", counters.tx_bytes);
    out.integer("rx_bytes", counters.rx_bytes);
    out.integer("tx_packets", counters.tx_packets);
    out.integer("rx_packets", counters.rx_packets);
    out.integer("tx_unicast_packets", counters.tx_unicast_packets);
    out.integer("rx_unicast_packets", counters.rx_unicast_packets);
    out.integer("tx_multicast_packets", counters.tx_multicast_packets);
    out.integer("rx_multicast_packets", counters.rx_multicast_packets);
    out.integer("tx_broadcast_packets", counters.tx_broadcast_packets);
    out.integer("rx_broadcast_packets", counters.rx_broadcast_packets);
    out.integer("tx_pause_packets", counters.tx_pause_packets);
    out.integer("rx_pause_packets", counters.rx_pause_packets);
    out.integer("fec_errors", counters.fec_errors);
    out.integer("hec_errors", counters.hec_errors);
    out.integer("dropped_packets", counters.dropped_packets);
}

template <class Out> void to_json(Out &out, const kelmora_firewall_ip_port_filtering &filter, const char *id)
{
    out.text("id", id);
    out.integer("outgoing_default_action", filter.outgoing_default_action);
    out.integer("incoming_default_action", filter.incoming_default_action);
    out.list("filter_lists", filter.filter_lists, [](Out &entry, const auto &rule) {
        entry.boolean("rule_action", rule.rule_action);
        entry.text("source_ip_address", rule.source_ip_address);
        entry.text("dest_ip_address", rule.dest_ip_address);
        entry.integer("source_subnet_mask", rule.source_subnet_mask);
        entry.integer("dest_subnet_mask", rule.dest_subnet_mask);
        entry.integer("source_port_from", rule.source_port_from);
        entry.integer("source_port_to", rule.source_port_to);
        entry.integer("dest_port_from", rule.dest_port_from);
        entry.integer("dest_port_to", rule.dest_port_to);
        entry.integer("direction", rule.direction);
        entry.integer("protocol", rule.protocol);
        entry.text("interface_index", rule.interface_index);
    });
}

template <class In> void from_json(In &in, kelmora_firewall_ip_port_filtering &filter)
{
    in.integer("outgoing_default_action", filter.outgoing_default_action);
    in.integer("incoming_default_action", filter.incoming_default_action);
    in.list("filter_lists", filter.filter_lists, [](In &entry, auto &rule) {
        entry.boolean("rule_action", rule.rule_action);
        entry.text("source_ip_address", rule.source_ip_address);
        entry.text("dest_ip_address", rule.dest_ip_address);
        entry.integer("source_subnet_mask", rule.source_subnet_mask);
        entry.integer("dest_subnet_mask", rule.dest_subnet_mask);
        entry.integer("source_port_from", rule.source_port_from);
        entry.integer("source_port_to", rule.source_port_to);
        entry.integer("dest_port_from", rule.dest_port_from);
        entry.integer("dest_port_to", rule.dest_port_to);
        entry.integer("direction", rule.direction);
        entry.integer("protocol", rule.protocol);
        entry.text("interface_index", rule.interface_index);
    });
}

} // namespace kelmora_bench

#endif
