#include "host/gateway/samples.h"

#include "records/wan_lan.h"

namespace kelmora_host {

namespace {

kelmora_interface uplink()
{
    return {
        .mac = "02:1a:11:f0:3c:10",
        .ip4 = "203.0.113.84",
        .netmask = "255.255.255.0",
        .ip6_list = make_chain<kelmora_ip6_address>({
            {.address = "2001:db8:40:1::84", .next = nullptr},
            {.address = "fe80::1a:11ff:fef0:3c10", .next = nullptr},
        }),
        .ip6_count = 2,
        .mtu = 1492,
        .running = 1,
    };
}

kelmora_interface home_bridge()
{
    return {
        .mac = "02:1a:11:f0:3c:00",
        .ip4 = "192.168.1.1",
        .netmask = "255.255.255.0",
        .ip6_list = make_chain<kelmora_ip6_address>({
            {.address = "2001:db8:40:100::1", .next = nullptr},
            {.address = "fd5a:2b7e:9c01::1", .next = nullptr},
            {.address = "fe80::1a:11ff:fef0:3c00", .next = nullptr},
        }),
        .ip6_count = 3,
        .mtu = 1500,
        .running = 1,
    };
}

constexpr kelmora_interface voice_uplink{
    .mac = "02:1a:11:f0:3c:11",
    .ip4 = "",
    .netmask = "",
    .ip6_list = nullptr,
    .ip6_count = 0,
    .mtu = 1500,
    .running = 0,
};

constexpr kelmora_wan internet{
    .interfaceID = "wan0",
    .mode = 2,
    .address_mode_v6 = 1,
    .gateway = "203.0.113.1",
    .gateway_v6 = "fe80::5eff:fe00:1",
    .dns_v4_automatic = 1,
    .dns_v4_dns1 = "203.0.113.53",
    .dns_v4_dns2 = "203.0.113.54",
    .dns_v4_dns3 = "",
    .dns_v6_automatic = 1,
    .dns_v6_dns1 = "2001:db8:53::1",
    .dns_v6_dns2 = "2001:db8:53::2",
    .dns_v6_dns3 = "",
    .clonedMac = "",
    .napt_enable = 1,
    .vlan_enable = 1,
    .prefix_enable = 1,
    .omci_configured = 0,
    .vlanID = 7,
    .multicast_vlanID = 8,
    .protocol = 2,
};

constexpr kelmora_wan telephony{
    .interfaceID = "wan1",
    .mode = 1,
    .address_mode_v6 = 0,
    .gateway = "",
    .gateway_v6 = "",
    .dns_v4_automatic = 0,
    .dns_v4_dns1 = "198.51.100.10",
    .dns_v4_dns2 = "198.51.100.11",
    .dns_v4_dns3 = "192.0.2.53",
    .dns_v6_automatic = 0,
    .dns_v6_dns1 = "",
    .dns_v6_dns2 = "",
    .dns_v6_dns3 = "",
    .clonedMac = "02:1a:11:f0:3c:77",
    .napt_enable = 0,
    .vlan_enable = 0,
    .prefix_enable = 0,
    .omci_configured = 1,
    .vlanID = 0,
    .multicast_vlanID = 0,
    .protocol = 1,
};

constexpr kelmora_pppoe pppoe{
    .interfaceID = "wan0",
    .username = "nordlicht4711@dsl.example",
    .password = "a lantern in the fog",
    .service = "internet",
    .server = "bras3.hafen",
    .mtu = 1492,
};

constexpr kelmora_wan_detect wan_detect{
    .hasDHCP = 0,
    .hasPPPoE = 1,
    .hasStatic = 0,
};

constexpr kelmora_wan_lan_list internet_ports{
    .lan_list =
        {
            {.lan_id = "eth0.1", .enabled = 1},
            {.lan_id = "eth0.2", .enabled = 1},
            {.lan_id = "", .enabled = 0},
            {.lan_id = "eth0.4", .enabled = 0},
            {.lan_id = "wlan0", .enabled = 1},
        },
};

constexpr kelmora_wan_lan_list telephony_ports{
    .lan_list = {{.lan_id = "eth0.4", .enabled = 1}},
};

constexpr kelmora_wan_service_type internet_services{
    .service_other_video = 1,
    .service_tr069 = 1,
    .service_internet = 1,
    .service_voice = 0,
};

constexpr kelmora_wan_service_type telephony_services{
    .service_other_video = 0,
    .service_tr069 = 0,
    .service_internet = 0,
    .service_voice = 1,
};

} // namespace

void add_wan_lan_wan_samples(Gateway &gateway)
{
    gateway.add("interface", "wan0", uplink());
    gateway.add("interface", "br0", home_bridge());
    gateway.add("interface", "wan1", voice_uplink);

    gateway.add("wan", "wan0", internet);
    gateway.add("wan", "wan1", telephony);

    gateway.add("pppoe", "wan0", pppoe);

    gateway.add("wan_detect", "0", wan_detect);

    gateway.add("wan_lan_list", "wan0", internet_ports);
    gateway.add("wan_lan_list", "wan1", telephony_ports);

    gateway.add("wan_service_type", "wan0", internet_services);
    gateway.add("wan_service_type", "wan1", telephony_services);
}

} // namespace kelmora_host
