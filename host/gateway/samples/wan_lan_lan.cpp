#include "host/gateway/samples.h"

#include "records/wan_lan.h"

namespace kelmora_host {

namespace {

constexpr kelmora_lan home_lan{.interfaceID = "br0", .gateway = "192.168.17.1"};

constexpr kelmora_lan guest_lan{.interfaceID = "br1", .gateway = "192.168.18.1"};

kelmora_dhcp_server home_dhcp_server()
{
    return {
        .enabled = 1,
        .interface = "br0",
        .rangeStart = "192.168.17.100",
        .rangeEnd = "192.168.17.199",
        .dns_mode = 1,
        .dns1 = "192.168.17.1",
        .dns2 = "9.9.9.9",
        .leases = make_chain<kelmora_dhcp_server_lease>({
            {.mac = "5c:e9:31:0a:77:d2", .ip = "192.168.17.100", .next = nullptr},
            {.mac = "a4:83:e7:4c:19:60", .ip = "192.168.17.104", .next = nullptr},
        }),
        .dhcpLeaseTime = 86400,
    };
}

constexpr kelmora_dhcp_static_lease printer_lease{
    .description = "Printer in the study",
    .mac = "00:1b:a9:6d:e3:0f",
    .ip = "192.168.17.20",
};

constexpr kelmora_dhcp_static_lease storage_lease{
    .description = "Network storage",
    .mac = "90:09:d0:1f:82:b6",
    .ip = "192.168.17.21",
};

constexpr kelmora_dhcp_client notebook_client{
    .ip = "192.168.17.100",
    .hostname = "annas-notebook",
    .mac = "5c:e9:31:0a:77:d2",
    .aging_time = 71934,
};

constexpr kelmora_dhcp_client telephone{
    .ip = "192.168.17.104",
    .hostname = "pauls-phone",
    .mac = "a4:83:e7:4c:19:60",
    .aging_time = 40210,
};

constexpr kelmora_interface_statistics wired_statistics{
    .interfaceID = "eth0",
    .tx = 184233,
    .rx = 1920557,
    .unity_size = 1,
    .time = 357119,
};

constexpr kelmora_interface_statistics wireless_statistics{
    .interfaceID = "wlan1",
    .tx = 902114,
    .rx = 77310,
    .unity_size = 1,
    .time = 357119,
};

kelmora_connected_device notebook_device()
{
    return {
        .hostname = "annas-notebook",
        .ip = "192.168.17.100",
        .mac = "5c:e9:31:0a:77:d2",
        .network = "wlan1",
        .opMode = 2,
        .txRate = 866.5,
        .rxRate = 780.25,
        .txBytes = 48211,
        .rxBytes = 9034,
        .unitySize = 1,
        .time = 14466,
        .signalLevel = -52,
        .isStaticIP = 0,
        .isDMZ = 0,
        .ip6_list = make_chain<kelmora_ip6_address>({
            {.address = "2001:db8:4c:1700::64", .next = nullptr},
            {.address = "fe80::5ee9:31ff:fe0a:77d2", .next = nullptr},
        }),
        .ip6_count = 2,
        .frequency = 2,
    };
}

constexpr kelmora_connected_device storage_device{
    .hostname = "storage",
    .ip = "192.168.17.21",
    .mac = "90:09:d0:1f:82:b6",
    .network = "eth0",
    .opMode = 1,
    .txRate = 1000,
    .rxRate = 1000,
    .txBytes = 310877,
    .rxBytes = 1205530,
    .unitySize = 1,
    .time = 357002,
    .signalLevel = 0,
    .isStaticIP = 1,
    .isDMZ = 0,
    .ip6_list = nullptr,
    .ip6_count = 0,
    .frequency = 0,
};

constexpr kelmora_lan_port_status lan_ports{.status = "LAN1: 1000M full; LAN2: down; LAN3: 100M full; LAN4: down"};

kelmora_bridging bridge()
{
    return {
        .ageing_time = 300,
        .spanning_tree_802_1_d = 1,
        .mac_list = make_chain<kelmora_bridging_mac>({
            {.port = 1, .mac_addr = "02:1a:11:f0:3c:00", .is_local = 1, .ageing_time = "0.00", .next = nullptr},
            {.port = 1, .mac_addr = "90:09:d0:1f:82:b6", .is_local = 0, .ageing_time = "12.44", .next = nullptr},
            {.port = 5, .mac_addr = "5c:e9:31:0a:77:d2", .is_local = 0, .ageing_time = "3.71", .next = nullptr},
        }),
    };
}

} // namespace

void add_wan_lan_lan_samples(Gateway &gateway)
{
    gateway.add("lan", "br0", home_lan);
    gateway.add("lan", "br1", guest_lan);

    gateway.add("dhcp_server", "br0", home_dhcp_server());

    gateway.add("dhcp_static_lease", "0", printer_lease);
    gateway.add("dhcp_static_lease", "1", storage_lease);

    gateway.add("dhcp_client", "0", notebook_client);
    gateway.add("dhcp_client", "1", telephone);

    gateway.add("interface_statistics", "eth0", wired_statistics);
    gateway.add("interface_statistics", "wlan1", wireless_statistics);

    gateway.add("connected_device", "0", notebook_device());
    gateway.add("connected_device", "1", storage_device);

    gateway.add("lan_port_status", "0", lan_ports);

    gateway.add("bridging", "br0", bridge());
}

} // namespace kelmora_host
