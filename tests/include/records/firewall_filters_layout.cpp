#include "records/firewall.h"

#include "layout.h"

EXPECT_FIELD(kelmora_filter, enabled, std::uint8_t, 0);
EXPECT_FIELD(kelmora_filter, description, char[33], 1);
EXPECT_FIELD(kelmora_filter, protocol, std::uint32_t, 36);
EXPECT_FIELD(kelmora_filter, type, std::uint32_t, 40);
EXPECT_FIELD(kelmora_filter, target, char[201], 44);
EXPECT_FIELD(kelmora_filter, port_start, std::int32_t, 248);
EXPECT_FIELD(kelmora_filter, port_end, std::int32_t, 252);
EXPECT_FIELD(kelmora_filter, policy, std::uint32_t, 256);
static_assert(sizeof(kelmora_filter) == 260);

EXPECT_FIELD(kelmora_firewall_mac_filtering_entry, direction, std::uint32_t, 0);
EXPECT_FIELD(kelmora_firewall_mac_filtering_entry, source_mac, char[18], 4);
EXPECT_FIELD(kelmora_firewall_mac_filtering_entry, destination_mac, char[18], 22);
EXPECT_FIELD(kelmora_firewall_mac_filtering_entry, rule_action, std::uint32_t, 40);
EXPECT_FIELD(kelmora_firewall_mac_filtering_entry, next, kelmora_firewall_mac_filtering_entry *, is_64_bit ? 48 : 44);
static_assert(sizeof(kelmora_firewall_mac_filtering_entry) == (is_64_bit ? 56 : 48));

EXPECT_FIELD(kelmora_firewall_mac_filtering, incoming_default_act, std::uint32_t, 0);
EXPECT_FIELD(kelmora_firewall_mac_filtering, outgoing_default_act, std::uint32_t, 4);
EXPECT_FIELD(kelmora_firewall_mac_filtering, entry, kelmora_firewall_mac_filtering_entry *, 8);
static_assert(sizeof(kelmora_firewall_mac_filtering) == (is_64_bit ? 16 : 12));

EXPECT_FIELD(kelmora_firewall_ip_port_filtering_rule, rule_action, std::uint8_t, 0);
EXPECT_FIELD(kelmora_firewall_ip_port_filtering_rule, source_ip_address, char[17], 1);
EXPECT_FIELD(kelmora_firewall_ip_port_filtering_rule, dest_ip_address, char[17], 18);
EXPECT_FIELD(kelmora_firewall_ip_port_filtering_rule, source_subnet_mask, std::uint8_t, 35);
EXPECT_FIELD(kelmora_firewall_ip_port_filtering_rule, dest_subnet_mask, std::uint8_t, 36);
EXPECT_FIELD(kelmora_firewall_ip_port_filtering_rule, source_port_from, std::uint16_t, 38);
EXPECT_FIELD(kelmora_firewall_ip_port_filtering_rule, source_port_to, std::uint16_t, 40);
EXPECT_FIELD(kelmora_firewall_ip_port_filtering_rule, dest_port_from, std::uint16_t, 42);
EXPECT_FIELD(kelmora_firewall_ip_port_filtering_rule, dest_port_to, std::uint16_t, 44);
EXPECT_FIELD(kelmora_firewall_ip_port_filtering_rule, direction, std::uint32_t, 48);
EXPECT_FIELD(kelmora_firewall_ip_port_filtering_rule, protocol, std::uint32_t, 52);
EXPECT_FIELD(kelmora_firewall_ip_port_filtering_rule, interface_index, char[20], 56);
EXPECT_FIELD(kelmora_firewall_ip_port_filtering_rule, next, kelmora_firewall_ip_port_filtering_rule *,
             is_64_bit ? 80 : 76);
static_assert(sizeof(kelmora_firewall_ip_port_filtering_rule) == (is_64_bit ? 88 : 80));

EXPECT_FIELD(kelmora_firewall_ip_port_filtering, outgoing_default_action, std::uint32_t, 0);
EXPECT_FIELD(kelmora_firewall_ip_port_filtering, incoming_default_action, std::uint32_t, 4);
EXPECT_FIELD(kelmora_firewall_ip_port_filtering, filter_lists, kelmora_firewall_ip_port_filtering_rule *, 8);
static_assert(sizeof(kelmora_firewall_ip_port_filtering) == (is_64_bit ? 16 : 12));

EXPECT_FIELD(kelmora_ipv6_ip_port_filter, direction, std::uint32_t, 0);
EXPECT_FIELD(kelmora_ipv6_ip_port_filter, protocol, std::uint32_t, 4);
EXPECT_FIELD(kelmora_ipv6_ip_port_filter, rule_action, std::uint32_t, 8);
EXPECT_FIELD(kelmora_ipv6_ip_port_filter, src_start, char[46], 12);
EXPECT_FIELD(kelmora_ipv6_ip_port_filter, src_end, char[46], 58);
EXPECT_FIELD(kelmora_ipv6_ip_port_filter, src_prefix_length, std::uint16_t, 104);
EXPECT_FIELD(kelmora_ipv6_ip_port_filter, dst_start, char[46], 106);
EXPECT_FIELD(kelmora_ipv6_ip_port_filter, dst_end, char[46], 152);
EXPECT_FIELD(kelmora_ipv6_ip_port_filter, dst_prefix_length, std::uint16_t, 198);
EXPECT_FIELD(kelmora_ipv6_ip_port_filter, source_port_from, std::uint32_t, 200);
EXPECT_FIELD(kelmora_ipv6_ip_port_filter, source_port_to, std::uint32_t, 204);
EXPECT_FIELD(kelmora_ipv6_ip_port_filter, destination_port_from, std::uint32_t, 208);
EXPECT_FIELD(kelmora_ipv6_ip_port_filter, destination_port_to, std::uint32_t, 212);
EXPECT_FIELD(kelmora_ipv6_ip_port_filter, interface_id, char[20], 216);
static_assert(sizeof(kelmora_ipv6_ip_port_filter) == 236);

EXPECT_FIELD(kelmora_ipv6_ip_port_filter_default_rule, default_incoming_action, std::uint32_t, 0);
EXPECT_FIELD(kelmora_ipv6_ip_port_filter_default_rule, default_outgoing_action, std::uint32_t, 4);
static_assert(sizeof(kelmora_ipv6_ip_port_filter_default_rule) == 8);
