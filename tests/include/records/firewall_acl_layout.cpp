#include "records/firewall.h"

#include "layout.h"

EXPECT_FIELD(kelmora_acl_capability, capability, std::uint8_t, 0);
EXPECT_FIELD(kelmora_acl_capability, available_services, char[8][7], 1);
static_assert(sizeof(kelmora_acl_capability) == 57);

EXPECT_FIELD(kelmora_ipv6_acl_capability, capability, std::uint8_t, 0);
EXPECT_FIELD(kelmora_ipv6_acl_capability, available_services, char[8][7], 1);
static_assert(sizeof(kelmora_ipv6_acl_capability) == 57);

EXPECT_FIELD(kelmora_acl_config_service, enable, std::uint8_t, 0);
EXPECT_FIELD(kelmora_acl_config_service, port, std::uint16_t, 2);
static_assert(sizeof(kelmora_acl_config_service) == 4);

EXPECT_FIELD(kelmora_acl_config, interfaceID, char[20], 0);
EXPECT_FIELD(kelmora_acl_config, ip_start_addr, char[17], 20);
EXPECT_FIELD(kelmora_acl_config, ip_end_addr, char[17], 37);
EXPECT_FIELD(kelmora_acl_config, enable, std::uint8_t, 54);
EXPECT_FIELD(kelmora_acl_config, service_any, std::uint8_t, 55);
EXPECT_FIELD(kelmora_acl_config, service_tftp, std::uint8_t, 56);
EXPECT_FIELD(kelmora_acl_config, service_ping, std::uint8_t, 57);
EXPECT_FIELD(kelmora_acl_config, service_telnet, kelmora_acl_config_service, 58);
EXPECT_FIELD(kelmora_acl_config, service_ftp, kelmora_acl_config_service, 62);
EXPECT_FIELD(kelmora_acl_config, service_http, kelmora_acl_config_service, 66);
EXPECT_FIELD(kelmora_acl_config, service_https, kelmora_acl_config_service, 70);
EXPECT_FIELD(kelmora_acl_config, service_ssh, kelmora_acl_config_service, 74);
static_assert(sizeof(kelmora_acl_config) == 78);

EXPECT_FIELD(kelmora_ipv6_acl_config, interfaceID, char[20], 0);
EXPECT_FIELD(kelmora_ipv6_acl_config, ip6_start_addr, char[46], 20);
EXPECT_FIELD(kelmora_ipv6_acl_config, ip6_prefix_length, std::uint8_t, 66);
EXPECT_FIELD(kelmora_ipv6_acl_config, enable, std::uint8_t, 67);
EXPECT_FIELD(kelmora_ipv6_acl_config, service_any, std::uint8_t, 68);
EXPECT_FIELD(kelmora_ipv6_acl_config, service_telnet, std::uint8_t, 69);
EXPECT_FIELD(kelmora_ipv6_acl_config, service_ftp, std::uint8_t, 70);
EXPECT_FIELD(kelmora_ipv6_acl_config, service_tftp, std::uint8_t, 71);
EXPECT_FIELD(kelmora_ipv6_acl_config, service_http, std::uint8_t, 72);
EXPECT_FIELD(kelmora_ipv6_acl_config, service_https, std::uint8_t, 73);
EXPECT_FIELD(kelmora_ipv6_acl_config, service_ping, std::uint8_t, 74);
EXPECT_FIELD(kelmora_ipv6_acl_config, service_ssh, std::uint8_t, 75);
static_assert(sizeof(kelmora_ipv6_acl_config) == 76);
