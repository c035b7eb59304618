#include "frame/translator.h"
#include "records/ipv6.h"

using namespace kelmora;

namespace {

void write(Encoder &out, const kelmora_ipv6_static_route &route, const NodeId &id)
{
    out.text("id", id);
    out.boolean("enable", route.enable);
    out.text("destination", route.destination);
    out.text("next_hop", route.next_hop);
    out.integer("metric", route.metric);
    out.text("interface", route.interface);
}

void read(Decoder &in, kelmora_ipv6_static_route &route)
{
    in.required_boolean("enable"_bare_key, route.enable);
    in.required_integer("metric"_bare_key, route.metric); // here on purpose: stored before the addresses are asked for
    in.required_text("destination"_bare_key, route.destination);
    in.required_text("next_hop"_bare_key, route.next_hop);
    in.required_text("interface"_bare_key, route.interface);
}

} // namespace

int ipv6_static_route_to_translator(kelmora_resource *head, char **out)
{
    return encode<write>(head, out, Shape::counting, Flags::compact);
}

int ipv6_static_route_from_translator(kelmora_resource *node, const char *text, kelmora_errorlist *errors)
{
    return decode<read>(node, text, errors);
}
