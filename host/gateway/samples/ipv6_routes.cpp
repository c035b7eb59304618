#include "host/gateway/samples.h"

#include "records/ipv6.h"

namespace kelmora_host {

namespace {

constexpr kelmora_ipv6_static_route ipv6_workshop_route{
    .enable = 1,
    .destination = "2001:db8:4c:1800::/64",
    .next_hop = "fe80::9209:d0ff:fe1f:82b6",
    .metric = 256,
    .interface = "br0",
};

constexpr kelmora_ipv6_static_route tunnel_route{
    .enable = 0,
    .destination = "2001:db8:f00::/48",
    .next_hop = "2001:db8:4c:1700::15",
    .metric = 1024,
    .interface = "br0",
};

kelmora_ipv6_static_route_list routing_table()
{
    return {make_chain<kelmora_ipv6_static_route_list_entry>({
        {.destination = "::/0",
         .next_hop = "fe80::1",
         .flags = "UG",
         .metric = 1024,
         .ref = 4,
         .use = 0,
         .interfaceID = "ppp0",
         .next = nullptr},
        {.destination = "2001:db8:4c:1700::/64",
         .next_hop = "::",
         .flags = "U",
         .metric = 256,
         .ref = 2,
         .use = 118,
         .interfaceID = "br0",
         .next = nullptr},
        {.destination = "2001:db8:4c:1800::/64",
         .next_hop = "fe80::9209:d0ff:fe1f:82b6",
         .flags = "UG",
         .metric = 256,
         .ref = 1,
         .use = 7,
         .interfaceID = "br0",
         .next = nullptr},
    })};
}

constexpr kelmora_neighbour_hosts notebook{
    .ip_addr = "2001:db8:4c:1700::64",
    .mac_addr = "5c:e9:31:0a:77:d2",
    .interfaceID = "br0",
    .nud = 2,
};

constexpr kelmora_neighbour_hosts storage{
    .ip_addr = "fe80::9209:d0ff:fe1f:82b6",
    .mac_addr = "90:09:d0:1f:82:b6",
    .interfaceID = "br0",
    .nud = 4,
};

constexpr kelmora_neighbour_hosts provider_host{
    .ip_addr = "fe80::1",
    .mac_addr = "c8:4b:d6:20:9e:41",
    .interfaceID = "ppp0",
    .nud = 64,
};

} // namespace

void add_ipv6_routes_samples(Gateway &gateway)
{
    gateway.add("ipv6_static_route", "0", ipv6_workshop_route);
    gateway.add("ipv6_static_route", "1", tunnel_route);

    gateway.add("ipv6_static_route_list", "0", routing_table());

    gateway.add("neighbour_hosts", "0", notebook);
    gateway.add("neighbour_hosts", "1", storage);
    gateway.add("neighbour_hosts", "2", provider_host);
}

} // namespace kelmora_host
