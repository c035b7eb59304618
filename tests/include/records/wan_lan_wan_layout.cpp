#include "records/wan_lan.h"

#include "layout.h"

EXPECT_FIELD(kelmora_ip6_address, address, char[46], 0);
EXPECT_FIELD(kelmora_ip6_address, next, kelmora_ip6_address *, 48);
static_assert(sizeof(kelmora_ip6_address) == (is_64_bit ? 56 : 52));

EXPECT_FIELD(kelmora_interface, mac, char[18], 0);
EXPECT_FIELD(kelmora_interface, ip4, char[17], 18);
EXPECT_FIELD(kelmora_interface, netmask, char[17], 35);
EXPECT_FIELD(kelmora_interface, ip6_list, kelmora_ip6_address *, is_64_bit ? 56 : 52);
EXPECT_FIELD(kelmora_interface, ip6_count, std::int32_t, is_64_bit ? 64 : 56);
EXPECT_FIELD(kelmora_interface, mtu, std::uint32_t, is_64_bit ? 68 : 60);
EXPECT_FIELD(kelmora_interface, running, std::uint8_t, is_64_bit ? 72 : 64);
static_assert(sizeof(kelmora_interface) == (is_64_bit ? 80 : 68));

EXPECT_FIELD(kelmora_wan, interfaceID, char[20], 0);
EXPECT_FIELD(kelmora_wan, mode, std::uint32_t, 20);
EXPECT_FIELD(kelmora_wan, address_mode_v6, std::uint32_t, 24);
EXPECT_FIELD(kelmora_wan, gateway, char[17], 28);
EXPECT_FIELD(kelmora_wan, gateway_v6, char[46], 45);
EXPECT_FIELD(kelmora_wan, dns_v4_automatic, std::uint8_t, 91);
EXPECT_FIELD(kelmora_wan, dns_v4_dns1, char[46], 92);
EXPECT_FIELD(kelmora_wan, dns_v4_dns2, char[46], 138);
EXPECT_FIELD(kelmora_wan, dns_v4_dns3, char[46], 184);
EXPECT_FIELD(kelmora_wan, dns_v6_automatic, std::uint8_t, 230);
EXPECT_FIELD(kelmora_wan, dns_v6_dns1, char[46], 231);
EXPECT_FIELD(kelmora_wan, dns_v6_dns2, char[46], 277);
EXPECT_FIELD(kelmora_wan, dns_v6_dns3, char[46], 323);
EXPECT_FIELD(kelmora_wan, clonedMac, char[18], 369);
EXPECT_FIELD(kelmora_wan, napt_enable, std::uint8_t, 387);
EXPECT_FIELD(kelmora_wan, vlan_enable, std::uint8_t, 388);
EXPECT_FIELD(kelmora_wan, prefix_enable, std::uint8_t, 389);
EXPECT_FIELD(kelmora_wan, omci_configured, std::uint8_t, 390);
EXPECT_FIELD(kelmora_wan, vlanID, std::uint16_t, 392);
EXPECT_FIELD(kelmora_wan, multicast_vlanID, std::uint16_t, 394);
EXPECT_FIELD(kelmora_wan, protocol, std::uint32_t, 396);
static_assert(sizeof(kelmora_wan) == 400);

EXPECT_FIELD(kelmora_pppoe, interfaceID, char[128], 0);
EXPECT_FIELD(kelmora_pppoe, username, char[130], 128);
EXPECT_FIELD(kelmora_pppoe, password, char[130], 258);
EXPECT_FIELD(kelmora_pppoe, service, char[41], 388);
EXPECT_FIELD(kelmora_pppoe, server, char[41], 429);
EXPECT_FIELD(kelmora_pppoe, mtu, std::uint32_t, 472);
static_assert(sizeof(kelmora_pppoe) == 476);

EXPECT_FIELD(kelmora_wan_detect, hasDHCP, std::uint32_t, 0);
EXPECT_FIELD(kelmora_wan_detect, hasPPPoE, std::uint32_t, 4);
EXPECT_FIELD(kelmora_wan_detect, hasStatic, std::uint32_t, 8);
static_assert(sizeof(kelmora_wan_detect) == 12);

EXPECT_FIELD(kelmora_wan_lan_list_entry, lan_id, char[10], 0);
EXPECT_FIELD(kelmora_wan_lan_list_entry, enabled, std::uint8_t, 10);
static_assert(sizeof(kelmora_wan_lan_list_entry) == 11);

EXPECT_FIELD(kelmora_wan_lan_list, lan_list, kelmora_wan_lan_list_entry[16], 0);
static_assert(sizeof(kelmora_wan_lan_list) == 176);

EXPECT_FIELD(kelmora_wan_service_type, service_other_video, std::uint8_t, 0);
EXPECT_FIELD(kelmora_wan_service_type, service_tr069, std::uint8_t, 1);
EXPECT_FIELD(kelmora_wan_service_type, service_internet, std::uint8_t, 2);
EXPECT_FIELD(kelmora_wan_service_type, service_voice, std::uint8_t, 3);
static_assert(sizeof(kelmora_wan_service_type) == 4);
