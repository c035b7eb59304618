#include "frame/translator.h"
#include "records/wan_lan.h"

using namespace kelmora;

namespace {

void write(Encoder &out, const kelmora_pppoe &pppoe, const NodeId &id)
{
    out.text("id", id);
    out.text("interfaceID", pppoe.interfaceID);
    out.text("username", pppoe.username);
    out.text("password", pppoe.password);
    out.text("service", pppoe.service);
    out.text("server", pppoe.server);
    out.integer("mtu", pppoe.mtu);
}

void read(Decoder &in, kelmora_pppoe &pppoe)
{
    in.optional_text("interfaceID", pppoe.interfaceID);
    in.required_text("username"_key, pppoe.username);
    in.required_text("password"_key, pppoe.password);
    in.optional_text("service", pppoe.service);
    in.optional_text("server", pppoe.server);
    in.required_integer("mtu"_key, pppoe.mtu);
}

} // namespace

int pppoe_to_translator(kelmora_resource *head, char **out)
{
    return encode<write>(head, out, Shape::counting, Flags::compact);
}

int pppoe_from_translator(kelmora_resource *node, const char *text, kelmora_errorlist *errors)
{
    return decode<read>(node, text, errors);
}
