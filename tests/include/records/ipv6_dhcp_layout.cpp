#include "records/ipv6.h"

#include "layout.h"

EXPECT_FIELD(kelmora_ipv6_dhcp, enabled, std::uint8_t, 0);
EXPECT_FIELD(kelmora_ipv6_dhcp, mode, std::uint32_t, 4);
static_assert(sizeof(kelmora_ipv6_dhcp) == 8);

EXPECT_FIELD(kelmora_ipv6_dhcp_server_domain, domain, char[255], 0);
EXPECT_FIELD(kelmora_ipv6_dhcp_server_domain, next, kelmora_ipv6_dhcp_server_domain *, 256);
static_assert(sizeof(kelmora_ipv6_dhcp_server_domain) == (is_64_bit ? 264 : 260));

EXPECT_FIELD(kelmora_ipv6_dhcp_server_dns_server, address, char[46], 0);
EXPECT_FIELD(kelmora_ipv6_dhcp_server_dns_server, next, kelmora_ipv6_dhcp_server_dns_server *, 48);
static_assert(sizeof(kelmora_ipv6_dhcp_server_dns_server) == (is_64_bit ? 56 : 52));

EXPECT_FIELD(kelmora_ipv6_dhcp_server, mode, std::uint32_t, 0);
EXPECT_FIELD(kelmora_ipv6_dhcp_server, ip_pool_range_start, char[46], 4);
EXPECT_FIELD(kelmora_ipv6_dhcp_server, ip_pool_range_end, char[46], 50);
EXPECT_FIELD(kelmora_ipv6_dhcp_server, prefix_length, std::uint32_t, 96);
EXPECT_FIELD(kelmora_ipv6_dhcp_server, valid_lifetime, std::uint32_t, 100);
EXPECT_FIELD(kelmora_ipv6_dhcp_server, preffered_lifetime, std::uint32_t, 104);
EXPECT_FIELD(kelmora_ipv6_dhcp_server, renew_time, std::uint32_t, 108);
EXPECT_FIELD(kelmora_ipv6_dhcp_server, rebind_time, std::uint32_t, 112);
EXPECT_FIELD(kelmora_ipv6_dhcp_server, client_duid, char[3], 116);
EXPECT_FIELD(kelmora_ipv6_dhcp_server, domains, kelmora_ipv6_dhcp_server_domain *, 120);
EXPECT_FIELD(kelmora_ipv6_dhcp_server, dns_servers, kelmora_ipv6_dhcp_server_dns_server *, is_64_bit ? 128 : 124);
static_assert(sizeof(kelmora_ipv6_dhcp_server) == (is_64_bit ? 136 : 128));

EXPECT_FIELD(kelmora_ipv6_dhcp_relay, interfaceID, char[20], 0);
static_assert(sizeof(kelmora_ipv6_dhcp_relay) == 20);

EXPECT_FIELD(kelmora_ipv6_dhcp_client, ip_address, char[46], 0);
EXPECT_FIELD(kelmora_ipv6_dhcp_client, duid, char[128], 46);
EXPECT_FIELD(kelmora_ipv6_dhcp_client, aging_time, std::uint32_t, 176);
static_assert(sizeof(kelmora_ipv6_dhcp_client) == 180);
