#include "frame/translator.h"
#include "records/diagnostics.h"

using namespace kelmora;

namespace {

void to_json(Encoder &out, const kelmora_ping &ping)
{
    out.string("host", ping.host);
    out.string("ip", ping.ip);
    out.real("max_time", ping.max_time);
    out.real("min_time", ping.min_time);
    out.real("avg_time", ping.avg_time);
    out.real("packets_lost_percent", ping.packets_lost_percent);
    out.integer("packet_size", ping.packet_size);
    out.integer("packets_qty", ping.packets_qty);
    out.integer("packets_sent", ping.packets_sent);
    out.integer("packets_received", ping.packets_received);
    out.integer("hops_limit", ping.hops_limit);
    out.integer("ttl", ping.ttl);
    out.integer("deadline_seconds", ping.deadline_seconds);
    out.boolean("ip6", ping.ip6);
    out.string("interfaceID", ping.interfaceID);
}

// The results are the host's: a client may send them back as it read them.
void from_json(Decoder &in, kelmora_ping &ping)
{
    in.required_string("host"_key, ping.host);
    in.optional_integer("packet_size", ping.packet_size);
    in.optional_integer("packets_qty", ping.packets_qty);
    in.optional_integer("hops_limit", ping.hops_limit);
    in.optional_integer("deadline_seconds", ping.deadline_seconds);
    in.optional_boolean("ip6", ping.ip6);
    in.optional_string("interfaceID", ping.interfaceID);
}

} // namespace

int ping_to_translator(kelmora_resource *head, char **out)
{
    return encode<to_json>(head, out, Nodes::walking_if_any, Flags::pretty);
}

int ping_from_translator(kelmora_resource *node, const char *text, kelmora_errorlist *errors)
{
    return decode<from_json>(node, text, errors);
}
