#include "frame/translator.h"
#include "records/qos.h"

using namespace kelmora;

namespace {

void to_json(Encoder &out, const kelmora_qos_classification &rule, const NodeId &id)
{
    out.string("id", id);
    out.string("rule_name", rule.rule_name);
    out.integer("order", rule.order);
    out.integer("mode", rule.mode);
    out.object("precedence", [&](Encoder &precedence) {
        precedence.integer("precedence", rule.precedence);
        precedence.integer("cos_802_1p", rule.cos_802_1p);
        precedence.integer("dscp_remarking", rule.dscp_remarking);
    });
    out.object("port", [&](Encoder &port) {
        port.integer("physical_port", rule.physical_port);
        port.integer("dscp_pattern", rule.port_dscp_pattern);
    });
    out.object("ethertype", [&](Encoder &ethertype) { ethertype.integer("value", rule.ethertype_value); });
    out.object("ip_protocol", [&](Encoder &ip) {
        ip.integer("ip_version", rule.ip_version);
        ip.integer("protocol", rule.protocol);
        ip.integer("dscp_pattern", rule.ip_dscp_pattern);
        ip.object("ip_config_src", [&](Encoder &config) {
            config.string("ip4", rule.src_ip4);
            config.string("ip4_mask", rule.src_ip4_mask);
            config.string("ip6", rule.src_ip6);
            config.integer("ip6_prefix_length", rule.src_ip6_prefix_length);
        });
        ip.object("ip_config_dst", [&](Encoder &config) {
            config.string("ip4", rule.dst_ip4);
            config.string("ip4_mask", rule.dst_ip4_mask);
            config.string("ip6", rule.dst_ip6);
            config.integer("ip6_prefix_length", rule.dst_ip6_prefix_length);
        });
        ip.object("src_port", [&](Encoder &ports) {
            ports.integer("start", rule.src_port_start);
            ports.integer("end", rule.src_port_end);
        });
        ip.object("dst_port", [&](Encoder &ports) {
            ports.integer("start", rule.dst_port_start);
            ports.integer("end", rule.dst_port_end);
        });
    });
    out.object("mac", [&](Encoder &mac) {
        mac.string("src", rule.mac_src);
        mac.string("dst", rule.mac_dst);
    });
}

void from_json(Decoder &in, kelmora_qos_classification &rule)
{
    in.required_string("rule_name"_key, rule.rule_name);
    if (in.optional("order")) // here: the name is stored even so
        in.fail("order", "order is read-only field");
    in.required_integer("mode"_key, rule.mode);
    // Contract: "fields", though each names one key.
    const Decoder precedence = in.required(key<"precedence", "precedence", "precedence fields not found">());
    precedence.required_integer(key<"precedence", "precedence.precedence", "precedence fields not found">(),
                                rule.precedence);
    precedence.required_integer(key<"cos_802_1p", "precedence.cos_802_1p", "cos_802_1p fields not found">(),
                                rule.cos_802_1p);
    precedence.required_integer(key<"dscp_remarking", "precedence.dscp_remarking", "dscp_remarking fields not found">(),
                                rule.dscp_remarking);
    const Decoder port = in.optional("port");
    port.optional_integer("physical_port", rule.physical_port);
    port.optional_integer("dscp_pattern", rule.port_dscp_pattern);
    in.optional("ethertype").optional_integer("value", rule.ethertype_value);
    const Decoder ip = in.optional("ip_protocol");
    ip.optional_integer("ip_version", rule.ip_version);
    ip.optional_integer("protocol", rule.protocol);
    ip.optional_integer("dscp_pattern", rule.ip_dscp_pattern);
    const Decoder source = ip.optional("ip_config_src");
    source.optional_string("ip4", rule.src_ip4);
    source.optional_string("ip4_mask", rule.src_ip4_mask);
    source.optional_string("ip6", rule.src_ip6);
    source.optional_integer("ip6_prefix_length", rule.src_ip6_prefix_length);
    const Decoder destination = ip.optional("ip_config_dst");
    destination.optional_string("ip4", rule.dst_ip4);
    destination.optional_string("ip4_mask", rule.dst_ip4_mask);
    destination.optional_string("ip6", rule.dst_ip6);
    destination.optional_integer("ip6_prefix_length", rule.dst_ip6_prefix_length);
    const Decoder source_port = ip.optional("src_port");
    source_port.optional_integer("start", rule.src_port_start);
    source_port.optional_integer("end", rule.src_port_end);
    const Decoder destination_port = ip.optional("dst_port");
    destination_port.optional_integer("start", rule.dst_port_start);
    destination_port.optional_integer("end", rule.dst_port_end);
    const Decoder mac = in.optional("mac");
    mac.optional_string("src", rule.mac_src);
    mac.optional_string("dst", rule.mac_dst);
}

} // namespace

int qos_classification_to_translator(kelmora_resource *head, char **out)
{
    return encode<to_json>(head, out, Nodes::walking_if_any, Flags::plain);
}

int qos_classification_from_translator(kelmora_resource *node, const char *text, kelmora_errorlist *errors)
{
    return decode<from_json>(node, text, errors);
}
