#include "records/qos.h"

#include "layout.h"

EXPECT_FIELD(kelmora_qos_classification, rule_name, char[64], 0);
EXPECT_FIELD(kelmora_qos_classification, order, std::uint32_t, 64);
EXPECT_FIELD(kelmora_qos_classification, precedence, std::uint32_t, 68);
EXPECT_FIELD(kelmora_qos_classification, cos_802_1p, std::uint32_t, 72);
EXPECT_FIELD(kelmora_qos_classification, dscp_remarking, std::uint8_t, 76);
EXPECT_FIELD(kelmora_qos_classification, mode, std::uint32_t, 80);
EXPECT_FIELD(kelmora_qos_classification, physical_port, std::uint32_t, 84);
EXPECT_FIELD(kelmora_qos_classification, port_dscp_pattern, std::uint8_t, 88);
EXPECT_FIELD(kelmora_qos_classification, ethertype_value, std::uint16_t, 90);
EXPECT_FIELD(kelmora_qos_classification, ip_version, std::uint32_t, 92);
EXPECT_FIELD(kelmora_qos_classification, protocol, std::uint32_t, 96);
EXPECT_FIELD(kelmora_qos_classification, ip_dscp_pattern, std::uint8_t, 100);
EXPECT_FIELD(kelmora_qos_classification, src_ip4, char[17], 101);
EXPECT_FIELD(kelmora_qos_classification, src_ip4_mask, char[17], 118);
EXPECT_FIELD(kelmora_qos_classification, src_ip6, char[46], 135);
EXPECT_FIELD(kelmora_qos_classification, src_ip6_prefix_length, std::uint8_t, 181);
EXPECT_FIELD(kelmora_qos_classification, dst_ip4, char[17], 182);
EXPECT_FIELD(kelmora_qos_classification, dst_ip4_mask, char[17], 199);
EXPECT_FIELD(kelmora_qos_classification, dst_ip6, char[46], 216);
EXPECT_FIELD(kelmora_qos_classification, dst_ip6_prefix_length, std::uint8_t, 262);
EXPECT_FIELD(kelmora_qos_classification, src_port_start, std::uint16_t, 264);
EXPECT_FIELD(kelmora_qos_classification, src_port_end, std::uint16_t, 266);
EXPECT_FIELD(kelmora_qos_classification, dst_port_start, std::uint16_t, 268);
EXPECT_FIELD(kelmora_qos_classification, dst_port_end, std::uint16_t, 270);
EXPECT_FIELD(kelmora_qos_classification, mac_src, char[18], 272);
EXPECT_FIELD(kelmora_qos_classification, mac_dst, char[18], 290);
static_assert(sizeof(kelmora_qos_classification) == 308);

EXPECT_FIELD(kelmora_qos_traffic_control, ip_version, std::uint32_t, 0);
EXPECT_FIELD(kelmora_qos_traffic_control, direction, std::uint32_t, 4);
EXPECT_FIELD(kelmora_qos_traffic_control, interfaceID, char[20], 8);
EXPECT_FIELD(kelmora_qos_traffic_control, protocol_type, std::uint32_t, 28);
EXPECT_FIELD(kelmora_qos_traffic_control, ip4_src_ip, char[17], 32);
EXPECT_FIELD(kelmora_qos_traffic_control, ip4_src_prefix_length, std::uint8_t, 49);
EXPECT_FIELD(kelmora_qos_traffic_control, ip4_dst_ip, char[17], 50);
EXPECT_FIELD(kelmora_qos_traffic_control, ip4_dst_prefix_length, std::uint8_t, 67);
EXPECT_FIELD(kelmora_qos_traffic_control, ip6_src_ip, char[46], 68);
EXPECT_FIELD(kelmora_qos_traffic_control, ip6_src_prefix_length, std::uint8_t, 114);
EXPECT_FIELD(kelmora_qos_traffic_control, ip6_dst_ip, char[46], 115);
EXPECT_FIELD(kelmora_qos_traffic_control, ip6_dst_prefix_length, std::uint8_t, 161);
EXPECT_FIELD(kelmora_qos_traffic_control, src_port, std::uint16_t, 162);
EXPECT_FIELD(kelmora_qos_traffic_control, dst_port, std::uint16_t, 164);
EXPECT_FIELD(kelmora_qos_traffic_control, limit_rate, std::uint32_t, 168);
static_assert(sizeof(kelmora_qos_traffic_control) == 172);
