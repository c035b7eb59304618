/* Records of the diagnostics: ping, traceroute and relayed HTTP requests. */
#ifndef KELMORA_RECORDS_DIAGNOSTICS_H
#define KELMORA_RECORDS_DIAGNOSTICS_H

#include <stdint.h>

/* A ping: what to do, and what came of it (read-only). Round-trip times are in the host's unit. */
struct kelmora_ping {
    char host[256];              /* name or address to ping */
    char ip[47];                 /* result: address that the name stands for */
    double max_time;             /* result: longest round-trip time */
    double min_time;             /* result: shortest round-trip time */
    double avg_time;             /* result: mean round-trip time */
    double packets_lost_percent; /* result: lost requests, in percent */
    int32_t packet_size;         /* payload in bytes */
    int32_t packets_qty;         /* requests to send */
    int32_t packets_sent;        /* result: requests sent */
    int32_t packets_received;    /* result: replies received */
    int32_t hops_limit;          /* hop limit of the requests */
    int32_t ttl;                 /* result: TTL of the replies */
    int32_t deadline_seconds;    /* longest time for the whole test, in seconds */
    uint8_t ip6;                 /* over IPv6 */
    char interfaceID[20];        /* interface to send from */
};

/* A hop of a traceroute, found by three probes; times are in the host's unit. The host makes and frees the chain. */
struct kelmora_traceroute_hop {
    int32_t hop;                         /* its number */
    char domain[256];                    /* name of the router that answered */
    char ip[47];                         /* address of the router that answered */
    double rtt_1;                        /* first probe: round-trip time */
    uint32_t probe_1_output;             /* first probe: outcome code */
    double rtt_2;                        /* second probe: round-trip time */
    uint32_t probe_2_output;             /* second probe: outcome code */
    double rtt_3;                        /* third probe: round-trip time */
    uint32_t probe_3_output;             /* third probe: outcome code */
    struct kelmora_traceroute_hop *next; /* NULL at the end */
};

/* A traceroute: what to do, and what came of it (read-only). */
struct kelmora_traceroute {
    char host[256];                          /* name or address to trace */
    char ip[47];                             /* result: address that the name stands for */
    int32_t hops_limit;                      /* largest TTL to probe */
    int32_t deadline_seconds;                /* longest time for the whole test, in seconds */
    uint8_t ip6;                             /* over IPv6 */
    int32_t packet_len;                      /* length of a probe in bytes */
    int32_t first_ttl;                       /* TTL of the first probes */
    char interfaceID[20];                    /* interface to send from */
    struct kelmora_traceroute_hop *hop_list; /* result: chain of hops, NULL when empty */
};

/*
 * An HTTP request that the gateway sends for a client.
 *
 * body is the host's to free. A document that has one, outside a mesh session, stores its rendering: a new block from
 * malloc of just its length and the NUL. The string that was there before is then let go of, not freed.
 */
struct kelmora_http_request {
    char dest[257];       /* where to */
    uint8_t mesh_session; /* inside a mesh session */
    uint32_t method;      /* method code */
    char token[129];      /* access token, in clear */
    int32_t timeout;      /* longest time for the answer, in the host's unit */
    int32_t status;       /* status of the answer; read-only */
    char *body;           /* body of the request, then of the answer: NUL-terminated, of any length, or NULL */
};

#endif
