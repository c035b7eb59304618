#include "frame/translator.h"
#include "records/qos.h"

#include <cstddef>
#include <cstdint>

using namespace kelmora;

namespace {

/// An absent member of a group that is there is stored too.
template <std::size_t width> void string_or_empty(const Decoder &in, const char *name, char (&field)[width])
{
    store_string(field, in.optional(name).string(), width);
}

void integer_or_zero(const Decoder &in, const char *name, std::uint8_t &field)
{
    field = static_cast<std::uint8_t>(in.optional(name).integer());
}

void to_json(Encoder &out, const kelmora_qos_traffic_control &control, const NodeId &id)
{
    out.string("id", id);
    out.integer("ip_version", control.ip_version);
    out.integer("direction", control.direction);
    out.string("interfaceID", control.interfaceID);
    out.integer("protocol_type", control.protocol_type);
    out.integer("src_port", control.src_port);
    out.integer("dst_port", control.dst_port);
    out.integer("limit_rate", control.limit_rate);
    out.object("ip4_config", [&](Encoder &addresses) {
        addresses.string("src_ip", control.ip4_src_ip);
        addresses.integer("src_prefix_length", control.ip4_src_prefix_length);
        addresses.string("dst_ip", control.ip4_dst_ip);
        addresses.integer("dst_prefix_length", control.ip4_dst_prefix_length);
    });
    out.object("ip6_config", [&](Encoder &addresses) {
        addresses.string("src_ip", control.ip6_src_ip);
        addresses.integer("src_prefix_length", control.ip6_src_prefix_length);
        addresses.string("dst_ip", control.ip6_dst_ip);
        addresses.integer("dst_prefix_length", control.ip6_dst_prefix_length);
    });
}

void from_json(Decoder &in, kelmora_qos_traffic_control &control)
{
    in.required_integer("ip_version"_key, control.ip_version);
    in.required_integer("direction"_key, control.direction);
    in.required_string("interfaceID"_key, control.interfaceID);
    in.required_integer("protocol_type"_key, control.protocol_type);
    if (const Decoder ip4 = in.optional("ip4_config")) {
        string_or_empty(ip4, "src_ip", control.ip4_src_ip);
        integer_or_zero(ip4, "src_prefix_length", control.ip4_src_prefix_length);
        string_or_empty(ip4, "dst_ip", control.ip4_dst_ip);
        integer_or_zero(ip4, "dst_prefix_length", control.ip4_dst_prefix_length);
    }
    if (const Decoder ip6 = in.optional("ip6_config")) {
        string_or_empty(ip6, "src_ip", control.ip6_src_ip);
        integer_or_zero(ip6, "src_prefix_length", control.ip6_src_prefix_length);
        string_or_empty(ip6, "dst_ip", control.ip6_dst_ip);
        integer_or_zero(ip6, "dst_prefix_length", control.ip6_dst_prefix_length);
    }
    in.optional_integer("src_port", control.src_port);
    in.optional_integer("dst_port", control.dst_port);
    in.optional_integer("limit_rate", control.limit_rate);
}

} // namespace

int qos_traffic_control_to_translator(kelmora_resource *head, char **out)
{
    return encode<to_json>(head, out, Nodes::walking_if_any, Flags::plain);
}

int qos_traffic_control_from_translator(kelmora_resource *node, const char *text, kelmora_errorlist *errors)
{
    return decode<from_json>(node, text, errors);
}
