#include "host/gateway/samples.h"

#include "records/pon.h"

namespace kelmora_host {

namespace {

constexpr kelmora_pon_settings settings{
    .mode = "GPON",
    .oam_model_id = "K20",
    .oam_vendor_id = "KELMORA",
    .onu_id_mac = "021a11f03c10",
    .oam_hardware_version = "rev C",
    .omci_model_id = "K20 home gateway",
    .omci_vendor_id = "KLMR",
    .serial_number = "KLMR1F03C10A",
    .omci_hardware_version = "rev C",
    .olt_profile = 2,
    .loid = "48113200",
    .loid_password = "grey heron",
    .ploam_password = "0123456789",
};

constexpr kelmora_pon_stats stats{
    .throughput_tx = 1840,
    .throughput_rx = 96200,
    .pps_tx = 640,
    .pps_rx = 8120,
};

constexpr kelmora_pon_nodes first_unit{.ponOnuId = 1, .model = "K20 home gateway", .gpon_provisioning_state = 5};
constexpr kelmora_pon_nodes second_unit{.ponOnuId = 2, .model = "K10 bridge", .gpon_provisioning_state = 2};

constexpr kelmora_pon_counters counters{
    .tx_bytes = 518220411,
    .rx_bytes = 3918220117,
    .tx_packets = 2110442,
    .rx_packets = 3920118,
    .tx_unicast_packets = 2098110,
    .rx_unicast_packets = 3821904,
    .tx_multicast_packets = 11820,
    .rx_multicast_packets = 96102,
    .tx_broadcast_packets = 512,
    .rx_broadcast_packets = 2112,
    .tx_pause_packets = 0,
    .rx_pause_packets = 3,
    .fec_errors = 17,
    .hec_errors = 1,
    .dropped_packets = 42,
};

constexpr kelmora_gpon_status status{.onu_state = 5, .onu_id = 12, .onu_state_desc = "Operation"};

constexpr kelmora_gem_port_stats upstream{.pkt_count = 2098110, .gemport_id = 1024, .gemport_direction = 1};
constexpr kelmora_gem_port_stats downstream{.pkt_count = 3821904, .gemport_id = 1024, .gemport_direction = 2};

constexpr kelmora_pon_status module{
    .bias_current = 14.25F,
    .part_number = "OM-2488-C",
    .rx_power = -17.5F,
    .temperature = 43.5F,
    .vendor_name = "Lumenwerk",
    .tx_power = 2.25F,
    .voltage = 3.25F,
    .current_mode = "GPON",
};

constexpr kelmora_epon_llid_status link{.llid_id = 1, .llid_id_status = 3, .llid_id_status_desc = "Registered"};

} // namespace

void add_pon_samples(Gateway &gateway)
{
    gateway.add("pon_settings", "pon0", settings);
    gateway.add("pon_stats", "pon0", stats);
    gateway.add("pon_nodes", "1", first_unit);
    gateway.add("pon_nodes", "2", second_unit);
    gateway.add("pon_counters", "pon0", counters);
    gateway.add("gpon_status", "pon0", status);
    gateway.add("gem_port_stats", "1024/up", upstream);
    gateway.add("gem_port_stats", "1024/down", downstream);
    gateway.add("pon_status", "pon0", module);
    gateway.add("epon_llid_status", "1", link);
}

} // namespace kelmora_host
