/* Records of the WAN and LAN sides: interfaces and connections, LAN addressing, hosts, ports and bridging. */
#ifndef KELMORA_RECORDS_WAN_LAN_H
#define KELMORA_RECORDS_WAN_LAN_H

#include <stdint.h>

/* An IPv6 address of an interface or of a connected device. Those of an interface are made by its from-translator too,
 * each a block from malloc, and freed by the host; those of a connected device are the host's alone. */
struct kelmora_ip6_address {
    char address[46];                 /* IPv6 address */
    struct kelmora_ip6_address *next; /* NULL at the end */
};

/* ---- Interfaces and WAN connections */

/* A network interface. New addresses go behind the first one that is there; those behind it are let go of, not freed.
 */
struct kelmora_interface {
    char mac[18];                         /* MAC address */
    char ip4[17];                         /* IPv4 address, dotted decimal */
    char netmask[17];                     /* IPv4 netmask, dotted decimal */
    struct kelmora_ip6_address *ip6_list; /* chain of IPv6 addresses, NULL when empty */
    int32_t ip6_count;                    /* number of IPv6 addresses, as the host counted them */
    uint32_t mtu;                         /* MTU in bytes */
    uint8_t running;                      /* the interface is up; read-only */
};

/* A WAN connection. */
struct kelmora_wan {
    char interfaceID[20];      /* name of the WAN interface */
    uint32_t mode;             /* IPv4 addressing mode code */
    uint32_t address_mode_v6;  /* IPv6 addressing mode code */
    char gateway[17];          /* IPv4 default gateway, dotted decimal */
    char gateway_v6[46];       /* IPv6 default gateway */
    uint8_t dns_v4_automatic;  /* IPv4 DNS servers are learnt automatically */
    char dns_v4_dns1[46];      /* first IPv4 DNS server */
    char dns_v4_dns2[46];      /* second IPv4 DNS server */
    char dns_v4_dns3[46];      /* third IPv4 DNS server */
    uint8_t dns_v6_automatic;  /* IPv6 DNS servers are learnt automatically */
    char dns_v6_dns1[46];      /* first IPv6 DNS server */
    char dns_v6_dns2[46];      /* second IPv6 DNS server */
    char dns_v6_dns3[46];      /* third IPv6 DNS server */
    char clonedMac[18];        /* MAC address cloned onto the WAN port */
    uint8_t napt_enable;       /* address translation on this connection */
    uint8_t vlan_enable;       /* the connection is VLAN-tagged */
    uint8_t prefix_enable;     /* IPv6 prefix handling on this connection */
    uint8_t omci_configured;   /* the connection was configured through OMCI */
    uint16_t vlanID;           /* VLAN identifier */
    uint16_t multicast_vlanID; /* multicast VLAN identifier */
    uint32_t protocol;         /* connection protocol code */
};

/* Credentials of a PPPoE connection. */
struct kelmora_pppoe {
    char interfaceID[128]; /* name of the interface */
    char username[130];    /* user name */
    char password[130];    /* password, in clear */
    char service[41];      /* service name */
    char server[41];       /* access concentrator name */
    uint32_t mtu;          /* MTU in bytes */
};

/* What probing the WAN line found; numbers, not switches. */
struct kelmora_wan_detect {
    uint32_t hasDHCP;   /* a DHCP server */
    uint32_t hasPPPoE;  /* a PPPoE server */
    uint32_t hasStatic; /* a static setup */
};

/* A LAN port that may be bound to a WAN connection. */
struct kelmora_wan_lan_list_entry {
    char lan_id[10]; /* name of the LAN port; empty: the entry is unused */
    uint8_t enabled; /* bound */
};

/* The LAN ports bound to a WAN connection. */
struct kelmora_wan_lan_list {
    struct kelmora_wan_lan_list_entry lan_list[16]; /* used and unused entries in any order */
};

/* The services that a WAN connection carries. */
struct kelmora_wan_service_type {
    uint8_t service_other_video; /* video and other */
    uint8_t service_tr069;       /* TR-069 */
    uint8_t service_internet;    /* internet access */
    uint8_t service_voice;       /* voice */
};

/* ---- LAN and DHCPv4 */

/* A LAN interface. */
struct kelmora_lan {
    char interfaceID[128]; /* name of the interface */
    char gateway[17];      /* its IPv4 address, the gateway of the LAN's hosts, dotted decimal */
};

/* A current lease of the DHCPv4 server. The host makes and frees the chain. */
struct kelmora_dhcp_server_lease {
    char mac[18];                           /* MAC address of the client */
    char ip[17];                            /* IPv4 address leased to it, dotted decimal */
    struct kelmora_dhcp_server_lease *next; /* NULL at the end */
};

/* The DHCPv4 server. */
struct kelmora_dhcp_server {
    uint8_t enabled;                          /* the server runs */
    char interface[128];                      /* interface that it serves */
    char rangeStart[17];                      /* first address of the pool, dotted decimal */
    char rangeEnd[17];                        /* last address of the pool, dotted decimal */
    uint32_t dns_mode;                        /* how DNS servers are handed out, code */
    char dns1[17];                            /* first DNS server handed out, dotted decimal */
    char dns2[17];                            /* second DNS server handed out, dotted decimal */
    struct kelmora_dhcp_server_lease *leases; /* chain of current leases, NULL when empty; read-only */
    int32_t dhcpLeaseTime;                    /* lease time, in the host's unit */
};

/* A static DHCPv4 lease. */
struct kelmora_dhcp_static_lease {
    char description[33]; /* free text */
    char mac[18];         /* MAC address of the client */
    char ip[17];          /* IPv4 address reserved for it, dotted decimal */
};

/* A DHCPv4 client seen on the LAN; read-only. */
struct kelmora_dhcp_client {
    char ip[17];         /* its IPv4 address, dotted decimal */
    char hostname[80];   /* its host name */
    char mac[18];        /* its MAC address */
    uint32_t aging_time; /* remaining lease time, in the host's unit */
};

/* ---- Hosts, ports, counters and bridging */

/* A device connected to the gateway; read-only. */
struct kelmora_connected_device {
    char hostname[255];                   /* host name */
    char ip[17];                          /* IPv4 address, dotted decimal */
    char mac[18];                         /* MAC address */
    char network[128];                    /* interface or wireless network that it is attached to */
    uint32_t opMode;                      /* attachment mode code */
    double txRate;                        /* transmit rate, in the host's unit */
    double rxRate;                        /* receive rate, in the host's unit */
    uint32_t txBytes;                     /* bytes sent */
    uint32_t rxBytes;                     /* bytes received */
    int32_t unitySize;                    /* unit code of the byte counters */
    uint32_t time;                        /* connection time, in the host's unit */
    int32_t signalLevel;                  /* signal level of a wireless device, may be negative */
    uint32_t isStaticIP;                  /* switch of 32 bits: the address is a static lease */
    uint32_t isDMZ;                       /* switch of 32 bits: the device is the DMZ host */
    struct kelmora_ip6_address *ip6_list; /* chain of IPv6 addresses, NULL when empty */
    int32_t ip6_count;                    /* number of IPv6 addresses, as the host counted them */
    uint32_t frequency;                   /* radio band or frequency of a wireless device */
};

/* Traffic counters of an interface. */
struct kelmora_interface_statistics {
    char interfaceID[128]; /* name of the interface */
    uint32_t tx;           /* sent */
    uint32_t rx;           /* received */
    int32_t unity_size;    /* unit code of the counters */
    uint32_t time;         /* time of the counters, in the host's unit */
};

/* Status of the LAN ports; read-only. */
struct kelmora_lan_port_status {
    char status[256]; /* status in words */
};

/* An entry of the bridge's table of learnt MAC addresses. The host makes and frees the chain. */
struct kelmora_bridging_mac {
    uint16_t port;                     /* port number */
    char mac_addr[18];                 /* MAC address */
    uint8_t is_local;                  /* the address is the bridge's own */
    char ageing_time[10];              /* age of the entry, as a string */
    struct kelmora_bridging_mac *next; /* NULL at the end */
};

/* The bridge. */
struct kelmora_bridging {
    uint32_t ageing_time;                  /* ageing time of its table, in the host's unit */
    uint8_t spanning_tree_802_1_d;         /* 802.1D spanning tree on (key "802_1_d_spanning_tree") */
    struct kelmora_bridging_mac *mac_list; /* chain of learnt addresses, NULL when empty; read-only */
};

#endif
