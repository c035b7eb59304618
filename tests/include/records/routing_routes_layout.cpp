#include "records/routing.h"

#include "layout.h"

EXPECT_FIELD(kelmora_route, destination, char[17], 0);
EXPECT_FIELD(kelmora_route, net_mask, char[17], 17);
EXPECT_FIELD(kelmora_route, next_hop, char[17], 34);
EXPECT_FIELD(kelmora_route, metric, std::uint16_t, 52);
EXPECT_FIELD(kelmora_route, interfaceID, char[20], 54);
static_assert(sizeof(kelmora_route) == 74);

EXPECT_FIELD(kelmora_static_routing, state, std::uint8_t, 0);
EXPECT_FIELD(kelmora_static_routing, route, kelmora_route, 2);
static_assert(sizeof(kelmora_static_routing) == 76);

EXPECT_FIELD(kelmora_global_routing, route, kelmora_route, 0);
static_assert(sizeof(kelmora_global_routing) == 74);

EXPECT_FIELD(kelmora_rip_enable, enable, std::uint8_t, 0);
static_assert(sizeof(kelmora_rip_enable) == 1);

EXPECT_FIELD(kelmora_rip_config, interfaceID, char[20], 0);
EXPECT_FIELD(kelmora_rip_config, receive_mode, std::uint32_t, 20);
EXPECT_FIELD(kelmora_rip_config, send_mode, std::uint32_t, 24);
static_assert(sizeof(kelmora_rip_config) == 28);
