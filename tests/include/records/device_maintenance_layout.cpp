#include "records/device.h"

#include "layout.h"

EXPECT_FIELD(kelmora_action, actionID, std::uint32_t, 0);
static_assert(sizeof(kelmora_action) == 4);

EXPECT_FIELD(kelmora_upgrade_by_file, file, std::uint8_t[8], 0);
static_assert(sizeof(kelmora_upgrade_by_file) == 8);

EXPECT_FIELD(kelmora_factory_default, pressedTime, std::int32_t, 0);
static_assert(sizeof(kelmora_factory_default) == 4);

EXPECT_FIELD(kelmora_backup_restore, backup, std::uint8_t[8], 0);
static_assert(sizeof(kelmora_backup_restore) == 8);

EXPECT_FIELD(kelmora_change_to_firmware_version, change, std::uint8_t, 0);
EXPECT_FIELD(kelmora_change_to_firmware_version, version, char[32], 1);
static_assert(sizeof(kelmora_change_to_firmware_version) == 33);

EXPECT_FIELD(kelmora_custom_default_config, enabled, std::uint8_t, 0);
static_assert(sizeof(kelmora_custom_default_config) == 1);

EXPECT_FIELD(kelmora_daily_reboot, hour, std::int32_t, 0);
EXPECT_FIELD(kelmora_daily_reboot, minute, std::int32_t, 4);
EXPECT_FIELD(kelmora_daily_reboot, enable, std::uint8_t, 8);
EXPECT_FIELD(kelmora_daily_reboot, delay, std::uint8_t, 9);
static_assert(sizeof(kelmora_daily_reboot) == 12);

EXPECT_FIELD(kelmora_automatic_maintenance, enabled, std::uint8_t, 0);
EXPECT_FIELD(kelmora_automatic_maintenance, hour, std::uint8_t, 1);
EXPECT_FIELD(kelmora_automatic_maintenance, min, std::uint8_t, 2);
static_assert(sizeof(kelmora_automatic_maintenance) == 3);

EXPECT_FIELD(kelmora_datetime_timezone, id, std::uint32_t, 0);
EXPECT_FIELD(kelmora_datetime_timezone, region, const char *, is_64_bit ? 8 : 4);
EXPECT_FIELD(kelmora_datetime_timezone, next, kelmora_datetime_timezone *, is_64_bit ? 16 : 8);
static_assert(sizeof(kelmora_datetime_timezone) == (is_64_bit ? 24 : 12));

EXPECT_FIELD(kelmora_datetime, datetime, std::uint32_t, 0);
EXPECT_FIELD(kelmora_datetime, timezone, char[8], 4);
EXPECT_FIELD(kelmora_datetime, timezone_list, kelmora_datetime_timezone *, is_64_bit ? 16 : 12);
EXPECT_FIELD(kelmora_datetime, synced, std::uint8_t, is_64_bit ? 24 : 16);
EXPECT_FIELD(kelmora_datetime, dst_enabled, std::uint8_t, is_64_bit ? 25 : 17);
EXPECT_FIELD(kelmora_datetime, ntp_enabled, std::uint8_t, is_64_bit ? 26 : 18);
EXPECT_FIELD(kelmora_datetime, ntp_automatic, std::uint8_t, is_64_bit ? 27 : 19);
EXPECT_FIELD(kelmora_datetime, ntp_server1, char[255], is_64_bit ? 28 : 20);
EXPECT_FIELD(kelmora_datetime, ntp_server2, char[255], is_64_bit ? 283 : 275);
static_assert(sizeof(kelmora_datetime) == (is_64_bit ? 544 : 532));

EXPECT_FIELD(kelmora_syslog, enabled, std::uint8_t, 0);
EXPECT_FIELD(kelmora_syslog, server, char[255], 1);
EXPECT_FIELD(kelmora_syslog, port, std::int32_t, 256);
EXPECT_FIELD(kelmora_syslog, severity_level, std::uint32_t, 260);
static_assert(sizeof(kelmora_syslog) == 264);
