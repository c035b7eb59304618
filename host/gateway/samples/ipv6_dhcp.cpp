#include "host/gateway/samples.h"

#include "records/ipv6.h"

namespace kelmora_host {

namespace {

constexpr kelmora_ipv6_dhcp dhcp{.enabled = 1, .mode = 1};

kelmora_ipv6_dhcp_server home_ipv6_dhcp_server()
{
    return {
        .mode = 2,
        .ip_pool_range_start = "2001:db8:4c:1700::100",
        .ip_pool_range_end = "2001:db8:4c:1700::1ff",
        .prefix_length = 64,
        .valid_lifetime = 86400,
        .preffered_lifetime = 43200,
        .renew_time = 21600,
        .rebind_time = 34560,
        .client_duid = "01",
        .domains = make_chain<kelmora_ipv6_dhcp_server_domain>({
            {.domain = "home.arpa", .next = nullptr},
            {.domain = "nordlicht.example", .next = nullptr},
        }),
        .dns_servers = make_chain<kelmora_ipv6_dhcp_server_dns_server>({
            {.address = "fe80::1", .next = nullptr},
            {.address = "2620:fe::fe", .next = nullptr},
        }),
    };
}

constexpr kelmora_ipv6_dhcp_relay relay{.interfaceID = "wan0"};

constexpr kelmora_ipv6_dhcp_client ipv6_notebook_lease{
    .ip_address = "2001:db8:4c:1700::164",
    .duid = "00:01:00:01:2c:5e:90:1b:5c:e9:31:0a:77:d2",
    .aging_time = 71934,
};

constexpr kelmora_ipv6_dhcp_client ipv6_storage_lease{
    .ip_address = "2001:db8:4c:1700::121",
    .duid = "00:03:00:01:90:09:d0:1f:82:b6",
    .aging_time = 40210,
};

} // namespace

void add_ipv6_dhcp_samples(Gateway &gateway)
{
    gateway.add("ipv6_dhcp", "0", dhcp);
    gateway.add("ipv6_dhcp_server", "br0", home_ipv6_dhcp_server());
    gateway.add("ipv6_dhcp_relay", "0", relay);

    gateway.add("ipv6_dhcp_client", "0", ipv6_notebook_lease);
    gateway.add("ipv6_dhcp_client", "1", ipv6_storage_lease);
}

} // namespace kelmora_host
