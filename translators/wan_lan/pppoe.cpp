#include "frame/translator.h"
#include "records/wan_lan.h"

using namespace kelmora;

namespace {

void to_json(Encoder &out, const kelmora_pppoe &pppoe, const NodeId &id)
{
    out.string("id", id);
    out.string("interfaceID", pppoe.interfaceID);
    out.string("username", pppoe.username);
    out.string("password", pppoe.password);
    out.string("service", pppoe.service);
    out.string("server", pppoe.server);
    out.integer("mtu", pppoe.mtu);
}

void from_json(Decoder &in, kelmora_pppoe &pppoe)
{
    in.optional_string("interfaceID", pppoe.interfaceID);
    in.required_string("username"_key, pppoe.username);
    in.required_string("password"_key, pppoe.password);
    in.optional_string("service", pppoe.service);
    in.optional_string("server", pppoe.server);
    in.required_integer("mtu"_key, pppoe.mtu);
}

} // namespace

int pppoe_to_translator(kelmora_resource *head, char **out)
{
    return encode<to_json>(head, out, Nodes::counting, Flags::plain);
}

int pppoe_from_translator(kelmora_resource *node, const char *text, kelmora_errorlist *errors)
{
    return decode<from_json>(node, text, errors);
}
