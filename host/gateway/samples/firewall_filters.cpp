#include "host/gateway/samples.h"

#include "records/firewall.h"

namespace kelmora_host {

namespace {

constexpr kelmora_filter console_filter{
    .enabled = 1,
    .description = "No gaming on school days",
    .protocol = 3,
    .type = 1,
    .target = "192.168.17.110",
    .port_start = 3074,
    .port_end = 3079,
    .policy = 2,
};

constexpr kelmora_filter mail_filter{
    .enabled = 0,
    .description = "No mail past our provider",
    .protocol = 1,
    .type = 2,
    .target = "192.168.17.0/24",
    .port_start = 25,
    .port_end = 25,
    .policy = 2,
};

kelmora_firewall_mac_filtering mac_filter()
{
    return {
        .incoming_default_act = 1,
        .outgoing_default_act = 1,
        .entry = make_chain<kelmora_firewall_mac_filtering_entry>({
            {.direction = 1,
             .source_mac = "34:af:2c:81:d0:17",
             .destination_mac = "",
             .rule_action = 0,
             .next = nullptr},
            {.direction = 0,
             .source_mac = "",
             .destination_mac = "00:1b:a9:6d:e3:0f",
             .rule_action = 0,
             .next = nullptr},
        }),
    };
}

kelmora_firewall_ip_port_filtering ip_port_filter()
{
    return {
        .outgoing_default_action = 1,
        .incoming_default_action = 0,
        .filter_lists = make_chain<kelmora_firewall_ip_port_filtering_rule>({
            {.rule_action = 1,
             .source_ip_address = "198.51.100.0",
             .dest_ip_address = "192.168.17.21",
             .source_subnet_mask = 24,
             .dest_subnet_mask = 32,
             .source_port_from = 0,
             .source_port_to = 65535,
             .dest_port_from = 443,
             .dest_port_to = 443,
             .direction = 0,
             .protocol = 1,
             .interface_index = "wan0",
             .next = nullptr},
            {.rule_action = 0,
             .source_ip_address = "192.168.17.110",
             .dest_ip_address = "",
             .source_subnet_mask = 32,
             .dest_subnet_mask = 0,
             .source_port_from = 0,
             .source_port_to = 65535,
             .dest_port_from = 3074,
             .dest_port_to = 3079,
             .direction = 1,
             .protocol = 2,
             .interface_index = "wan0",
             .next = nullptr},
        }),
    };
}

constexpr kelmora_ipv6_ip_port_filter storage_filter{
    .direction = 0,
    .protocol = 1,
    .rule_action = 1,
    .src_start = "2001:db8:77::",
    .src_end = "2001:db8:77::ffff",
    .src_prefix_length = 64,
    .dst_start = "2001:db8:4c:1700::21",
    .dst_end = "2001:db8:4c:1700::21",
    .dst_prefix_length = 128,
    .source_port_from = 1024,
    .source_port_to = 65535,
    .destination_port_from = 443,
    .destination_port_to = 443,
    .interface_id = "wan0",
};

constexpr kelmora_ipv6_ip_port_filter file_sharing_filter{
    .direction = 1,
    .protocol = 1,
    .rule_action = 0,
    .src_start = "2001:db8:4c:1700::",
    .src_end = "",
    .src_prefix_length = 64,
    .dst_start = "",
    .dst_end = "",
    .dst_prefix_length = 0,
    .source_port_from = 0,
    .source_port_to = 65535,
    .destination_port_from = 445,
    .destination_port_to = 445,
    .interface_id = "wan0",
};

constexpr kelmora_ipv6_ip_port_filter_default_rule default_rule{
    .default_incoming_action = 0,
    .default_outgoing_action = 1,
};

} // namespace

void add_firewall_filters_samples(Gateway &gateway)
{
    gateway.add("filter", "0", console_filter);
    gateway.add("filter", "1", mail_filter);

    gateway.add("firewall_mac_filtering", "0", mac_filter());

    gateway.add("firewall_ip_port_filtering", "0", ip_port_filter());

    gateway.add("ipv6_ip_port_filter", "0", storage_filter);
    gateway.add("ipv6_ip_port_filter", "1", file_sharing_filter);

    gateway.add("ipv6_ip_port_filter_default_rule", "0", default_rule);
}

} // namespace kelmora_host
