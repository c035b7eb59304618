#include "records/device.h"

#include "layout.h"

EXPECT_FIELD(kelmora_session, username, char[34], 0);
EXPECT_FIELD(kelmora_session, password, char[34], 34);
EXPECT_FIELD(kelmora_session, token, char[130], 68);
static_assert(sizeof(kelmora_session) == 198);

EXPECT_FIELD(kelmora_user, username, char[33], 0);
EXPECT_FIELD(kelmora_user, password, char[33], 33);
EXPECT_FIELD(kelmora_user, is_privileged, std::uint8_t, 66);
static_assert(sizeof(kelmora_user) == 67);

using PermissionsEntry = kelmora_limited_user_permissions_entry;
EXPECT_FIELD(PermissionsEntry, resource_name, const char *, 0);
EXPECT_FIELD(PermissionsEntry, resource_id, std::uint32_t, is_64_bit ? 8 : 4);
EXPECT_FIELD(PermissionsEntry, next, PermissionsEntry *, is_64_bit ? 16 : 8);
static_assert(sizeof(PermissionsEntry) == (is_64_bit ? 24 : 12));

EXPECT_FIELD(kelmora_limited_user_permissions, limited_user_permissions, PermissionsEntry *, 0);
static_assert(sizeof(kelmora_limited_user_permissions) == (is_64_bit ? 8 : 4));

EXPECT_FIELD(kelmora_remote_web_access, enabled, std::uint8_t, 0);
EXPECT_FIELD(kelmora_remote_web_access, port, std::uint32_t, 4);
EXPECT_FIELD(kelmora_remote_web_access, enable_ip_range, std::uint8_t, 8);
EXPECT_FIELD(kelmora_remote_web_access, rangeStart, char[17], 9);
EXPECT_FIELD(kelmora_remote_web_access, rangeEnd, char[17], 26);
EXPECT_FIELD(kelmora_remote_web_access, ipv6Enabled, std::uint8_t, 43);
EXPECT_FIELD(kelmora_remote_web_access, pingWan, std::uint8_t, 44);
static_assert(sizeof(kelmora_remote_web_access) == 48);

EXPECT_FIELD(kelmora_telnet, enable, std::uint8_t, 0);
EXPECT_FIELD(kelmora_telnet, password, char[48], 1);
static_assert(sizeof(kelmora_telnet) == 49);
