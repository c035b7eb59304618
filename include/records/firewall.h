/* Records of the firewall: port forwarding, packet filters, content blocking, access control and dynamic DNS. */
#ifndef KELMORA_RECORDS_FIREWALL_H
#define KELMORA_RECORDS_FIREWALL_H

#include <stdint.h>

/* ---- Port forwarding and NAT redirects */

/* A redirect of external ports to an address and ports of the LAN. */
struct kelmora_natportredirect {
    char description[32];         /* free text */
    uint32_t protocol;            /* protocol code */
    uint32_t external_port_start; /* first external port */
    uint32_t external_port_end;   /* last external port */
    char internalIP[17];          /* IPv4 address in the LAN, dotted decimal */
    uint32_t internal_port_start; /* first internal port */
    uint32_t internal_port_end;   /* last internal port */
};

/* Whether ports are forwarded at all. */
struct kelmora_firewall_port_forwarding_enable {
    uint8_t enabled; /* port forwarding on */
};

/* A port-forwarding rule. */
struct kelmora_firewall_port_forwarding_table {
    char comment[60];          /* free text */
    char local_ip[17];         /* IPv4 address in the LAN, dotted decimal */
    uint16_t local_port_from;  /* first port in the LAN */
    uint16_t local_port_to;    /* last port in the LAN */
    uint32_t protocol;         /* protocol code */
    char remote_ip[17];        /* IPv4 address outside, dotted decimal */
    uint16_t remote_port_from; /* first port outside */
    uint16_t remote_port_to;   /* last port outside */
    char interface[20];        /* interface that the rule applies to */
};

/* ---- Packet filters */

/* A filter rule of the general list. */
struct kelmora_filter {
    uint8_t enabled;      /* rule active */
    char description[33]; /* free text */
    uint32_t protocol;    /* protocol code */
    uint32_t type;        /* filter type code */
    char target[201];     /* what the rule applies to */
    int32_t port_start;   /* first port, may be negative */
    int32_t port_end;     /* last port, may be negative */
    uint32_t policy;      /* policy code */
};

/* A rule of the MAC filter. Made by the from-translator, each a block from malloc, and freed by the host. */
struct kelmora_firewall_mac_filtering_entry {
    uint32_t direction;                                /* direction code */
    char source_mac[18];                               /* MAC address */
    char destination_mac[18];                          /* MAC address */
    uint32_t rule_action;                              /* action code */
    struct kelmora_firewall_mac_filtering_entry *next; /* NULL at the end */
};

/* The MAC filter. New rules go behind the first one that is there; those behind it are let go of, not freed. */
struct kelmora_firewall_mac_filtering {
    uint32_t incoming_default_act;                      /* action code for incoming traffic that no rule matches */
    uint32_t outgoing_default_act;                      /* the same for outgoing traffic */
    struct kelmora_firewall_mac_filtering_entry *entry; /* chain of rules, NULL when empty */
};

/* A rule of the IPv4 address and port filter. Made by the from-translator, each a block from malloc, and freed by the
 * host. */
struct kelmora_firewall_ip_port_filtering_rule {
    uint8_t rule_action;                                  /* a switch here, not a code */
    char source_ip_address[17];                           /* IPv4 address, dotted decimal */
    char dest_ip_address[17];                             /* IPv4 address, dotted decimal */
    uint8_t source_subnet_mask;                           /* mask length in bits */
    uint8_t dest_subnet_mask;                             /* mask length in bits */
    uint16_t source_port_from;                            /* first source port */
    uint16_t source_port_to;                              /* last source port */
    uint16_t dest_port_from;                              /* first destination port */
    uint16_t dest_port_to;                                /* last destination port */
    uint32_t direction;                                   /* direction code */
    uint32_t protocol;                                    /* protocol code */
    char interface_index[20];                             /* name or index of the interface, as a string */
    struct kelmora_firewall_ip_port_filtering_rule *next; /* NULL at the end */
};

/* The IPv4 address and port filter. New rules go behind the first one that is there; those behind it are let go of, not
 * freed. */
struct kelmora_firewall_ip_port_filtering {
    uint32_t outgoing_default_action; /* action code for outgoing traffic that no rule matches */
    uint32_t incoming_default_action; /* the same for incoming traffic */
    struct kelmora_firewall_ip_port_filtering_rule *filter_lists; /* chain of rules, NULL when empty */
};

/* A rule of the IPv6 address and port filter. */
struct kelmora_ipv6_ip_port_filter {
    uint32_t direction;             /* direction code */
    uint32_t protocol;              /* protocol code */
    uint32_t rule_action;           /* action code */
    char src_start[46];             /* first source address */
    char src_end[46];               /* last source address */
    uint16_t src_prefix_length;     /* bits of the source prefix */
    char dst_start[46];             /* first destination address */
    char dst_end[46];               /* last destination address */
    uint16_t dst_prefix_length;     /* bits of the destination prefix */
    uint32_t source_port_from;      /* first source port */
    uint32_t source_port_to;        /* last source port */
    uint32_t destination_port_from; /* first destination port */
    uint32_t destination_port_to;   /* last destination port */
    char interface_id[20];          /* name of the interface */
};

/* What the IPv6 address and port filter does with traffic that no rule matches. */
struct kelmora_ipv6_ip_port_filter_default_rule {
    uint32_t default_incoming_action; /* action code for incoming traffic */
    uint32_t default_outgoing_action; /* action code for outgoing traffic */
};

/* ---- Content blocking and parental control */

/* A blocked domain. Made by the from-translator, each a block from malloc, and freed by the host. */
struct kelmora_firewall_domain_blocking_domain {
    char domain[120];                                     /* domain name */
    struct kelmora_firewall_domain_blocking_domain *next; /* NULL at the end */
};

/* The blocked domains. New ones go behind the first one that is there; those behind it are let go of, not freed. */
struct kelmora_firewall_domain_blocking {
    uint8_t enable;                                          /* blocking on */
    struct kelmora_firewall_domain_blocking_domain *domains; /* chain, NULL when empty */
};

/* A blocked URL. Made by the from-translator, each a block from malloc, and freed by the host. */
struct kelmora_firewall_url_blocking_url {
    char url[128];                                  /* URL */
    struct kelmora_firewall_url_blocking_url *next; /* NULL at the end */
};

/* A blocked word. Made by the from-translator, each a block from malloc, and freed by the host. */
struct kelmora_firewall_url_blocking_keyword {
    char keyword[20];                                   /* word that a URL must not have */
    struct kelmora_firewall_url_blocking_keyword *next; /* NULL at the end */
};

/* The blocked URLs and the words that block one. In each chain, new ones go behind the first one that is there; those
 * behind it are let go of, not freed. */
struct kelmora_firewall_url_blocking {
    uint8_t enable;                                         /* blocking on */
    struct kelmora_firewall_url_blocking_url *urls;         /* chain, NULL when empty */
    struct kelmora_firewall_url_blocking_keyword *keywords; /* chain, NULL when empty */
};

/* A time rule for one user. The host makes the chain (kelmora_parental_control_allocate_list), and frees it. */
struct kelmora_parental_control_rule {
    char username[32];                          /* user that the rule applies to */
    uint32_t address_type;                      /* how the user's device is identified, code */
    char ip_address_from[17];                   /* first IPv4 address of the device, dotted decimal */
    char ip_address_to[17];                     /* last IPv4 address, dotted decimal */
    char mac_address[18];                       /* MAC address of the device */
    uint32_t days;                              /* days that the rule applies on, the host's code or bit set */
    uint8_t hours_begin;                        /* begin: hour */
    uint8_t minutes_begin;                      /* begin: minute */
    uint8_t hours_end;                          /* end: hour */
    uint8_t minutes_end;                        /* end: minute */
    struct kelmora_parental_control_rule *next; /* NULL at the end */
};

/* Parental control. */
struct kelmora_parental_control {
    uint8_t enabled;                                             /* parental control on */
    struct kelmora_parental_control_rule *parental_control_list; /* chain of rules, NULL when empty */
};

/* ---- Access control of the device's own services */

/* Whether the device has IPv4 service access control, and for which services. */
struct kelmora_acl_capability {
    uint8_t capability;            /* supported; key "acl_capability" */
    char available_services[8][7]; /* names of the services, empty where unused; read-only */
};

/* The same for IPv6. */
struct kelmora_ipv6_acl_capability {
    uint8_t capability;            /* supported; key "ipv6_acl_capability" */
    char available_services[8][7]; /* names of the services, empty where unused; read-only */
};

/* Access to one service. */
struct kelmora_acl_config_service {
    uint8_t enable; /* reachable */
    uint16_t port;  /* port that it listens on */
};

/* An IPv4 access rule. */
struct kelmora_acl_config {
    char interfaceID[20];                             /* interface that the rule applies to */
    char ip_start_addr[17];                           /* first IPv4 address, dotted decimal */
    char ip_end_addr[17];                             /* last IPv4 address, dotted decimal */
    uint8_t enable;                                   /* rule active */
    uint8_t service_any;                              /* all services reachable */
    uint8_t service_tftp;                             /* TFTP reachable */
    uint8_t service_ping;                             /* answers to ping */
    struct kelmora_acl_config_service service_telnet; /* Telnet */
    struct kelmora_acl_config_service service_ftp;    /* FTP */
    struct kelmora_acl_config_service service_http;   /* HTTP */
    struct kelmora_acl_config_service service_https;  /* HTTPS */
    struct kelmora_acl_config_service service_ssh;    /* SSH */
};

/* An IPv6 access rule. */
struct kelmora_ipv6_acl_config {
    char interfaceID[20];      /* interface that the rule applies to */
    char ip6_start_addr[46];   /* IPv6 address */
    uint8_t ip6_prefix_length; /* bits of it that count */
    uint8_t enable;            /* rule active */
    uint8_t service_any;       /* all services reachable */
    uint8_t service_telnet;    /* Telnet reachable */
    uint8_t service_ftp;       /* FTP reachable */
    uint8_t service_tftp;      /* TFTP reachable */
    uint8_t service_http;      /* HTTP reachable */
    uint8_t service_https;     /* HTTPS reachable */
    uint8_t service_ping;      /* answers to ping */
    uint8_t service_ssh;       /* SSH reachable */
};

/* ---- Raw rules, application-level gateways and dynamic DNS */

/* A raw packet filter rule. */
struct kelmora_iptables {
    uint32_t ip_protocol;          /* address family code */
    int32_t position;              /* position in the chain, may be negative */
    uint32_t chain;                /* chain code */
    uint32_t protocol;             /* transport protocol code */
    char source_ip[46];            /* source: IPv4 or IPv6 address */
    char source_mac[18];           /* source: MAC address */
    char source_interface[6];      /* source: interface name */
    int32_t source_port;           /* source: port, may be negative */
    char destination_ip[46];       /* destination: IPv4 or IPv6 address */
    char destination_mac[18];      /* destination: MAC address */
    char destination_interface[6]; /* destination: interface name */
    int32_t destination_port;      /* destination: port, may be negative */
    char url[129];                 /* URL to match */
    uint32_t policy;               /* verdict code */
};

/* The application-level gateways. */
struct kelmora_firewall_alg {
    uint8_t ftp_enabled;    /* FTP */
    uint8_t tftp_enabled;   /* TFTP */
    uint8_t h323_enabled;   /* H.323 */
    uint8_t rtsp_enabled;   /* RTSP */
    uint8_t l2tp_enabled;   /* L2TP pass-through */
    uint8_t ip_sec_enabled; /* IPsec pass-through */
    uint8_t sip_enabled;    /* SIP */
    uint8_t pptp_enabled;   /* PPTP pass-through */
};

/* An account with a dynamic DNS provider. */
struct kelmora_ddns {
    uint32_t provider;     /* provider code */
    char hostname[35];     /* host name to keep up to date */
    char interface[20];    /* interface whose address it follows */
    char username[35];     /* user name */
    char password[35];     /* password, in clear */
    uint8_t enabled;       /* client on; a number in JSON */
    uint32_t instance_num; /* instance number */
    uint16_t service_port; /* port of the provider's service */
    uint32_t status;       /* state of the last update, code */
};

#endif
