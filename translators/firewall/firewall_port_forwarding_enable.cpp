#include "frame/translator.h"
#include "records/firewall.h"

using namespace kelmora;

namespace {

void to_json(Encoder &out, const kelmora_firewall_port_forwarding_enable &forwarding, const NodeId &id)
{
    out.string("id", id);
    out.boolean("enabled", forwarding.enabled);
}

void from_json(Decoder &in, kelmora_firewall_port_forwarding_enable &forwarding)
{
    in.optional_boolean("enabled", forwarding.enabled);
}

} // namespace

int firewall_port_forwarding_enable_to_translator(kelmora_resource *head, char **out)
{
    return encode<to_json>(head, out, Nodes::walking_if_any, Flags::pretty);
}

int firewall_port_forwarding_enable_from_translator(kelmora_resource *node, const char *text, kelmora_errorlist *errors)
{
    return decode<from_json>(node, text, errors);
}
