/* Records of the quality of service: queues, rules, classification and traffic control. */
#ifndef KELMORA_RECORDS_QOS_H
#define KELMORA_RECORDS_QOS_H

#include <stdint.h>

/* ---- Queues, rules and policy */

/* Quality of service as a whole. Rates are in the host's unit. */
struct kelmora_qos {
    uint8_t enabled;         /* quality of service on */
    int32_t global_download; /* downstream rate of the line */
    int32_t global_upload;   /* upstream rate of the line */
};

/* A bandwidth rule. Rates are in the host's unit. */
struct kelmora_qos_rule {
    uint8_t enabled;     /* rule active */
    char name[64];       /* name of the rule */
    uint32_t type;       /* rule type code */
    uint32_t host_field; /* the host's; not part of the JSON document */
    uint32_t mode;       /* rule mode code */
    int32_t download;    /* downstream rate */
    int32_t upload;      /* upstream rate */
    char target[200];    /* what the rule applies to */
};

/* A queue. */
struct kelmora_qos_policy_queue {
    uint8_t enable; /* queue active */
    uint8_t weight; /* its weight */
};

/* How the queues share the line. */
struct kelmora_qos_policy {
    uint8_t enable;                                  /* policy active */
    uint32_t queue_mode;                             /* scheduling mode code */
    struct kelmora_qos_policy_queue queue_config[4]; /* queues 1 to 4 */
    uint8_t totalbandwidth_enable;                   /* total bandwidth is limited */
    uint32_t totalbandwidth;                         /* the limit, in the host's unit */
};

/* A DSCP value on offer; read-only. A node's data is the first one of a chain itself, or NULL when there is none. The
 * host makes and frees the chain and its strings. */
struct kelmora_qos_available_dscp {
    uint32_t id;                             /* number of the entry */
    char *dscp;                              /* name or value: NUL-terminated, of any length, or NULL */
    struct kelmora_qos_available_dscp *next; /* NULL at the end */
};

/* ---- Classification and traffic control */

/* A rule that classifies packets. */
struct kelmora_qos_classification {
    char rule_name[64];            /* name of the rule */
    uint32_t order;                /* its place among the rules; read-only */
    uint32_t precedence;           /* precedence: priority */
    uint32_t cos_802_1p;           /* precedence: IEEE 802.1p class of service */
    uint8_t dscp_remarking;        /* precedence: DSCP to set */
    uint32_t mode;                 /* mode code */
    uint32_t physical_port;        /* port: number */
    uint8_t port_dscp_pattern;     /* port: DSCP to match */
    uint16_t ethertype_value;      /* EtherType to match */
    uint32_t ip_version;           /* IP: version code */
    uint32_t protocol;             /* IP: protocol code */
    uint8_t ip_dscp_pattern;       /* IP: DSCP to match */
    char src_ip4[17];              /* source: IPv4 address, dotted decimal */
    char src_ip4_mask[17];         /* source: IPv4 mask, dotted decimal */
    char src_ip6[46];              /* source: IPv6 address */
    uint8_t src_ip6_prefix_length; /* source: bits of the IPv6 prefix */
    char dst_ip4[17];              /* destination: IPv4 address, dotted decimal */
    char dst_ip4_mask[17];         /* destination: IPv4 mask, dotted decimal */
    char dst_ip6[46];              /* destination: IPv6 address */
    uint8_t dst_ip6_prefix_length; /* destination: bits of the IPv6 prefix */
    uint16_t src_port_start;       /* first source port */
    uint16_t src_port_end;         /* last source port */
    uint16_t dst_port_start;       /* first destination port */
    uint16_t dst_port_end;         /* last destination port */
    char mac_src[18];              /* source MAC address */
    char mac_dst[18];              /* destination MAC address */
};

/* A rate limit for matching packets. */
struct kelmora_qos_traffic_control {
    uint32_t ip_version;           /* IP version code */
    uint32_t direction;            /* direction code */
    char interfaceID[20];          /* name of the interface */
    uint32_t protocol_type;        /* protocol code */
    char ip4_src_ip[17];           /* IPv4: source address, dotted decimal */
    uint8_t ip4_src_prefix_length; /* IPv4: bits of the source prefix */
    char ip4_dst_ip[17];           /* IPv4: destination address, dotted decimal */
    uint8_t ip4_dst_prefix_length; /* IPv4: bits of the destination prefix */
    char ip6_src_ip[46];           /* IPv6: source address */
    uint8_t ip6_src_prefix_length; /* IPv6: bits of the source prefix */
    char ip6_dst_ip[46];           /* IPv6: destination address */
    uint8_t ip6_dst_prefix_length; /* IPv6: bits of the destination prefix */
    uint16_t src_port;             /* source port */
    uint16_t dst_port;             /* destination port */
    uint32_t limit_rate;           /* the limit, in the host's unit */
};

#endif
