/* Records of IPv4 routing, multicast and switching. */
#ifndef KELMORA_RECORDS_ROUTING_H
#define KELMORA_RECORDS_ROUTING_H

#include <stdint.h>

/* ---- Static and dynamic routing */

/* An IPv4 route. */
struct kelmora_route {
    char destination[17]; /* destination network, dotted decimal */
    char net_mask[17];    /* its mask, dotted decimal */
    char next_hop[17];    /* gateway, dotted decimal */
    uint16_t metric;      /* metric */
    char interfaceID[20]; /* outgoing interface */
};

/* A static route. */
struct kelmora_static_routing {
    uint8_t state;              /* route active */
    struct kelmora_route route; /* the route */
};

/* A route of the routing table; read-only. */
struct kelmora_global_routing {
    struct kelmora_route route; /* the route */
};

/* RIP as a whole. */
struct kelmora_rip_enable {
    uint8_t enable; /* RIP on */
};

/* RIP on one interface. */
struct kelmora_rip_config {
    char interfaceID[20];  /* name of the interface */
    uint32_t receive_mode; /* what is accepted, code */
    uint32_t send_mode;    /* what is sent, code */
};

/* ---- Multicast */

/* The IGMP proxy. Times are in the host's unit. */
struct kelmora_igmp_proxy {
    uint8_t allow_multicast;          /* multicast is forwarded */
    uint32_t robust_count;            /* robustness variable */
    uint32_t last_member_query_count; /* queries to a group's last member */
    uint32_t query_interval;          /* time between general queries */
    uint32_t query_response_interval; /* longest time for their answers */
    uint32_t group_leave_delay;       /* time until a group is left */
};

/* IGMP and MLD snooping. */
struct kelmora_igmp_mld_snooping {
    uint8_t enabled; /* snooping on */
};

/* ---- Port mirroring and loop detection */

/* Copying of one port's traffic to another. */
struct kelmora_mirroring {
    uint8_t enabled;        /* mirroring on */
    uint32_t mirrored_port; /* port whose traffic is copied, the host's number */
    uint32_t mirror_port;   /* port that gets the copy, the host's number */
};

/* A VLAN to send detection frames on. */
struct kelmora_loop_back_detect_vlan {
    uint16_t vlan_id; /* VLAN identifier */
    uint8_t in_use;   /* 0: the slot is unused */
};

/* Detection of Ethernet loops. Times are in the host's unit. */
struct kelmora_loop_back_detect {
    uint8_t enabled;                                    /* detection on */
    uint16_t detection_interval;                        /* time between detection frames */
    uint16_t recovery_interval;                         /* time until a blocked port is opened again */
    uint16_t frame_type;                                /* EtherType of detection frames */
    struct kelmora_loop_back_detect_vlan vlan_list[16]; /* used and unused slots in any order */
};

/* Whether a port has a loop. */
struct kelmora_loopback_detect_status {
    char port[5];        /* name of the port */
    uint8_t loop_detect; /* a loop was found */
};

#endif
