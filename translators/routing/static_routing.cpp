#include "frame/translator.h"
#include "records/routing.h"
#include "translators/routing/route.h"

using namespace kelmora;

namespace {

void write(Encoder &out, const kelmora_static_routing &routing, const NodeId &id)
{
    out.text("id", id);
    out.boolean("state", routing.state);
    write_route(out, routing.route);
}

void read(Decoder &in, kelmora_static_routing &routing)
{
    in.required_boolean("state"_key, routing.state);
    Decoder route = in.required(key<"route", "route", "route fields not found">());
    route.required_text(key<"destination", "route.destination">(), routing.route.destination);
    route.required_text(key<"net_mask", "route.net_mask">(), routing.route.net_mask);
    route.required_text(key<"next_hop", "route.next_hop">(), routing.route.next_hop);
    route.required_integer(key<"metric", "route.metric">(), routing.route.metric);
    route.required_text(key<"interfaceID", "route.interfaceID">(), routing.route.interfaceID);
}

} // namespace

int static_routing_to_translator(kelmora_resource *head, char **out)
{
    return encode<write>(head, out, Shape::counting, Flags::compact);
}

int static_routing_from_translator(kelmora_resource *node, const char *text, kelmora_errorlist *errors)
{
    return decode<read>(node, text, errors);
}
