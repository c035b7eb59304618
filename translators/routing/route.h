#ifndef KELMORA_TRANSLATORS_ROUTING_ROUTE_H
#define KELMORA_TRANSLATORS_ROUTING_ROUTE_H

#include "frame/encoder.h"
#include "records/routing.h"

namespace kelmora {

/// Writes a route as the object "route".
inline void route_to_json(Encoder &out, const kelmora_route &route)
{
    out.object("route", [&](Encoder &entry) {
        entry.string("destination", route.destination);
        entry.string("net_mask", route.net_mask);
        entry.string("next_hop", route.next_hop);
        entry.integer("metric", route.metric);
        entry.string("interfaceID", route.interfaceID);
    });
}

} // namespace kelmora

#endif
