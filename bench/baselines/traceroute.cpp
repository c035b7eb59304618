#include "bench/baselines/baselines.h"
#include "bench/baselines/json.h"

#include "records/diagnostics.h"

namespace kelmora_bench {

namespace {

void fill(json_t *out, const kelmora_traceroute &trace, const char * /*id*/)
{
    json_object_set_new(out, "host", json_string(trace.host));
    json_object_set_new(out, "ip", json_string(trace.ip));
    json_object_set_new(out, "hops_limit", json_integer(trace.hops_limit));
    json_object_set_new(out, "deadline_seconds", json_integer(trace.deadline_seconds));
    json_object_set_new(out, "ip6", json_boolean(trace.ip6));
    json_object_set_new(out, "packet_len", json_integer(trace.packet_len));
    json_object_set_new(out, "first_ttl", json_integer(trace.first_ttl));
    json_object_set_new(out, "interfaceID", json_string(trace.interfaceID));
    json_t *list = json_array();
    for (const auto *hop = trace.hop_list; hop != nullptr; hop = hop->next) {
        json_t *entry = json_object();
        json_object_set_new(entry, "hop", json_integer(hop->hop));
        json_object_set_new(entry, "domain", json_string(hop->domain));
        json_object_set_new(entry, "ip", json_string(hop->ip));
        json_object_set_new(entry, "rtt_1", json_real(hop->rtt_1));
        json_object_set_new(entry, "probe_1_output", json_integer(hop->probe_1_output));
        json_object_set_new(entry, "rtt_2", json_real(hop->rtt_2));
        json_object_set_new(entry, "probe_2_output", json_integer(hop->probe_2_output));
        json_object_set_new(entry, "rtt_3", json_real(hop->rtt_3));
        json_object_set_new(entry, "probe_3_output", json_integer(hop->probe_3_output));
        json_array_append_new(list, entry);
    }
    json_object_set_new(out, "hop_list", list);
}

void from_json(const json_t *in, kelmora_traceroute &trace)
{
    store_string(trace.host, json_object_get(in, "host"));
    store_integer(trace.packet_len, json_object_get(in, "packet_len"));
    store_integer(trace.first_ttl, json_object_get(in, "first_ttl"));
    store_integer(trace.hops_limit, json_object_get(in, "hops_limit"));
    store_integer(trace.deadline_seconds, json_object_get(in, "deadline_seconds"));
    store_boolean(trace.ip6, json_object_get(in, "ip6"));
    store_string(trace.interfaceID, json_object_get(in, "interfaceID"));
}

} // namespace

} // namespace kelmora_bench

using namespace kelmora_bench;

int traceroute_to_baseline(kelmora_resource *head, char **out)
{
    return render_nodes<kelmora_traceroute, fill>(head, pretty, out);
}

int traceroute_from_baseline(kelmora_resource *node, const char *text, kelmora_errorlist * /*errors*/)
{
    return document_from_json<kelmora_traceroute, from_json>(node, text);
}
