#include "frame/translator.h"
#include "records/firewall.h"

using namespace kelmora;

namespace {

void write(Encoder &out, const kelmora_firewall_port_forwarding_table &rule, const NodeId &id)
{
    out.text("id", id);
    out.text("comment", rule.comment);
    out.text("local_ip", rule.local_ip);
    out.integer("local_port_from", rule.local_port_from);
    out.integer("local_port_to", rule.local_port_to);
    out.integer("protocol", rule.protocol);
    out.text("remote_ip", rule.remote_ip);
    out.integer("remote_port_from", rule.remote_port_from);
    out.integer("remote_port_to", rule.remote_port_to);
    out.text("interface", rule.interface);
}

void read(Decoder &in, kelmora_firewall_port_forwarding_table &rule)
{
    in.required_text("comment"_key, rule.comment);
    in.required_text("local_ip"_key, rule.local_ip);
    in.required_integer("local_port_from"_key, rule.local_port_from);
    in.required_integer("local_port_to"_key, rule.local_port_to);
    in.required_integer("protocol"_key, rule.protocol);
    in.required_text("remote_ip"_key, rule.remote_ip);
    in.required_integer("remote_port_from"_key, rule.remote_port_from);
    in.required_integer("remote_port_to"_key, rule.remote_port_to);
    in.required_text("interface"_key, rule.interface);
}

} // namespace

int firewall_port_forwarding_table_to_translator(kelmora_resource *head, char **out)
{
    return encode<write>(head, out, Shape::counting, Flags::compact);
}

int firewall_port_forwarding_table_from_translator(kelmora_resource *node, const char *text, kelmora_errorlist *errors)
{
    return decode<read>(node, text, errors);
}
