#include "frame/translator.h"
#include "records/firewall.h"

using namespace kelmora;

namespace {

void to_json(Encoder &out, const kelmora_ipv6_ip_port_filter &filter, const NodeId &id)
{
    out.string("id", id);
    out.string("interface_id", filter.interface_id);
    out.integer("direction", filter.direction);
    out.integer("protocol", filter.protocol);
    out.integer("rule_action", filter.rule_action);
    out.object("src_ipv6", [&](Encoder &source) {
        source.string("start", filter.src_start);
        source.string("end", filter.src_end);
        source.integer("prefix_length", filter.src_prefix_length);
    });
    out.object("dst_ipv6", [&](Encoder &destination) {
        destination.string("start", filter.dst_start);
        destination.string("end", filter.dst_end);
        destination.integer("prefix_length", filter.dst_prefix_length);
    });
    out.object("source_port", [&](Encoder &ports) {
        ports.integer("from", filter.source_port_from);
        ports.integer("to", filter.source_port_to);
    });
    out.object("destination_port", [&](Encoder &ports) {
        ports.integer("from", filter.destination_port_from);
        ports.integer("to", filter.destination_port_to);
    });
}

void from_json(Decoder &in, kelmora_ipv6_ip_port_filter &filter)
{
    in.optional_string("interface_id", filter.interface_id);
    in.optional_integer("direction", filter.direction);
    in.optional_integer("protocol", filter.protocol);
    in.optional_integer("rule_action", filter.rule_action);
    const Decoder source = in.optional("src_ipv6");
    source.optional_string("start", filter.src_start);
    source.optional_string("end", filter.src_end);
    source.optional_integer("prefix_length", filter.src_prefix_length);
    const Decoder destination = in.optional("dst_ipv6");
    destination.optional_string("start", filter.dst_start);
    destination.optional_string("end", filter.dst_end);
    destination.optional_integer("prefix_length", filter.dst_prefix_length);
    const Decoder source_port = in.optional("source_port");
    source_port.optional_integer("from", filter.source_port_from);
    source_port.optional_integer("to", filter.source_port_to);
    const Decoder destination_port = in.optional("destination_port");
    destination_port.optional_integer("from", filter.destination_port_from);
    destination_port.optional_integer("to", filter.destination_port_to);
}

} // namespace

int ipv6_ip_port_filter_to_translator(kelmora_resource *head, char **out)
{
    return encode<to_json>(head, out, Nodes::counting, Flags::plain);
}

int ipv6_ip_port_filter_from_translator(kelmora_resource *node, const char *text, kelmora_errorlist *errors)
{
    return decode<from_json>(node, text, errors);
}
