#include "frame/translator.h"
#include "records/qos.h"

#include <cstdint>

using namespace kelmora;

namespace {

using Ip4 = char[17];
using Ip6 = char[46];

void ip_to_json(Encoder &out, const char *key, const Ip4 &ip4, const Ip4 &ip4_mask, const Ip6 &ip6,
                std::uint8_t ip6_prefix_length)
{
    out.object(key, [&](Encoder &ip) {
        ip.string("ip4", ip4);
        ip.string("ip4_mask", ip4_mask);
        ip.string("ip6", ip6);
        ip.integer("ip6_prefix_length", ip6_prefix_length);
    });
}

void ip_from_json(Decoder in, Ip4 &ip4, Ip4 &ip4_mask, Ip6 &ip6, std::uint8_t &ip6_prefix_length)
{
    in.optional_string("ip4", ip4);
    in.optional_string("ip4_mask", ip4_mask);
    in.optional_string("ip6", ip6);
    in.optional_integer("ip6_prefix_length", ip6_prefix_length);
}

void ports_to_json(Encoder &out, const char *key, std::uint16_t start, std::uint16_t end)
{
    out.object(key, [&](Encoder &ports) {
        ports.integer("start", start);
        ports.integer("end", end);
    });
}

void ports_from_json(Decoder in, std::uint16_t &start, std::uint16_t &end)
{
    in.optional_integer("start", start);
    in.optional_integer("end", end);
}

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
        ip_to_json(ip, "ip_config_src", rule.src_ip4, rule.src_ip4_mask, rule.src_ip6, rule.src_ip6_prefix_length);
        ip_to_json(ip, "ip_config_dst", rule.dst_ip4, rule.dst_ip4_mask, rule.dst_ip6, rule.dst_ip6_prefix_length);
        ports_to_json(ip, "src_port", rule.src_port_start, rule.src_port_end);
        ports_to_json(ip, "dst_port", rule.dst_port_start, rule.dst_port_end);
    });
    out.object("mac", [&](Encoder &mac) {
        mac.string("src", rule.mac_src);
        mac.string("dst", rule.mac_dst);
    });
}

void from_json(Decoder &in, kelmora_qos_classification &rule)
{
    in.required_string("rule_name"_key, rule.rule_name);
    if (in.optional("order")) // after the name on purpose: it is stored even so
        in.fail("order", "order is read-only field");
    in.required_integer("mode"_key, rule.mode);
    // "fields" on purpose, though each names one key.
    Decoder precedence = in.required(key<"precedence", "precedence", "precedence fields not found">());
    precedence.required_integer(key<"precedence", "precedence.precedence", "precedence fields not found">(),
                                rule.precedence);
    precedence.required_integer(key<"cos_802_1p", "precedence.cos_802_1p", "cos_802_1p fields not found">(),
                                rule.cos_802_1p);
    precedence.required_integer(key<"dscp_remarking", "precedence.dscp_remarking", "dscp_remarking fields not found">(),
                                rule.dscp_remarking);
    Decoder port = in.optional("port");
    port.optional_integer("physical_port", rule.physical_port);
    port.optional_integer("dscp_pattern", rule.port_dscp_pattern);
    in.optional("ethertype").optional_integer("value", rule.ethertype_value);
    Decoder ip = in.optional("ip_protocol");
    ip.optional_integer("ip_version", rule.ip_version);
    ip.optional_integer("protocol", rule.protocol);
    ip.optional_integer("dscp_pattern", rule.ip_dscp_pattern);
    ip_from_json(ip.optional("ip_config_src"), rule.src_ip4, rule.src_ip4_mask, rule.src_ip6,
                 rule.src_ip6_prefix_length);
    ip_from_json(ip.optional("ip_config_dst"), rule.dst_ip4, rule.dst_ip4_mask, rule.dst_ip6,
                 rule.dst_ip6_prefix_length);
    ports_from_json(ip.optional("src_port"), rule.src_port_start, rule.src_port_end);
    ports_from_json(ip.optional("dst_port"), rule.dst_port_start, rule.dst_port_end);
    Decoder mac = in.optional("mac");
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
