/* Records of Wi-Fi networks, radios, scan results, access control and mesh. */
#ifndef KELMORA_RECORDS_WIRELESS_H
#define KELMORA_RECORDS_WIRELESS_H

#include <stdint.h>

/* One Wi-Fi network (SSID). */
struct kelmora_wireless {
    uint32_t mode;            /* operating mode code */
    uint8_t enabled;          /* network switched on */
    uint32_t ieee_std;        /* IEEE 802.11 standard code */
    char interfaceID[129];    /* host interface that the network belongs to */
    char radioID[129];        /* radio that carries it */
    uint8_t broadcast;        /* SSID is broadcast */
    char ssid[33];            /* network name */
    char bssid[18];           /* BSSID, six colon-separated hexadecimal pairs; read-only */
    uint32_t cipher;          /* cipher code */
    uint32_t crypto;          /* security (authentication) code */
    char key[64];             /* pass phrase, in clear */
    uint8_t wps;              /* WPS on */
    uint8_t isRoot;           /* the network belongs to the root (main) device */
    int32_t client_mode_rssi; /* RSSI threshold in client mode, may be negative */
    uint8_t guest_network;    /* network is a guest network */
};

/* One radio: its band, channel and features. */
struct kelmora_radio {
    uint8_t enabled;            /* radio on */
    uint32_t opMode;            /* operating mode code */
    uint32_t frequency;         /* band or frequency code */
    uint32_t configuredChannel; /* channel set by the user */
    uint32_t channel;           /* channel in use */
    uint32_t extension;         /* extension-channel code */
    uint32_t bandwidth;         /* channel-width code */
    uint8_t mu_mimo;            /* MU-MIMO on */
    uint8_t beamforming;        /* beamforming on */
    uint8_t ofdma;              /* OFDMA on */
    uint8_t twt;                /* target wake time on */
    uint32_t power;             /* transmit power setting */
};

/* One access point that a scan found; read-only. */
struct kelmora_site_survey {
    char ssid[33];        /* network name */
    int32_t signal_level; /* received signal level, may be negative */
    int32_t channel;      /* channel */
    uint32_t extension;   /* extension-channel code */
    uint32_t bandwidth;   /* channel-width code */
    char mac[18];         /* BSSID */
    uint32_t cipher;      /* cipher code */
    uint32_t crypto;      /* security code */
    uint32_t op_mode;     /* operating mode code */
};

/* An address on the access list. The host makes the chain (kelmora_wlan_access_control_allocate_list), and
 * frees it. */
struct kelmora_wlan_access_control_mac {
    char mac[18];                                 /* MAC address */
    struct kelmora_wlan_access_control_mac *next; /* NULL at the end */
};

/* The access list of a Wi-Fi network. */
struct kelmora_wlan_access_control {
    uint32_t mode;                                    /* access control mode code */
    struct kelmora_wlan_access_control_mac *mac_list; /* chain of addresses, NULL when empty */
};

/* A neighbour in the mesh. Those of the first level are made by the from-translator too, each a block from malloc; the
 * host frees all, and makes those of the levels below. */
struct kelmora_easymesh_neighbor {
    char name[64];                               /* name of the node */
    char model[64];                              /* its model */
    uint8_t is_online;                           /* it can be reached */
    char ip[17];                                 /* its IPv4 address, dotted decimal */
    char mac[18];                                /* its MAC address */
    int32_t rssi;                                /* signal level, may be negative */
    uint32_t backhaul;                           /* kind of backhaul link, code */
    struct kelmora_easymesh_neighbor *neighbors; /* chain of its own neighbours, NULL when it has none; read-only */
    struct kelmora_easymesh_neighbor *next;      /* next node of the same level, NULL at the end */
};

/* The mesh, as this node sees it. A document's list of neighbours takes the place of the whole chain, which is let go
 * of, not freed. */
struct kelmora_easymesh {
    uint8_t enabled;                             /* mesh on */
    char controllerIp[17];                       /* IPv4 address of the controller, dotted decimal */
    char backhaul_mac[18];                       /* MAC address at the far end of the backhaul link; read-only */
    int32_t backhaul_rssi;                       /* its signal level, may be negative; read-only */
    uint32_t type;                               /* role of this node, code */
    uint32_t backhaul;                           /* kind of backhaul link, code */
    struct kelmora_easymesh_neighbor *neighbors; /* chain of neighbours, NULL when empty */
    uint32_t syncing;                            /* synchronisation state code; read-only */
};

#endif
