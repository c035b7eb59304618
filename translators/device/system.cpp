#include "frame/translator.h"
#include "records/device.h"

using namespace kelmora;

namespace {

void to_json(Encoder &out, const kelmora_system &system, const NodeId &id)
{
    out.string("id", id);
    out.boolean("upnp", system.upnp);
    out.boolean("sip_alg", system.sip_alg);
    out.string("upnp_wan_if", system.upnp_wan_if);
    out.integer("operationMode", system.operationMode);
    out.boolean("limited_user_enabled", system.limited_user_enabled);
    out.object("dmz", [&system](Encoder &dmz) {
        dmz.boolean("enabled", system.dmz_enabled);
        dmz.string("ip4", system.dmz_ip4);
    });
    out.object("ipv6", [&system](Encoder &ipv6) { ipv6.boolean("enabled", system.ipv6_enabled); });
}

void from_json(Decoder &in, kelmora_system &system)
{
    in.required_boolean("upnp"_key, system.upnp);
    in.optional_string("upnp_wan_if", system.upnp_wan_if);
    in.optional_integer("operationMode", system.operationMode);
    in.optional_boolean("limited_user_enabled", system.limited_user_enabled);
    in.optional_boolean("sip_alg", system.sip_alg);

    const Decoder dmz = in.optional("dmz");
    if (dmz.optional("enabled") && dmz.optional("ip4")) { // one alone is ignored
        dmz.optional_boolean("enabled", system.dmz_enabled);
        dmz.optional_string("ip4", system.dmz_ip4);
    }

    const Decoder ipv6 = in.optional("ipv6");
    ipv6.optional_boolean("enabled", system.ipv6_enabled);
}

} // namespace

int system_to_translator(kelmora_resource *head, char **out)
{
    return encode<to_json>(head, out, Nodes::walking, Flags::pretty);
}

int system_from_translator(kelmora_resource *node, const char *text, kelmora_errorlist *errors)
{
    return decode<from_json>(node, text, errors);
}
