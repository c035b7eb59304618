#include "host/gateway/samples.h"

#include "records/routing.h"

namespace kelmora_host {

namespace {

constexpr kelmora_igmp_proxy igmp_proxy{
    .allow_multicast = 1,
    .robust_count = 2,
    .last_member_query_count = 2,
    .query_interval = 125,
    .query_response_interval = 100,
    .group_leave_delay = 10,
};

constexpr kelmora_igmp_mld_snooping snooping{.enabled = 1};

constexpr kelmora_mirroring mirroring{.enabled = 0, .mirrored_port = 1, .mirror_port = 4};

constexpr kelmora_loop_back_detect loop_detection{
    .enabled = 1,
    .detection_interval = 5,
    .recovery_interval = 300,
    .frame_type = 0xFFA,
    .vlan_list = {{.vlan_id = 7, .in_use = 1}, {.vlan_id = 8, .in_use = 1}, {.vlan_id = 40, .in_use = 1}},
};

constexpr kelmora_loopback_detect_status quiet_port{.port = "LAN1", .loop_detect = 0};

constexpr kelmora_loopback_detect_status looped_port{.port = "LAN3", .loop_detect = 1};

} // namespace

void add_routing_switching_samples(Gateway &gateway)
{
    gateway.add("igmp_proxy", "0", igmp_proxy);

    gateway.add("igmp_mld_snooping", "0", snooping);

    gateway.add("mirroring", "0", mirroring);

    gateway.add("loop_back_detect", "0", loop_detection);

    gateway.add("loopback_detect_status", "0", quiet_port);
    gateway.add("loopback_detect_status", "1", looped_port);
}

} // namespace kelmora_host
