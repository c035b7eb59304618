#include "records/pon.h"

#include "layout.h"

EXPECT_FIELD(kelmora_pon_settings, mode, char[5], 0);
EXPECT_FIELD(kelmora_pon_settings, oam_model_id, char[5], 5);
EXPECT_FIELD(kelmora_pon_settings, oam_vendor_id, char[17], 10);
EXPECT_FIELD(kelmora_pon_settings, onu_id_mac, char[13], 27);
EXPECT_FIELD(kelmora_pon_settings, oam_hardware_version, char[32], 40);
EXPECT_FIELD(kelmora_pon_settings, omci_model_id, char[64], 72);
EXPECT_FIELD(kelmora_pon_settings, omci_vendor_id, char[5], 136);
EXPECT_FIELD(kelmora_pon_settings, serial_number, char[13], 141);
EXPECT_FIELD(kelmora_pon_settings, omci_hardware_version, char[32], 154);
EXPECT_FIELD(kelmora_pon_settings, olt_profile, std::uint8_t, 186);
EXPECT_FIELD(kelmora_pon_settings, loid, char[30], 187);
EXPECT_FIELD(kelmora_pon_settings, loid_password, char[37], 217);
EXPECT_FIELD(kelmora_pon_settings, ploam_password, char[76], 254);
static_assert(sizeof(kelmora_pon_settings) == 330);

EXPECT_FIELD(kelmora_pon_stats, throughput_tx, std::uint32_t, 0);
EXPECT_FIELD(kelmora_pon_stats, throughput_rx, std::uint32_t, 4);
EXPECT_FIELD(kelmora_pon_stats, pps_tx, std::uint32_t, 8);
EXPECT_FIELD(kelmora_pon_stats, pps_rx, std::uint32_t, 12);
static_assert(sizeof(kelmora_pon_stats) == 16);

EXPECT_FIELD(kelmora_pon_nodes, ponOnuId, std::uint8_t, 0);
EXPECT_FIELD(kelmora_pon_nodes, model, char[128], 1);
EXPECT_FIELD(kelmora_pon_nodes, gpon_provisioning_state, std::uint8_t, 129);
static_assert(sizeof(kelmora_pon_nodes) == 130);

EXPECT_FIELD(kelmora_pon_counters, tx_bytes, std::uint32_t, 0);
EXPECT_FIELD(kelmora_pon_counters, rx_bytes, std::uint32_t, 4);
EXPECT_FIELD(kelmora_pon_counters, tx_packets, std::uint32_t, 8);
EXPECT_FIELD(kelmora_pon_counters, rx_packets, std::uint32_t, 12);
EXPECT_FIELD(kelmora_pon_counters, tx_unicast_packets, std::uint32_t, 16);
EXPECT_FIELD(kelmora_pon_counters, rx_unicast_packets, std::uint32_t, 20);
EXPECT_FIELD(kelmora_pon_counters, tx_multicast_packets, std::uint32_t, 24);
EXPECT_FIELD(kelmora_pon_counters, rx_multicast_packets, std::uint32_t, 28);
EXPECT_FIELD(kelmora_pon_counters, tx_broadcast_packets, std::uint32_t, 32);
EXPECT_FIELD(kelmora_pon_counters, rx_broadcast_packets, std::uint32_t, 36);
EXPECT_FIELD(kelmora_pon_counters, tx_pause_packets, std::uint32_t, 40);
EXPECT_FIELD(kelmora_pon_counters, rx_pause_packets, std::uint32_t, 44);
EXPECT_FIELD(kelmora_pon_counters, fec_errors, std::uint32_t, 48);
EXPECT_FIELD(kelmora_pon_counters, hec_errors, std::uint32_t, 52);
EXPECT_FIELD(kelmora_pon_counters, dropped_packets, std::uint32_t, 56);
static_assert(sizeof(kelmora_pon_counters) == 60);

EXPECT_FIELD(kelmora_gpon_status, onu_state, std::uint32_t, 0);
EXPECT_FIELD(kelmora_gpon_status, onu_id, std::uint8_t, 4);
EXPECT_FIELD(kelmora_gpon_status, onu_state_desc, char[20], 5);
static_assert(sizeof(kelmora_gpon_status) == 28);

EXPECT_FIELD(kelmora_gem_port_stats, pkt_count, std::uint32_t, 0);
EXPECT_FIELD(kelmora_gem_port_stats, gemport_id, std::uint32_t, 4);
EXPECT_FIELD(kelmora_gem_port_stats, gemport_direction, std::uint32_t, 8);
static_assert(sizeof(kelmora_gem_port_stats) == 12);

EXPECT_FIELD(kelmora_pon_status, bias_current, float, 0);
EXPECT_FIELD(kelmora_pon_status, part_number, char[64], 4);
EXPECT_FIELD(kelmora_pon_status, rx_power, float, 68);
EXPECT_FIELD(kelmora_pon_status, temperature, float, 72);
EXPECT_FIELD(kelmora_pon_status, vendor_name, char[64], 76);
EXPECT_FIELD(kelmora_pon_status, tx_power, float, 140);
EXPECT_FIELD(kelmora_pon_status, voltage, float, 144);
EXPECT_FIELD(kelmora_pon_status, current_mode, char[5], 148);
static_assert(sizeof(kelmora_pon_status) == 156);

EXPECT_FIELD(kelmora_epon_llid_status, llid_id, std::uint16_t, 0);
EXPECT_FIELD(kelmora_epon_llid_status, llid_id_status, std::uint16_t, 2);
EXPECT_FIELD(kelmora_epon_llid_status, llid_id_status_desc, char[128], 4);
static_assert(sizeof(kelmora_epon_llid_status) == 132);
