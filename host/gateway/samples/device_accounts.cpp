#include "host/gateway/samples.h"

#include "records/device.h"

namespace kelmora_host {

namespace {

constexpr kelmora_session admin_session{
    .username = "admin",
    .password = "nine quiet lighthouses",
    .token = "c1f2a6d08b7e4935af60b3d9e8127c54",
};

constexpr kelmora_session family_session{
    .username = "familie",
    .password = "apple tree 1987",
    .token = "58e0d3b4917f4c2ab6fd01c87e2395a1",
};

constexpr kelmora_user admin{
    .username = "admin",
    .password = "nine quiet lighthouses",
    .is_privileged = 1,
};

constexpr kelmora_user family{
    .username = "familie",
    .password = "apple tree 1987",
    .is_privileged = 0,
};

kelmora_limited_user_permissions family_permissions()
{
    return {.limited_user_permissions = make_chain<kelmora_limited_user_permissions_entry>({
                {.resource_name = "wireless", .resource_id = 0, .next = nullptr},
                {.resource_name = "status", .resource_id = 17, .next = nullptr},
                {.resource_name = "connected_device", .resource_id = 19, .next = nullptr},
            })};
}

constexpr kelmora_remote_web_access remote_web_access{
    .enabled = 1,
    .port = 8443,
    .enable_ip_range = 1,
    .rangeStart = "198.51.100.16",
    .rangeEnd = "198.51.100.31",
    .ipv6Enabled = 0,
    .pingWan = 1,
};

constexpr kelmora_telnet telnet{
    .enable = 0,
    .password = "three foxes in the hay",
};

} // namespace

void add_device_accounts_samples(Gateway &gateway)
{
    gateway.add("session", "0", admin_session);
    gateway.add("session", "1", family_session);

    gateway.add("user", "0", admin);
    gateway.add("user", "1", family);

    gateway.add("limited_user_permissions", "0", family_permissions());

    gateway.add("remote_web_access", "0", remote_web_access);

    gateway.add("telnet", "0", telnet);
}

} // namespace kelmora_host
