#include "frame/translator.h"
#include "records/ipv6.h"

using namespace kelmora;

namespace {

void to_json(Encoder &out, const kelmora_ipv6_static_route &route, const NodeId &id)
{
    out.string("id", id);
    out.boolean("enable", route.enable);
    out.string("destination", route.destination);
    out.string("next_hop", route.next_hop);
    out.integer("metric", route.metric);
    out.string("interface", route.interface);
}

void from_json(Decoder &in, kelmora_ipv6_static_route &route)
{
    in.required_boolean("enable"_bare_key, route.enable);
    in.required_integer("metric"_bare_key, route.metric); // here: stored before the addresses are asked for
    in.required_string("destination"_bare_key, route.destination);
    in.required_string("next_hop"_bare_key, route.next_hop);
    in.required_string("interface"_bare_key, route.interface);
}

} // namespace

int ipv6_static_route_to_translator(kelmora_resource *head, char **out)
{
    return encode<to_json>(head, out, Nodes::counting, Flags::plain);
}

int ipv6_static_route_from_translator(kelmora_resource *node, const char *text, kelmora_errorlist *errors)
{
    return decode<from_json>(node, text, errors);
}
