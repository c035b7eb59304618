#include "records/ipv6.h"

#include "layout.h"

EXPECT_FIELD(kelmora_ipv6_radvd, max_rtr_adv_interval, std::uint32_t, 0);
EXPECT_FIELD(kelmora_ipv6_radvd, min_rtr_adv_interval, std::uint32_t, 4);
EXPECT_FIELD(kelmora_ipv6_radvd, adv_managed_flag, std::uint8_t, 8);
EXPECT_FIELD(kelmora_ipv6_radvd, ipv6_prefix_mode_auto, std::uint32_t, 12);
EXPECT_FIELD(kelmora_ipv6_radvd, prefix, char[46], 16);
EXPECT_FIELD(kelmora_ipv6_radvd, prefix_size, std::uint16_t, 62);
EXPECT_FIELD(kelmora_ipv6_radvd, adv_valid_lifetime, std::uint32_t, 64);
EXPECT_FIELD(kelmora_ipv6_radvd, adv_preferred_lifetime, std::uint32_t, 68);
EXPECT_FIELD(kelmora_ipv6_radvd, adv_on_link, std::uint8_t, 72);
EXPECT_FIELD(kelmora_ipv6_radvd, adv_autonomous, std::uint8_t, 73);
EXPECT_FIELD(kelmora_ipv6_radvd, rdnss1, char[46], 74);
EXPECT_FIELD(kelmora_ipv6_radvd, rdnss2, char[46], 120);
EXPECT_FIELD(kelmora_ipv6_radvd, enable_ula, std::uint8_t, 166);
EXPECT_FIELD(kelmora_ipv6_radvd, ula_prefix, char[17], 167);
EXPECT_FIELD(kelmora_ipv6_radvd, ula_prefix_len, std::uint32_t, 184);
EXPECT_FIELD(kelmora_ipv6_radvd, ula_valid_time, std::uint32_t, 188);
EXPECT_FIELD(kelmora_ipv6_radvd, ula_prefer_time, std::uint32_t, 192);
static_assert(sizeof(kelmora_ipv6_radvd) == 196);

EXPECT_FIELD(kelmora_ipv6_prefix_delegation, mode, std::uint32_t, 0);
EXPECT_FIELD(kelmora_ipv6_prefix_delegation, prefix, char[46], 4);
EXPECT_FIELD(kelmora_ipv6_prefix_delegation, interfaceID, char[20], 50);
static_assert(sizeof(kelmora_ipv6_prefix_delegation) == 72);

EXPECT_FIELD(kelmora_ipv6_proxy_mld, robust_count, std::int32_t, 0);
EXPECT_FIELD(kelmora_ipv6_proxy_mld, query_interval, std::uint32_t, 4);
EXPECT_FIELD(kelmora_ipv6_proxy_mld, query_response_interval, std::uint32_t, 8);
EXPECT_FIELD(kelmora_ipv6_proxy_mld, response_interval_of_last_group_member, std::uint32_t, 12);
static_assert(sizeof(kelmora_ipv6_proxy_mld) == 16);
