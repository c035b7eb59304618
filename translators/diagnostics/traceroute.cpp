#include "frame/translator.h"
#include "records/diagnostics.h"

using namespace kelmora;

namespace {

void to_json(Encoder &out, const kelmora_traceroute &trace)
{
    out.string("host", trace.host);
    out.string("ip", trace.ip);
    out.integer("hops_limit", trace.hops_limit);
    out.integer("deadline_seconds", trace.deadline_seconds);
    out.boolean("ip6", trace.ip6);
    out.integer("packet_len", trace.packet_len);
    out.integer("first_ttl", trace.first_ttl);
    out.string("interfaceID", trace.interfaceID);
    out.array("hop_list", [&](ArrayEncoder &list) {
        for (const auto &hop : chain(trace.hop_list)) {
            list.object([&](Encoder &entry) {
                entry.integer("hop", hop.hop);
                entry.string("domain", hop.domain);
                entry.string("ip", hop.ip);
                entry.real("rtt_1", hop.rtt_1);
                entry.integer("probe_1_output", hop.probe_1_output);
                entry.real("rtt_2", hop.rtt_2);
                entry.integer("probe_2_output", hop.probe_2_output);
                entry.real("rtt_3", hop.rtt_3);
                entry.integer("probe_3_output", hop.probe_3_output);
            });
        }
    });
}

// The results are the host's: a client may send them back as it read them.
void from_json(Decoder &in, kelmora_traceroute &trace)
{
    in.required_string("host"_key, trace.host);
    in.optional_integer("packet_len", trace.packet_len);
    in.optional_integer("first_ttl", trace.first_ttl);
    in.optional_integer("hops_limit", trace.hops_limit);
    in.optional_integer("deadline_seconds", trace.deadline_seconds);
    in.optional_boolean("ip6", trace.ip6);
    in.optional_string("interfaceID", trace.interfaceID);
}

} // namespace

int traceroute_to_translator(kelmora_resource *head, char **out)
{
    return encode<to_json>(head, out, Nodes::walking_if_any, Flags::pretty);
}

int traceroute_from_translator(kelmora_resource *node, const char *text, kelmora_errorlist *errors)
{
    return decode<from_json>(node, text, errors);
}
