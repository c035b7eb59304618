#include "host/gateway/samples.h"

#include "records/routing.h"

namespace kelmora_host {

namespace {

constexpr kelmora_static_routing workshop_route{
    .state = 1,
    .route = {.destination = "192.168.40.0",
              .net_mask = "255.255.255.0",
              .next_hop = "192.168.1.2",
              .metric = 10,
              .interfaceID = "br0"},
};

constexpr kelmora_static_routing office_route{
    .state = 0,
    .route = {.destination = "198.51.100.0",
              .net_mask = "255.255.255.0",
              .next_hop = "203.0.113.1",
              .metric = 20,
              .interfaceID = "wan0"},
};

constexpr kelmora_global_routing default_route{
    .route = {.destination = "0.0.0.0",
              .net_mask = "0.0.0.0",
              .next_hop = "203.0.113.1",
              .metric = 100,
              .interfaceID = "wan0"},
};

constexpr kelmora_global_routing home_route{
    .route = {.destination = "192.168.1.0",
              .net_mask = "255.255.255.0",
              .next_hop = "0.0.0.0",
              .metric = 0,
              .interfaceID = "br0"},
};

constexpr kelmora_global_routing workshop_table_route{.route = workshop_route.route};

constexpr kelmora_rip_enable rip{.enable = 0};

constexpr kelmora_rip_config home_rip{.interfaceID = "br0", .receive_mode = 2, .send_mode = 2};

constexpr kelmora_rip_config uplink_rip{.interfaceID = "wan0", .receive_mode = 3, .send_mode = 0};

} // namespace

void add_routing_routes_samples(Gateway &gateway)
{
    gateway.add("static_routing", "0", workshop_route);
    gateway.add("static_routing", "1", office_route);

    gateway.add("global_routing", "0", default_route);
    gateway.add("global_routing", "1", home_route);
    gateway.add("global_routing", "2", workshop_table_route);

    gateway.add("rip_enable", "0", rip);

    gateway.add("rip_config", "0", home_rip);
    gateway.add("rip_config", "1", uplink_rip);
}

} // namespace kelmora_host
