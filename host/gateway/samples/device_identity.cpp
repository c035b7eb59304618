#include "host/gateway/samples.h"

#include "records/device.h"

namespace kelmora_host {

namespace {

constexpr kelmora_device gateway_in_the_hall{
    .model = "KG-2400 AX",
    .uptime = 1209632,
    .fw_version = "4.2.1-b0318",
    .alias = "Diele",
    .show_wizard = 0,
    .login_enable = 1,
    .leds = 1,
    .is_manageable = 1,
};

constexpr kelmora_status online{
    .wan_cable = 1,
    .has_internet = 1,
    .tavoline_connected = 1,
    .firmware_update = 0,
    .wps_status = 2,
};

constexpr kelmora_system switches{
    .upnp = 1,
    .sip_alg = 0,
    .upnp_wan_if = "ppp0",
    .operationMode = 1,
    .dmz_enabled = 0,
    .dmz_ip4 = "192.168.10.40",
    .ipv6_enabled = 1,
    .limited_user_enabled = 1,
};

constexpr kelmora_mp_info information{
    .info = "Board KG-2400 rev. C, calibrated 2023-11-06, line 4",
    .password = "brass kettle no. 9",
};

constexpr kelmora_limits table_sizes{
    .port_redirect = 32,
    .qos_rules = 16,
    .static_leases = 64,
    .wifi_limits = nullptr,
    .filter_ip = 20,
    .filter_mac = 20,
    .filter_port = 20,
    .filter_url = 40,
};

} // namespace

void add_device_identity_samples(Gateway &gateway)
{
    gateway.add("device", "0", gateway_in_the_hall);
    gateway.add("status", "0", online);
    gateway.add("system", "0", switches);
    gateway.add("mp_info", "0", information);

    kelmora_limits limits = table_sizes;
    limits.wifi_limits = make_chain<kelmora_limits_wifi_limit>({
        {.radio_id = "radio0", .value = 32, .next = nullptr},
        {.radio_id = "radio1", .value = 64, .next = nullptr},
    });
    gateway.add("limits", "0", limits);
}

} // namespace kelmora_host
