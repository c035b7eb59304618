#include "frame/translator.h"
#include "records/qos.h"

#include <cstddef>
#include <cstdint>

using namespace kelmora;

namespace {

template <std::size_t width>
void write_addresses(Encoder &out, const char *key, const char (&src_ip)[width], std::uint8_t src_prefix_length,
                     const char (&dst_ip)[width], std::uint8_t dst_prefix_length)
{
    out.object(key, [&](Encoder &addresses) {
        addresses.text("src_ip", src_ip);
        addresses.integer("src_prefix_length", src_prefix_length);
        addresses.text("dst_ip", dst_ip);
        addresses.integer("dst_prefix_length", dst_prefix_length);
    });
}

/// All four or none: a member that is absent from a group that is there is stored too, as empty or 0, on purpose.
template <std::size_t width>
void read_addresses(Decoder in, char (&src_ip)[width], std::uint8_t &src_prefix_length, char (&dst_ip)[width],
                    std::uint8_t &dst_prefix_length)
{
    if (!in)
        return;
    store_text(src_ip, in.optional("src_ip").text(), width);
    src_prefix_length = static_cast<std::uint8_t>(in.optional("src_prefix_length").integer());
    store_text(dst_ip, in.optional("dst_ip").text(), width);
    dst_prefix_length = static_cast<std::uint8_t>(in.optional("dst_prefix_length").integer());
}

void write(Encoder &out, const kelmora_qos_traffic_control &control, const NodeId &id)
{
    out.text("id", id);
    out.integer("ip_version", control.ip_version);
    out.integer("direction", control.direction);
    out.text("interfaceID", control.interfaceID);
    out.integer("protocol_type", control.protocol_type);
    out.integer("src_port", control.src_port);
    out.integer("dst_port", control.dst_port);
    out.integer("limit_rate", control.limit_rate);
    write_addresses(out, "ip4_config", control.ip4_src_ip, control.ip4_src_prefix_length, control.ip4_dst_ip,
                    control.ip4_dst_prefix_length);
    write_addresses(out, "ip6_config", control.ip6_src_ip, control.ip6_src_prefix_length, control.ip6_dst_ip,
                    control.ip6_dst_prefix_length);
}

void read(Decoder &in, kelmora_qos_traffic_control &control)
{
    in.required_integer("ip_version"_key, control.ip_version);
    in.required_integer("direction"_key, control.direction);
    in.required_text("interfaceID"_key, control.interfaceID);
    in.required_integer("protocol_type"_key, control.protocol_type);
    read_addresses(in.optional("ip4_config"), control.ip4_src_ip, control.ip4_src_prefix_length, control.ip4_dst_ip,
                   control.ip4_dst_prefix_length);
    read_addresses(in.optional("ip6_config"), control.ip6_src_ip, control.ip6_src_prefix_length, control.ip6_dst_ip,
                   control.ip6_dst_prefix_length);
    in.optional_integer("src_port", control.src_port);
    in.optional_integer("dst_port", control.dst_port);
    in.optional_integer("limit_rate", control.limit_rate);
}

} // namespace

int qos_traffic_control_to_translator(kelmora_resource *head, char **out)
{
    return encode<write>(head, out, Shape::walking | Shape::literal_when_empty, Flags::compact);
}

int qos_traffic_control_from_translator(kelmora_resource *node, const char *text, kelmora_errorlist *errors)
{
    return decode<read>(node, text, errors);
}
