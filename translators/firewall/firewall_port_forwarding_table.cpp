#include "frame/translator.h"
#include "records/firewall.h"

using namespace kelmora;

namespace {

void to_json(Encoder &out, const kelmora_firewall_port_forwarding_table &rule, const NodeId &id)
{
    out.string("id", id);
    out.string("comment", rule.comment);
    out.string("local_ip", rule.local_ip);
    out.integer("local_port_from", rule.local_port_from);
    out.integer("local_port_to", rule.local_port_to);
    out.integer("protocol", rule.protocol);
    out.string("remote_ip", rule.remote_ip);
    out.integer("remote_port_from", rule.remote_port_from);
    out.integer("remote_port_to", rule.remote_port_to);
    out.string("interface", rule.interface);
}

void from_json(Decoder &in, kelmora_firewall_port_forwarding_table &rule)
{
    in.required_string("comment"_key, rule.comment);
    in.required_string("local_ip"_key, rule.local_ip);
    in.required_integer("local_port_from"_key, rule.local_port_from);
    in.required_integer("local_port_to"_key, rule.local_port_to);
    in.required_integer("protocol"_key, rule.protocol);
    in.required_string("remote_ip"_key, rule.remote_ip);
    in.required_integer("remote_port_from"_key, rule.remote_port_from);
    in.required_integer("remote_port_to"_key, rule.remote_port_to);
    in.required_string("interface"_key, rule.interface);
}

} // namespace

int firewall_port_forwarding_table_to_translator(kelmora_resource *head, char **out)
{
    return encode<to_json>(head, out, Nodes::counting, Flags::plain);
}

int firewall_port_forwarding_table_from_translator(kelmora_resource *node, const char *text, kelmora_errorlist *errors)
{
    return decode<from_json>(node, text, errors);
}
