#include "records/wireless.h"

#include "layout.h"

EXPECT_FIELD(kelmora_wlan_access_control_mac, mac, char[18], 0);
EXPECT_FIELD(kelmora_wlan_access_control_mac, next, kelmora_wlan_access_control_mac *, is_64_bit ? 24 : 20);
static_assert(sizeof(kelmora_wlan_access_control_mac) == (is_64_bit ? 32 : 24));

EXPECT_FIELD(kelmora_wlan_access_control, mode, std::uint32_t, 0);
EXPECT_FIELD(kelmora_wlan_access_control, mac_list, kelmora_wlan_access_control_mac *, is_64_bit ? 8 : 4);
static_assert(sizeof(kelmora_wlan_access_control) == (is_64_bit ? 16 : 8));

EXPECT_FIELD(kelmora_easymesh_neighbor, name, char[64], 0);
EXPECT_FIELD(kelmora_easymesh_neighbor, model, char[64], 64);
EXPECT_FIELD(kelmora_easymesh_neighbor, is_online, std::uint8_t, 128);
EXPECT_FIELD(kelmora_easymesh_neighbor, ip, char[17], 129);
EXPECT_FIELD(kelmora_easymesh_neighbor, mac, char[18], 146);
EXPECT_FIELD(kelmora_easymesh_neighbor, rssi, std::int32_t, 164);
EXPECT_FIELD(kelmora_easymesh_neighbor, backhaul, std::uint32_t, 168);
EXPECT_FIELD(kelmora_easymesh_neighbor, neighbors, kelmora_easymesh_neighbor *, is_64_bit ? 176 : 172);
EXPECT_FIELD(kelmora_easymesh_neighbor, next, kelmora_easymesh_neighbor *, is_64_bit ? 184 : 176);
static_assert(sizeof(kelmora_easymesh_neighbor) == (is_64_bit ? 192 : 180));

EXPECT_FIELD(kelmora_easymesh, enabled, std::uint8_t, 0);
EXPECT_FIELD(kelmora_easymesh, controllerIp, char[17], 1);
EXPECT_FIELD(kelmora_easymesh, backhaul_mac, char[18], 18);
EXPECT_FIELD(kelmora_easymesh, backhaul_rssi, std::int32_t, 36);
EXPECT_FIELD(kelmora_easymesh, type, std::uint32_t, 40);
EXPECT_FIELD(kelmora_easymesh, backhaul, std::uint32_t, 44);
EXPECT_FIELD(kelmora_easymesh, neighbors, kelmora_easymesh_neighbor *, 48);
EXPECT_FIELD(kelmora_easymesh, syncing, std::uint32_t, is_64_bit ? 56 : 52);
static_assert(sizeof(kelmora_easymesh) == (is_64_bit ? 64 : 56));
