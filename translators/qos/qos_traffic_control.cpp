#include "frame/translator.h"
#include "records/qos.h"

#include <cstddef>
#include <cstdint>

using namespace kelmora;

namespace {

template <std::size_t width>
void addresses_to_json(Encoder &out, const char *key, const char (&src_ip)[width], std::uint8_t src_prefix_length,
                       const char (&dst_ip)[width], std::uint8_t dst_prefix_length)
{
    out.object(key, [&](Encoder &addresses) {
        addresses.string("src_ip", src_ip);
        addresses.integer("src_prefix_length", src_prefix_length);
        addresses.string("dst_ip", dst_ip);
        addresses.integer("dst_prefix_length", dst_prefix_length);
    });
}

/// All four or none: a member that is absent from a group that is there is stored too, as empty or 0, on purpose.
template <std::size_t width>
void addresses_from_json(Decoder in, char (&src_ip)[width], std::uint8_t &src_prefix_length, char (&dst_ip)[width],
                         std::uint8_t &dst_prefix_length)
{
    if (!in)
        return;
    store_string(src_ip, in.optional("src_ip").string(), width);
    src_prefix_length = static_cast<std::uint8_t>(in.optional("src_prefix_length").integer());
    store_string(dst_ip, in.optional("dst_ip").string(), width);
    dst_prefix_length = static_cast<std::uint8_t>(in.optional("dst_prefix_length").integer());
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
    addresses_to_json(out, "ip4_config", control.ip4_src_ip, control.ip4_src_prefix_length, control.ip4_dst_ip,
                      control.ip4_dst_prefix_length);
    addresses_to_json(out, "ip6_config", control.ip6_src_ip, control.ip6_src_prefix_length, control.ip6_dst_ip,
                      control.ip6_dst_prefix_length);
}

void from_json(Decoder &in, kelmora_qos_traffic_control &control)
{
    in.required_integer("ip_version"_key, control.ip_version);
    in.required_integer("direction"_key, control.direction);
    in.required_string("interfaceID"_key, control.interfaceID);
    in.required_integer("protocol_type"_key, control.protocol_type);
    addresses_from_json(in.optional("ip4_config"), control.ip4_src_ip, control.ip4_src_prefix_length,
                        control.ip4_dst_ip, control.ip4_dst_prefix_length);
    addresses_from_json(in.optional("ip6_config"), control.ip6_src_ip, control.ip6_src_prefix_length,
                        control.ip6_dst_ip, control.ip6_dst_prefix_length);
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
