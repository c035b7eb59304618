#include "records/wan_lan.h"

#include "layout.h"

EXPECT_FIELD(kelmora_lan, interfaceID, char[128], 0);
EXPECT_FIELD(kelmora_lan, gateway, char[17], 128);
static_assert(sizeof(kelmora_lan) == 145);

EXPECT_FIELD(kelmora_dhcp_server_lease, mac, char[18], 0);
EXPECT_FIELD(kelmora_dhcp_server_lease, ip, char[17], 18);
EXPECT_FIELD(kelmora_dhcp_server_lease, next, kelmora_dhcp_server_lease *, is_64_bit ? 40 : 36);
static_assert(sizeof(kelmora_dhcp_server_lease) == (is_64_bit ? 48 : 40));

EXPECT_FIELD(kelmora_dhcp_server, enabled, std::uint8_t, 0);
EXPECT_FIELD(kelmora_dhcp_server, interface, char[128], 1);
EXPECT_FIELD(kelmora_dhcp_server, rangeStart, char[17], 129);
EXPECT_FIELD(kelmora_dhcp_server, rangeEnd, char[17], 146);
EXPECT_FIELD(kelmora_dhcp_server, dns_mode, std::uint32_t, 164);
EXPECT_FIELD(kelmora_dhcp_server, dns1, char[17], 168);
EXPECT_FIELD(kelmora_dhcp_server, dns2, char[17], 185);
EXPECT_FIELD(kelmora_dhcp_server, leases, kelmora_dhcp_server_lease *, is_64_bit ? 208 : 204);
EXPECT_FIELD(kelmora_dhcp_server, dhcpLeaseTime, std::int32_t, is_64_bit ? 216 : 208);
static_assert(sizeof(kelmora_dhcp_server) == (is_64_bit ? 224 : 212));

EXPECT_FIELD(kelmora_dhcp_static_lease, description, char[33], 0);
EXPECT_FIELD(kelmora_dhcp_static_lease, mac, char[18], 33);
EXPECT_FIELD(kelmora_dhcp_static_lease, ip, char[17], 51);
static_assert(sizeof(kelmora_dhcp_static_lease) == 68);

EXPECT_FIELD(kelmora_dhcp_client, ip, char[17], 0);
EXPECT_FIELD(kelmora_dhcp_client, hostname, char[80], 17);
EXPECT_FIELD(kelmora_dhcp_client, mac, char[18], 97);
EXPECT_FIELD(kelmora_dhcp_client, aging_time, std::uint32_t, 116);
static_assert(sizeof(kelmora_dhcp_client) == 120);

EXPECT_FIELD(kelmora_connected_device, hostname, char[255], 0);
EXPECT_FIELD(kelmora_connected_device, ip, char[17], 255);
EXPECT_FIELD(kelmora_connected_device, mac, char[18], 272);
EXPECT_FIELD(kelmora_connected_device, network, char[128], 290);
EXPECT_FIELD(kelmora_connected_device, opMode, std::uint32_t, 420);
EXPECT_FIELD(kelmora_connected_device, txRate, double, 424);
EXPECT_FIELD(kelmora_connected_device, rxRate, double, 432);
EXPECT_FIELD(kelmora_connected_device, txBytes, std::uint32_t, 440);
EXPECT_FIELD(kelmora_connected_device, rxBytes, std::uint32_t, 444);
EXPECT_FIELD(kelmora_connected_device, unitySize, std::int32_t, 448);
EXPECT_FIELD(kelmora_connected_device, time, std::uint32_t, 452);
EXPECT_FIELD(kelmora_connected_device, signalLevel, std::int32_t, 456);
EXPECT_FIELD(kelmora_connected_device, isStaticIP, std::uint32_t, 460);
EXPECT_FIELD(kelmora_connected_device, isDMZ, std::uint32_t, 464);
EXPECT_FIELD(kelmora_connected_device, ip6_list, kelmora_ip6_address *, is_64_bit ? 472 : 468);
EXPECT_FIELD(kelmora_connected_device, ip6_count, std::int32_t, is_64_bit ? 480 : 472);
EXPECT_FIELD(kelmora_connected_device, frequency, std::uint32_t, is_64_bit ? 484 : 476);
static_assert(sizeof(kelmora_connected_device) == (is_64_bit ? 488 : 480));

EXPECT_FIELD(kelmora_interface_statistics, interfaceID, char[128], 0);
EXPECT_FIELD(kelmora_interface_statistics, tx, std::uint32_t, 128);
EXPECT_FIELD(kelmora_interface_statistics, rx, std::uint32_t, 132);
EXPECT_FIELD(kelmora_interface_statistics, unity_size, std::int32_t, 136);
EXPECT_FIELD(kelmora_interface_statistics, time, std::uint32_t, 140);
static_assert(sizeof(kelmora_interface_statistics) == 144);

EXPECT_FIELD(kelmora_lan_port_status, status, char[256], 0);
static_assert(sizeof(kelmora_lan_port_status) == 256);

EXPECT_FIELD(kelmora_bridging_mac, port, std::uint16_t, 0);
EXPECT_FIELD(kelmora_bridging_mac, mac_addr, char[18], 2);
EXPECT_FIELD(kelmora_bridging_mac, is_local, std::uint8_t, 20);
EXPECT_FIELD(kelmora_bridging_mac, ageing_time, char[10], 21);
EXPECT_FIELD(kelmora_bridging_mac, next, kelmora_bridging_mac *, 32);
static_assert(sizeof(kelmora_bridging_mac) == (is_64_bit ? 40 : 36));

EXPECT_FIELD(kelmora_bridging, ageing_time, std::uint32_t, 0);
EXPECT_FIELD(kelmora_bridging, spanning_tree_802_1_d, std::uint8_t, 4);
EXPECT_FIELD(kelmora_bridging, mac_list, kelmora_bridging_mac *, 8);
static_assert(sizeof(kelmora_bridging) == (is_64_bit ? 16 : 12));
