#include "frame/translator.h"
#include "records/firewall.h"

using namespace kelmora;

namespace {

void write(Encoder &out, const kelmora_firewall_port_forwarding_enable &forwarding, const NodeId &id)
{
    out.text("id", id);
    out.boolean("enabled", forwarding.enabled);
}

void read(Decoder &in, kelmora_firewall_port_forwarding_enable &forwarding)
{
    in.optional_boolean("enabled", forwarding.enabled);
}

} // namespace

int firewall_port_forwarding_enable_to_translator(kelmora_resource *head, char **out)
{
    return encode<write>(head, out, Shape::walking | Shape::literal_when_empty, Flags::pretty);
}

int firewall_port_forwarding_enable_from_translator(kelmora_resource *node, const char *text, kelmora_errorlist *errors)
{
    return decode<read>(node, text, errors);
}
