#include "host/gateway/samples.h"

#include "records/diagnostics.h"

namespace kelmora_host {

namespace {

constexpr kelmora_ping ping{
    .host = "www.example.org",
    .ip = "2001:db8:9:80::22",
    .max_time = 31.5,
    .min_time = 11.25,
    .avg_time = 18.75,
    .packets_lost_percent = 25,
    .packet_size = 56,
    .packets_qty = 4,
    .packets_sent = 4,
    .packets_received = 3,
    .hops_limit = 64,
    .ttl = 57,
    .deadline_seconds = 10,
    .ip6 = 1,
    .interfaceID = "ppp0",
};

kelmora_traceroute traceroute()
{
    return {
        .host = "www.example.org",
        .ip = "192.0.2.80",
        .hops_limit = 30,
        .deadline_seconds = 60,
        .ip6 = 0,
        .packet_len = 60,
        .first_ttl = 1,
        .interfaceID = "ppp0",
        .hop_list = make_chain<kelmora_traceroute_hop>({
            {.hop = 1,
             .domain = "access.provider.example",
             .ip = "198.51.100.1",
             .rtt_1 = 8.5,
             .probe_1_output = 0,
             .rtt_2 = 8.25,
             .probe_2_output = 0,
             .rtt_3 = 9.125,
             .probe_3_output = 0,
             .next = nullptr},
            {.hop = 2,
             .domain = "",
             .ip = "",
             .rtt_1 = 0,
             .probe_1_output = 1,
             .rtt_2 = 0,
             .probe_2_output = 1,
             .rtt_3 = 0,
             .probe_3_output = 1,
             .next = nullptr},
            {.hop = 3,
             .domain = "www.example.org",
             .ip = "192.0.2.80",
             .rtt_1 = 17.75,
             .probe_1_output = 0,
             .rtt_2 = 18,
             .probe_2_output = 0,
             .rtt_3 = 0,
             .probe_3_output = 1,
             .next = nullptr},
        }),
    };
}

kelmora_http_request http_request()
{
    return {
        .dest = "http://192.168.17.2/api/status",
        .mesh_session = 0,
        .method = 1,
        .token = "5f0e8d3a91c64b27",
        .timeout = 15,
        .status = 200,
        .body = make_text(R"({"name": "hallway", "uptime": 86123, "clients": ["5c:e9:31:0a:77:d2"]})"),
    };
}

} // namespace

void add_diagnostics_samples(Gateway &gateway)
{
    gateway.add("ping", "0", ping);

    gateway.add("traceroute", "0", traceroute());

    gateway.add("http_request", "0", http_request());
}

} // namespace kelmora_host
