#include "frame/translator.h"
#include "records/ipv6.h"

using namespace kelmora;

namespace {

void to_json(Encoder &out, const kelmora_ipv6_static_route_list &routes, const NodeId &id)
{
    out.string("id", id);
    out.array("ipv6_static_route_list", [&](ArrayEncoder &list) {
        for (const auto &route : chain(routes.ipv6_static_route_list)) {
            list.object([&](Encoder &entry) {
                entry.string("destination", route.destination);
                entry.string("next_hop", route.next_hop);
                entry.string("flags", route.flags);
                entry.integer("metric", route.metric);
                entry.integer("ref", route.ref);
                entry.integer("use", route.use);
                entry.string("interfaceID", route.interfaceID);
            });
        }
    });
}

} // namespace

int ipv6_static_route_list_to_translator(kelmora_resource *head, char **out)
{
    return encode<to_json>(head, out, Nodes::walking_if_any, Flags::plain);
}

// The routing table is the system's: read-only.
int ipv6_static_route_list_from_translator(kelmora_resource *, const char *, kelmora_errorlist *) { return 1; }
