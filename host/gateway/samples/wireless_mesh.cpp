#include "host/gateway/samples.h"

#include "records/wireless.h"

namespace kelmora_host {

namespace {

kelmora_wlan_access_control home_access()
{
    return {
        .mode = 2,
        .mac_list = make_chain<kelmora_wlan_access_control_mac>({
            {.mac = "5c:e9:31:0a:77:d2", .next = nullptr},
            {.mac = "a4:83:e7:4c:19:60", .next = nullptr},
        }),
    };
}

constexpr kelmora_wlan_access_control open_access{.mode = 0, .mac_list = nullptr};

/// A repeater upstairs, which another one hangs on, and one in the garage that is off.
kelmora_easymesh_neighbor *repeaters()
{
    return make_chain<kelmora_easymesh_neighbor>({
        {
            .name = "Upstairs",
            .model = "KM-R2",
            .is_online = 1,
            .ip = "192.168.17.2",
            .mac = "02:1a:11:f0:4d:10",
            .rssi = -58,
            .backhaul = 2,
            .neighbors = make_chain<kelmora_easymesh_neighbor>({{
                .name = "Attic",
                .model = "KM-R1",
                .is_online = 1,
                .ip = "192.168.17.3",
                .mac = "02:1a:11:f0:4d:20",
                .rssi = -71,
                .backhaul = 1,
                .neighbors = nullptr,
                .next = nullptr,
            }}),
            .next = nullptr,
        },
        {
            .name = "Garage",
            .model = "KM-R1",
            .is_online = 0,
            .ip = "",
            .mac = "02:1a:11:f0:4d:30",
            .rssi = 0,
            .backhaul = 0,
            .neighbors = nullptr,
            .next = nullptr,
        },
    });
}

kelmora_easymesh home_mesh()
{
    return {
        .enabled = 1,
        .controllerIp = "192.168.17.1",
        .backhaul_mac = "02:1a:11:f0:3c:02",
        .backhaul_rssi = -58,
        .type = 1,
        .backhaul = 2,
        .neighbors = repeaters(),
        .syncing = 0,
    };
}

} // namespace

void add_wireless_mesh_samples(Gateway &gateway)
{
    gateway.add("wlan_access_control", "wlan0", home_access());
    gateway.add("wlan_access_control", "wlan1", open_access);

    gateway.add("easymesh", "0", home_mesh());
}

} // namespace kelmora_host
