#include "records/device.h"

#include "layout.h"

EXPECT_FIELD(kelmora_device, model, char[64], 0);
EXPECT_FIELD(kelmora_device, uptime, std::uint32_t, 64);
EXPECT_FIELD(kelmora_device, fw_version, char[64], 68);
EXPECT_FIELD(kelmora_device, alias, char[64], 132);
EXPECT_FIELD(kelmora_device, show_wizard, std::uint8_t, 196);
EXPECT_FIELD(kelmora_device, login_enable, std::uint8_t, 197);
EXPECT_FIELD(kelmora_device, leds, std::uint8_t, 198);
EXPECT_FIELD(kelmora_device, is_manageable, std::uint8_t, 199);
static_assert(sizeof(kelmora_device) == 200);

EXPECT_FIELD(kelmora_status, wan_cable, std::uint8_t, 0);
EXPECT_FIELD(kelmora_status, has_internet, std::uint8_t, 1);
EXPECT_FIELD(kelmora_status, tavoline_connected, std::uint8_t, 2);
EXPECT_FIELD(kelmora_status, firmware_update, std::uint8_t, 3);
EXPECT_FIELD(kelmora_status, wps_status, std::uint32_t, 4);
static_assert(sizeof(kelmora_status) == 8);

EXPECT_FIELD(kelmora_system, upnp, std::uint8_t, 0);
EXPECT_FIELD(kelmora_system, sip_alg, std::uint8_t, 1);
EXPECT_FIELD(kelmora_system, upnp_wan_if, char[20], 2);
EXPECT_FIELD(kelmora_system, operationMode, std::uint32_t, 24);
EXPECT_FIELD(kelmora_system, dmz_enabled, std::uint8_t, 28);
EXPECT_FIELD(kelmora_system, dmz_ip4, char[17], 29);
EXPECT_FIELD(kelmora_system, ipv6_enabled, std::uint8_t, 46);
EXPECT_FIELD(kelmora_system, limited_user_enabled, std::uint8_t, 47);
static_assert(sizeof(kelmora_system) == 48);

EXPECT_FIELD(kelmora_mp_info, info, char[127], 0);
EXPECT_FIELD(kelmora_mp_info, password, char[48], 127);
static_assert(sizeof(kelmora_mp_info) == 175);

EXPECT_FIELD(kelmora_limits_wifi_limit, radio_id, char[7], 0);
EXPECT_FIELD(kelmora_limits_wifi_limit, value, std::int32_t, 8);
EXPECT_FIELD(kelmora_limits_wifi_limit, next, kelmora_limits_wifi_limit *, is_64_bit ? 16 : 12);
static_assert(sizeof(kelmora_limits_wifi_limit) == (is_64_bit ? 24 : 16));

EXPECT_FIELD(kelmora_limits, port_redirect, std::int32_t, 0);
EXPECT_FIELD(kelmora_limits, qos_rules, std::int32_t, 4);
EXPECT_FIELD(kelmora_limits, static_leases, std::int32_t, 8);
EXPECT_FIELD(kelmora_limits, wifi_limits, kelmora_limits_wifi_limit *, is_64_bit ? 16 : 12);
EXPECT_FIELD(kelmora_limits, filter_ip, std::int32_t, is_64_bit ? 24 : 16);
EXPECT_FIELD(kelmora_limits, filter_mac, std::int32_t, is_64_bit ? 28 : 20);
EXPECT_FIELD(kelmora_limits, filter_port, std::int32_t, is_64_bit ? 32 : 24);
EXPECT_FIELD(kelmora_limits, filter_url, std::int32_t, is_64_bit ? 36 : 28);
static_assert(sizeof(kelmora_limits) == (is_64_bit ? 40 : 32));
