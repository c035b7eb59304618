#include "records/firewall.h"

#include "layout.h"

EXPECT_FIELD(kelmora_firewall_domain_blocking_domain, domain, char[120], 0);
EXPECT_FIELD(kelmora_firewall_domain_blocking_domain, next, kelmora_firewall_domain_blocking_domain *, 120);
static_assert(sizeof(kelmora_firewall_domain_blocking_domain) == (is_64_bit ? 128 : 124));

EXPECT_FIELD(kelmora_firewall_domain_blocking, enable, std::uint8_t, 0);
EXPECT_FIELD(kelmora_firewall_domain_blocking, domains, kelmora_firewall_domain_blocking_domain *, is_64_bit ? 8 : 4);
static_assert(sizeof(kelmora_firewall_domain_blocking) == (is_64_bit ? 16 : 8));

EXPECT_FIELD(kelmora_firewall_url_blocking_url, url, char[128], 0);
EXPECT_FIELD(kelmora_firewall_url_blocking_url, next, kelmora_firewall_url_blocking_url *, 128);
static_assert(sizeof(kelmora_firewall_url_blocking_url) == (is_64_bit ? 136 : 132));

EXPECT_FIELD(kelmora_firewall_url_blocking_keyword, keyword, char[20], 0);
EXPECT_FIELD(kelmora_firewall_url_blocking_keyword, next, kelmora_firewall_url_blocking_keyword *, is_64_bit ? 24 : 20);
static_assert(sizeof(kelmora_firewall_url_blocking_keyword) == (is_64_bit ? 32 : 24));

EXPECT_FIELD(kelmora_firewall_url_blocking, enable, std::uint8_t, 0);
EXPECT_FIELD(kelmora_firewall_url_blocking, urls, kelmora_firewall_url_blocking_url *, is_64_bit ? 8 : 4);
EXPECT_FIELD(kelmora_firewall_url_blocking, keywords, kelmora_firewall_url_blocking_keyword *, is_64_bit ? 16 : 8);
static_assert(sizeof(kelmora_firewall_url_blocking) == (is_64_bit ? 24 : 12));

EXPECT_FIELD(kelmora_parental_control_rule, username, char[32], 0);
EXPECT_FIELD(kelmora_parental_control_rule, address_type, std::uint32_t, 32);
EXPECT_FIELD(kelmora_parental_control_rule, ip_address_from, char[17], 36);
EXPECT_FIELD(kelmora_parental_control_rule, ip_address_to, char[17], 53);
EXPECT_FIELD(kelmora_parental_control_rule, mac_address, char[18], 70);
EXPECT_FIELD(kelmora_parental_control_rule, days, std::uint32_t, 88);
EXPECT_FIELD(kelmora_parental_control_rule, hours_begin, std::uint8_t, 92);
EXPECT_FIELD(kelmora_parental_control_rule, minutes_begin, std::uint8_t, 93);
EXPECT_FIELD(kelmora_parental_control_rule, hours_end, std::uint8_t, 94);
EXPECT_FIELD(kelmora_parental_control_rule, minutes_end, std::uint8_t, 95);
EXPECT_FIELD(kelmora_parental_control_rule, next, kelmora_parental_control_rule *, 96);
static_assert(sizeof(kelmora_parental_control_rule) == (is_64_bit ? 104 : 100));

EXPECT_FIELD(kelmora_parental_control, enabled, std::uint8_t, 0);
EXPECT_FIELD(kelmora_parental_control, parental_control_list, kelmora_parental_control_rule *, is_64_bit ? 8 : 4);
static_assert(sizeof(kelmora_parental_control) == (is_64_bit ? 16 : 8));
