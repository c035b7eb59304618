#include "records/firewall.h"

#include "layout.h"

EXPECT_FIELD(kelmora_iptables, ip_protocol, std::uint32_t, 0);
EXPECT_FIELD(kelmora_iptables, position, std::int32_t, 4);
EXPECT_FIELD(kelmora_iptables, chain, std::uint32_t, 8);
EXPECT_FIELD(kelmora_iptables, protocol, std::uint32_t, 12);
EXPECT_FIELD(kelmora_iptables, source_ip, char[46], 16);
EXPECT_FIELD(kelmora_iptables, source_mac, char[18], 62);
EXPECT_FIELD(kelmora_iptables, source_interface, char[6], 80);
EXPECT_FIELD(kelmora_iptables, source_port, std::int32_t, 88);
EXPECT_FIELD(kelmora_iptables, destination_ip, char[46], 92);
EXPECT_FIELD(kelmora_iptables, destination_mac, char[18], 138);
EXPECT_FIELD(kelmora_iptables, destination_interface, char[6], 156);
EXPECT_FIELD(kelmora_iptables, destination_port, std::int32_t, 164);
EXPECT_FIELD(kelmora_iptables, url, char[129], 168);
EXPECT_FIELD(kelmora_iptables, policy, std::uint32_t, 300);
static_assert(sizeof(kelmora_iptables) == 304);

EXPECT_FIELD(kelmora_firewall_alg, ftp_enabled, std::uint8_t, 0);
EXPECT_FIELD(kelmora_firewall_alg, tftp_enabled, std::uint8_t, 1);
EXPECT_FIELD(kelmora_firewall_alg, h323_enabled, std::uint8_t, 2);
EXPECT_FIELD(kelmora_firewall_alg, rtsp_enabled, std::uint8_t, 3);
EXPECT_FIELD(kelmora_firewall_alg, l2tp_enabled, std::uint8_t, 4);
EXPECT_FIELD(kelmora_firewall_alg, ip_sec_enabled, std::uint8_t, 5);
EXPECT_FIELD(kelmora_firewall_alg, sip_enabled, std::uint8_t, 6);
EXPECT_FIELD(kelmora_firewall_alg, pptp_enabled, std::uint8_t, 7);
static_assert(sizeof(kelmora_firewall_alg) == 8);

EXPECT_FIELD(kelmora_ddns, provider, std::uint32_t, 0);
EXPECT_FIELD(kelmora_ddns, hostname, char[35], 4);
EXPECT_FIELD(kelmora_ddns, interface, char[20], 39);
EXPECT_FIELD(kelmora_ddns, username, char[35], 59);
EXPECT_FIELD(kelmora_ddns, password, char[35], 94);
EXPECT_FIELD(kelmora_ddns, enabled, std::uint8_t, 129);
EXPECT_FIELD(kelmora_ddns, instance_num, std::uint32_t, 132);
EXPECT_FIELD(kelmora_ddns, service_port, std::uint16_t, 136);
EXPECT_FIELD(kelmora_ddns, status, std::uint32_t, 140);
static_assert(sizeof(kelmora_ddns) == 144);
