#include "records/diagnostics.h"

#include "layout.h"

EXPECT_FIELD(kelmora_ping, host, char[256], 0);
EXPECT_FIELD(kelmora_ping, ip, char[47], 256);
EXPECT_FIELD(kelmora_ping, max_time, double, 304);
EXPECT_FIELD(kelmora_ping, min_time, double, 312);
EXPECT_FIELD(kelmora_ping, avg_time, double, 320);
EXPECT_FIELD(kelmora_ping, packets_lost_percent, double, 328);
EXPECT_FIELD(kelmora_ping, packet_size, std::int32_t, 336);
EXPECT_FIELD(kelmora_ping, packets_qty, std::int32_t, 340);
EXPECT_FIELD(kelmora_ping, packets_sent, std::int32_t, 344);
EXPECT_FIELD(kelmora_ping, packets_received, std::int32_t, 348);
EXPECT_FIELD(kelmora_ping, hops_limit, std::int32_t, 352);
EXPECT_FIELD(kelmora_ping, ttl, std::int32_t, 356);
EXPECT_FIELD(kelmora_ping, deadline_seconds, std::int32_t, 360);
EXPECT_FIELD(kelmora_ping, ip6, std::uint8_t, 364);
EXPECT_FIELD(kelmora_ping, interfaceID, char[20], 365);
static_assert(sizeof(kelmora_ping) == 392);

EXPECT_FIELD(kelmora_traceroute_hop, hop, std::int32_t, 0);
EXPECT_FIELD(kelmora_traceroute_hop, domain, char[256], 4);
EXPECT_FIELD(kelmora_traceroute_hop, ip, char[47], 260);
EXPECT_FIELD(kelmora_traceroute_hop, rtt_1, double, 312);
EXPECT_FIELD(kelmora_traceroute_hop, probe_1_output, std::uint32_t, 320);
EXPECT_FIELD(kelmora_traceroute_hop, rtt_2, double, 328);
EXPECT_FIELD(kelmora_traceroute_hop, probe_2_output, std::uint32_t, 336);
EXPECT_FIELD(kelmora_traceroute_hop, rtt_3, double, 344);
EXPECT_FIELD(kelmora_traceroute_hop, probe_3_output, std::uint32_t, 352);
EXPECT_FIELD(kelmora_traceroute_hop, next, kelmora_traceroute_hop *, is_64_bit ? 360 : 356);
static_assert(sizeof(kelmora_traceroute_hop) == (is_64_bit ? 368 : 360));

EXPECT_FIELD(kelmora_traceroute, host, char[256], 0);
EXPECT_FIELD(kelmora_traceroute, ip, char[47], 256);
EXPECT_FIELD(kelmora_traceroute, hops_limit, std::int32_t, 304);
EXPECT_FIELD(kelmora_traceroute, deadline_seconds, std::int32_t, 308);
EXPECT_FIELD(kelmora_traceroute, ip6, std::uint8_t, 312);
EXPECT_FIELD(kelmora_traceroute, packet_len, std::int32_t, 316);
EXPECT_FIELD(kelmora_traceroute, first_ttl, std::int32_t, 320);
EXPECT_FIELD(kelmora_traceroute, interfaceID, char[20], 324);
EXPECT_FIELD(kelmora_traceroute, hop_list, kelmora_traceroute_hop *, 344);
static_assert(sizeof(kelmora_traceroute) == (is_64_bit ? 352 : 348));

EXPECT_FIELD(kelmora_http_request, dest, char[257], 0);
EXPECT_FIELD(kelmora_http_request, mesh_session, std::uint8_t, 257);
EXPECT_FIELD(kelmora_http_request, method, std::uint32_t, 260);
EXPECT_FIELD(kelmora_http_request, token, char[129], 264);
EXPECT_FIELD(kelmora_http_request, timeout, std::int32_t, 396);
EXPECT_FIELD(kelmora_http_request, status, std::int32_t, 400);
EXPECT_FIELD(kelmora_http_request, body, char *, is_64_bit ? 408 : 404);
static_assert(sizeof(kelmora_http_request) == (is_64_bit ? 416 : 408));
