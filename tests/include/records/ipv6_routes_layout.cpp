#include "records/ipv6.h"

#include "layout.h"

EXPECT_FIELD(kelmora_ipv6_static_route, enable, std::uint8_t, 0);
EXPECT_FIELD(kelmora_ipv6_static_route, destination, char[46], 1);
EXPECT_FIELD(kelmora_ipv6_static_route, next_hop, char[46], 47);
EXPECT_FIELD(kelmora_ipv6_static_route, metric, std::uint32_t, 96);
EXPECT_FIELD(kelmora_ipv6_static_route, interface, char[20], 100);
static_assert(sizeof(kelmora_ipv6_static_route) == 120);

EXPECT_FIELD(kelmora_ipv6_static_route_list_entry, destination, char[46], 0);
EXPECT_FIELD(kelmora_ipv6_static_route_list_entry, next_hop, char[46], 46);
EXPECT_FIELD(kelmora_ipv6_static_route_list_entry, flags, char[10], 92);
EXPECT_FIELD(kelmora_ipv6_static_route_list_entry, metric, std::uint32_t, 104);
EXPECT_FIELD(kelmora_ipv6_static_route_list_entry, ref, std::uint16_t, 108);
EXPECT_FIELD(kelmora_ipv6_static_route_list_entry, use, std::uint16_t, 110);
EXPECT_FIELD(kelmora_ipv6_static_route_list_entry, interfaceID, char[20], 112);
EXPECT_FIELD(kelmora_ipv6_static_route_list_entry, next, kelmora_ipv6_static_route_list_entry *, is_64_bit ? 136 : 132);
static_assert(sizeof(kelmora_ipv6_static_route_list_entry) == (is_64_bit ? 144 : 136));

EXPECT_FIELD(kelmora_ipv6_static_route_list, ipv6_static_route_list, kelmora_ipv6_static_route_list_entry *, 0);
static_assert(sizeof(kelmora_ipv6_static_route_list) == (is_64_bit ? 8 : 4));

EXPECT_FIELD(kelmora_neighbour_hosts, ip_addr, char[47], 0);
EXPECT_FIELD(kelmora_neighbour_hosts, mac_addr, char[18], 47);
EXPECT_FIELD(kelmora_neighbour_hosts, interfaceID, char[20], 65);
EXPECT_FIELD(kelmora_neighbour_hosts, nud, std::uint32_t, 88);
static_assert(sizeof(kelmora_neighbour_hosts) == 92);
