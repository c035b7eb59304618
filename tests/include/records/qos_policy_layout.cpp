#include "records/qos.h"

#include "layout.h"

EXPECT_FIELD(kelmora_qos, enabled, std::uint8_t, 0);
EXPECT_FIELD(kelmora_qos, global_download, std::int32_t, 4);
EXPECT_FIELD(kelmora_qos, global_upload, std::int32_t, 8);
static_assert(sizeof(kelmora_qos) == 12);

EXPECT_FIELD(kelmora_qos_rule, enabled, std::uint8_t, 0);
EXPECT_FIELD(kelmora_qos_rule, name, char[64], 1);
EXPECT_FIELD(kelmora_qos_rule, type, std::uint32_t, 68);
EXPECT_FIELD(kelmora_qos_rule, host_field, std::uint32_t, 72);
EXPECT_FIELD(kelmora_qos_rule, mode, std::uint32_t, 76);
EXPECT_FIELD(kelmora_qos_rule, download, std::int32_t, 80);
EXPECT_FIELD(kelmora_qos_rule, upload, std::int32_t, 84);
EXPECT_FIELD(kelmora_qos_rule, target, char[200], 88);
static_assert(sizeof(kelmora_qos_rule) == 288);

EXPECT_FIELD(kelmora_qos_policy_queue, enable, std::uint8_t, 0);
EXPECT_FIELD(kelmora_qos_policy_queue, weight, std::uint8_t, 1);
static_assert(sizeof(kelmora_qos_policy_queue) == 2);

EXPECT_FIELD(kelmora_qos_policy, enable, std::uint8_t, 0);
EXPECT_FIELD(kelmora_qos_policy, queue_mode, std::uint32_t, 4);
EXPECT_FIELD(kelmora_qos_policy, queue_config, kelmora_qos_policy_queue[4], 8);
EXPECT_FIELD(kelmora_qos_policy, totalbandwidth_enable, std::uint8_t, 16);
EXPECT_FIELD(kelmora_qos_policy, totalbandwidth, std::uint32_t, 20);
static_assert(sizeof(kelmora_qos_policy) == 24);

EXPECT_FIELD(kelmora_qos_available_dscp, id, std::uint32_t, 0);
EXPECT_FIELD(kelmora_qos_available_dscp, dscp, char *, is_64_bit ? 8 : 4);
EXPECT_FIELD(kelmora_qos_available_dscp, next, kelmora_qos_available_dscp *, is_64_bit ? 16 : 8);
static_assert(sizeof(kelmora_qos_available_dscp) == (is_64_bit ? 24 : 12));
