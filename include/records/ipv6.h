/* Records of IPv6: router advertisement, prefixes, MLD, DHCPv6, routes and neighbours. */
#ifndef KELMORA_RECORDS_IPV6_H
#define KELMORA_RECORDS_IPV6_H

#include <stdint.h>

/* ---- Router advertisement, prefixes and MLD proxy */

/* Router advertisement. Times are in the host's unit. */
struct kelmora_ipv6_radvd {
    uint32_t max_rtr_adv_interval;   /* longest time between unsolicited advertisements */
    uint32_t min_rtr_adv_interval;   /* shortest time between them */
    uint8_t adv_managed_flag;        /* the managed address flag */
    uint32_t ipv6_prefix_mode_auto;  /* 0 or 1: the prefix is taken automatically */
    char prefix[46];                 /* prefix that is advertised */
    uint16_t prefix_size;            /* its length in bits */
    uint32_t adv_valid_lifetime;     /* its valid lifetime; 4294967295 is for ever */
    uint32_t adv_preferred_lifetime; /* its preferred lifetime */
    uint8_t adv_on_link;             /* the on-link flag */
    uint8_t adv_autonomous;          /* the autonomous configuration flag */
    char rdnss1[46];                 /* first recursive DNS server */
    char rdnss2[46];                 /* second recursive DNS server */
    uint8_t enable_ula;              /* a unique local prefix is advertised */
    char ula_prefix[17];             /* that prefix, 16 characters at most */
    uint32_t ula_prefix_len;         /* its length in bits */
    uint32_t ula_valid_time;         /* its valid lifetime */
    uint32_t ula_prefer_time;        /* its preferred lifetime */
};

/* Where the LAN gets its IPv6 prefix from. */
struct kelmora_ipv6_prefix_delegation {
    uint32_t mode;        /* mode code */
    char prefix[46];      /* prefix */
    char interfaceID[20]; /* WAN interface that it comes from */
};

/* The MLD proxy. Times are in the host's unit. */
struct kelmora_ipv6_proxy_mld {
    int32_t robust_count;                            /* robustness variable */
    uint32_t query_interval;                         /* time between general queries */
    uint32_t query_response_interval;                /* longest time for their answers */
    uint32_t response_interval_of_last_group_member; /* the same for queries to a group's last member */
};

/* ---- DHCPv6 */

/* The DHCPv6 service. */
struct kelmora_ipv6_dhcp {
    uint8_t enabled; /* service on */
    uint32_t mode;   /* kind of service, code */
};

/* A search domain. The host makes the chain (kelmora_ipv6_dhcp_domains_add), and frees it. */
struct kelmora_ipv6_dhcp_server_domain {
    char domain[255];                             /* domain name */
    struct kelmora_ipv6_dhcp_server_domain *next; /* NULL at the end */
};

/* A DNS server. The host makes the chain (kelmora_ipv6_dhcp_dns_servers_add), and frees it. */
struct kelmora_ipv6_dhcp_server_dns_server {
    char address[46];                                 /* IPv6 address */
    struct kelmora_ipv6_dhcp_server_dns_server *next; /* NULL at the end */
};

/* The DHCPv6 server. Times are in the host's unit. */
struct kelmora_ipv6_dhcp_server {
    uint32_t mode;                                           /* mode code */
    char ip_pool_range_start[46];                            /* first address of the pool */
    char ip_pool_range_end[46];                              /* last address of the pool */
    uint32_t prefix_length;                                  /* bits of the pool's prefix */
    uint32_t valid_lifetime;                                 /* valid lifetime of a lease */
    uint32_t preffered_lifetime;                             /* preferred lifetime of a lease; spelled as on the wire */
    uint32_t renew_time;                                     /* T1 */
    uint32_t rebind_time;                                    /* T2 */
    char client_duid[3];                                     /* client DUID option, two characters at most */
    struct kelmora_ipv6_dhcp_server_domain *domains;         /* chain of search domains, NULL when empty */
    struct kelmora_ipv6_dhcp_server_dns_server *dns_servers; /* chain of DNS servers, NULL when empty */
};

/* The DHCPv6 relay. */
struct kelmora_ipv6_dhcp_relay {
    char interfaceID[20]; /* interface towards the server */
};

/* A client of the DHCPv6 server; read-only. */
struct kelmora_ipv6_dhcp_client {
    char ip_address[46]; /* address leased to it */
    char duid[128];      /* its DUID */
    uint32_t aging_time; /* age of the lease, in the host's unit */
};

/* ---- Routes and neighbours */

/* A static route. */
struct kelmora_ipv6_static_route {
    uint8_t enable;       /* route active */
    char destination[46]; /* destination prefix */
    char next_hop[46];    /* gateway */
    uint32_t metric;      /* metric */
    char interface[20];   /* outgoing interface */
};

/* A route of the routing table. The host makes and frees the chain. */
struct kelmora_ipv6_static_route_list_entry {
    char destination[46];                              /* destination prefix */
    char next_hop[46];                                 /* gateway */
    char flags[10];                                    /* flags, as a string */
    uint32_t metric;                                   /* metric */
    uint16_t ref;                                      /* references to the route */
    uint16_t use;                                      /* how often it was used */
    char interfaceID[20];                              /* outgoing interface */
    struct kelmora_ipv6_static_route_list_entry *next; /* NULL at the end */
};

/* The routing table; read-only. */
struct kelmora_ipv6_static_route_list {
    struct kelmora_ipv6_static_route_list_entry *ipv6_static_route_list; /* chain of routes, NULL when empty */
};

/* A neighbour. */
struct kelmora_neighbour_hosts {
    char ip_addr[47];     /* IPv6 address */
    char mac_addr[18];    /* MAC address */
    char interfaceID[20]; /* interface that it is reached through */
    uint32_t nud;         /* state of the neighbour unreachability detection, code */
};

#endif
