#include "host/gateway/samples.h"

#include "records/qos.h"

namespace kelmora_host {

namespace {

constexpr kelmora_qos_classification telephony_class{
    .rule_name = "Telephony",
    .order = 1,
    .precedence = 1,
    .cos_802_1p = 5,
    .dscp_remarking = 46,
    .mode = 2,
    .physical_port = 0,
    .port_dscp_pattern = 0,
    .ethertype_value = 2048,
    .ip_version = 4,
    .protocol = 17,
    .ip_dscp_pattern = 46,
    .src_ip4 = "192.168.17.30",
    .src_ip4_mask = "255.255.255.255",
    .src_ip6 = "",
    .src_ip6_prefix_length = 0,
    .dst_ip4 = "203.0.113.0",
    .dst_ip4_mask = "255.255.255.0",
    .dst_ip6 = "",
    .dst_ip6_prefix_length = 0,
    .src_port_start = 5060,
    .src_port_end = 5061,
    .dst_port_start = 5060,
    .dst_port_end = 5061,
    .mac_src = "00:15:65:a2:4e:91",
    .mac_dst = "",
};

constexpr kelmora_qos_classification backup{
    .rule_name = "Nightly backup",
    .order = 2,
    .precedence = 4,
    .cos_802_1p = 1,
    .dscp_remarking = 8,
    .mode = 2,
    .physical_port = 1,
    .port_dscp_pattern = 0,
    .ethertype_value = 34525,
    .ip_version = 6,
    .protocol = 6,
    .ip_dscp_pattern = 0,
    .src_ip4 = "",
    .src_ip4_mask = "",
    .src_ip6 = "2001:db8:4c:1700::15",
    .src_ip6_prefix_length = 128,
    .dst_ip4 = "",
    .dst_ip4_mask = "",
    .dst_ip6 = "2001:db8:77::",
    .dst_ip6_prefix_length = 48,
    .src_port_start = 0,
    .src_port_end = 65535,
    .dst_port_start = 873,
    .dst_port_end = 873,
    .mac_src = "90:09:d0:1f:82:b6",
    .mac_dst = "",
};

constexpr kelmora_qos_traffic_control guests_limit{
    .ip_version = 4,
    .direction = 1,
    .interfaceID = "br1",
    .protocol_type = 0,
    .ip4_src_ip = "192.168.18.0",
    .ip4_src_prefix_length = 24,
    .ip4_dst_ip = "",
    .ip4_dst_prefix_length = 0,
    .ip6_src_ip = "",
    .ip6_src_prefix_length = 0,
    .ip6_dst_ip = "",
    .ip6_dst_prefix_length = 0,
    .src_port = 0,
    .dst_port = 0,
    .limit_rate = 20000,
};

constexpr kelmora_qos_traffic_control backup_limit{
    .ip_version = 6,
    .direction = 2,
    .interfaceID = "wan0",
    .protocol_type = 6,
    .ip4_src_ip = "",
    .ip4_src_prefix_length = 0,
    .ip4_dst_ip = "",
    .ip4_dst_prefix_length = 0,
    .ip6_src_ip = "2001:db8:4c:1700::15",
    .ip6_src_prefix_length = 128,
    .ip6_dst_ip = "2001:db8:77::",
    .ip6_dst_prefix_length = 48,
    .src_port = 0,
    .dst_port = 873,
    .limit_rate = 8000,
};

} // namespace

void add_qos_classification_samples(Gateway &gateway)
{
    gateway.add("qos_classification", "0", telephony_class);
    gateway.add("qos_classification", "1", backup);

    gateway.add("qos_traffic_control", "0", guests_limit);
    gateway.add("qos_traffic_control", "1", backup_limit);
}

} // namespace kelmora_host
