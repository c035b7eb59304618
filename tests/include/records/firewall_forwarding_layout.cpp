#include "records/firewall.h"

#include "layout.h"

EXPECT_FIELD(kelmora_natportredirect, description, char[32], 0);
EXPECT_FIELD(kelmora_natportredirect, protocol, std::uint32_t, 32);
EXPECT_FIELD(kelmora_natportredirect, external_port_start, std::uint32_t, 36);
EXPECT_FIELD(kelmora_natportredirect, external_port_end, std::uint32_t, 40);
EXPECT_FIELD(kelmora_natportredirect, internalIP, char[17], 44);
EXPECT_FIELD(kelmora_natportredirect, internal_port_start, std::uint32_t, 64);
EXPECT_FIELD(kelmora_natportredirect, internal_port_end, std::uint32_t, 68);
static_assert(sizeof(kelmora_natportredirect) == 72);

EXPECT_FIELD(kelmora_firewall_port_forwarding_enable, enabled, std::uint8_t, 0);
static_assert(sizeof(kelmora_firewall_port_forwarding_enable) == 1);

EXPECT_FIELD(kelmora_firewall_port_forwarding_table, comment, char[60], 0);
EXPECT_FIELD(kelmora_firewall_port_forwarding_table, local_ip, char[17], 60);
EXPECT_FIELD(kelmora_firewall_port_forwarding_table, local_port_from, std::uint16_t, 78);
EXPECT_FIELD(kelmora_firewall_port_forwarding_table, local_port_to, std::uint16_t, 80);
EXPECT_FIELD(kelmora_firewall_port_forwarding_table, protocol, std::uint32_t, 84);
EXPECT_FIELD(kelmora_firewall_port_forwarding_table, remote_ip, char[17], 88);
EXPECT_FIELD(kelmora_firewall_port_forwarding_table, remote_port_from, std::uint16_t, 106);
EXPECT_FIELD(kelmora_firewall_port_forwarding_table, remote_port_to, std::uint16_t, 108);
EXPECT_FIELD(kelmora_firewall_port_forwarding_table, interface, char[20], 110);
static_assert(sizeof(kelmora_firewall_port_forwarding_table) == 132);
