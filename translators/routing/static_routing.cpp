#include "frame/translator.h"
#include "records/routing.h"
#include "translators/routing/route.h"

using namespace kelmora;

namespace {

void to_json(Encoder &out, const kelmora_static_routing &routing, const NodeId &id)
{
    out.string("id", id);
    out.boolean("state", routing.state);
    route_to_json(out, routing.route);
}

void from_json(Decoder &in, kelmora_static_routing &routing)
{
    in.required_boolean("state"_key, routing.state);
    const Decoder route = in.required(key<"route", "route", "route fields not found">());
    route.required_string("route.destination"_key, routing.route.destination);
    route.required_string("route.net_mask"_key, routing.route.net_mask);
    route.required_string("route.next_hop"_key, routing.route.next_hop);
    route.required_integer("route.metric"_key, routing.route.metric);
    route.required_string("route.interfaceID"_key, routing.route.interfaceID);
}

} // namespace

int static_routing_to_translator(kelmora_resource *head, char **out)
{
    return encode<to_json>(head, out, Nodes::counting, Flags::plain);
}

int static_routing_from_translator(kelmora_resource *node, const char *text, kelmora_errorlist *errors)
{
    return decode<from_json>(node, text, errors);
}
