#include "records/routing.h"

#include "layout.h"

EXPECT_FIELD(kelmora_igmp_proxy, allow_multicast, std::uint8_t, 0);
EXPECT_FIELD(kelmora_igmp_proxy, robust_count, std::uint32_t, 4);
EXPECT_FIELD(kelmora_igmp_proxy, last_member_query_count, std::uint32_t, 8);
EXPECT_FIELD(kelmora_igmp_proxy, query_interval, std::uint32_t, 12);
EXPECT_FIELD(kelmora_igmp_proxy, query_response_interval, std::uint32_t, 16);
EXPECT_FIELD(kelmora_igmp_proxy, group_leave_delay, std::uint32_t, 20);
static_assert(sizeof(kelmora_igmp_proxy) == 24);

EXPECT_FIELD(kelmora_igmp_mld_snooping, enabled, std::uint8_t, 0);
static_assert(sizeof(kelmora_igmp_mld_snooping) == 1);

EXPECT_FIELD(kelmora_mirroring, enabled, std::uint8_t, 0);
EXPECT_FIELD(kelmora_mirroring, mirrored_port, std::uint32_t, 4);
EXPECT_FIELD(kelmora_mirroring, mirror_port, std::uint32_t, 8);
static_assert(sizeof(kelmora_mirroring) == 12);

EXPECT_FIELD(kelmora_loop_back_detect_vlan, vlan_id, std::uint16_t, 0);
EXPECT_FIELD(kelmora_loop_back_detect_vlan, in_use, std::uint8_t, 2);
static_assert(sizeof(kelmora_loop_back_detect_vlan) == 4);

EXPECT_FIELD(kelmora_loop_back_detect, enabled, std::uint8_t, 0);
EXPECT_FIELD(kelmora_loop_back_detect, detection_interval, std::uint16_t, 2);
EXPECT_FIELD(kelmora_loop_back_detect, recovery_interval, std::uint16_t, 4);
EXPECT_FIELD(kelmora_loop_back_detect, frame_type, std::uint16_t, 6);
EXPECT_FIELD(kelmora_loop_back_detect, vlan_list, kelmora_loop_back_detect_vlan[16], 8);
static_assert(sizeof(kelmora_loop_back_detect) == 72);

EXPECT_FIELD(kelmora_loopback_detect_status, port, char[5], 0);
EXPECT_FIELD(kelmora_loopback_detect_status, loop_detect, std::uint8_t, 5);
static_assert(sizeof(kelmora_loopback_detect_status) == 6);
