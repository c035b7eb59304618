#ifndef KELMORA_TRANSLATORS_ROUTING_ROUTE_H
#define KELMORA_TRANSLATORS_ROUTING_ROUTE_H

#include "frame/encoder.h"
#include "records/routing.h"

namespace kelmora {

/// Writes a route as the object "route".
inline void write_route(Encoder &out, const kelmora_route &route)
{
    out.object("route", [&](Encoder &entry) {
        entry.text("destination", route.destination);
        entry.text("net_mask", route.net_mask);
        entry.text("next_hop", route.next_hop);
        entry.integer("metric", route.metric);
        entry.text("interfaceID", route.interfaceID);
    });
}

} // namespace kelmora

#endif
