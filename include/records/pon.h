/* Records of PON access: settings, states and counters. */
#ifndef KELMORA_RECORDS_PON_H
#define KELMORA_RECORDS_PON_H

#include <stdint.h>

/* Identity and credentials of the optical network unit. */
struct kelmora_pon_settings {
    char mode[5];                   /* PON mode, as a string */
    char oam_model_id[5];           /* OAM: model identifier */
    char oam_vendor_id[17];         /* OAM: vendor identifier */
    char onu_id_mac[13];            /* OAM: MAC address that identifies the unit, twelve characters at most */
    char oam_hardware_version[32];  /* OAM: hardware version */
    char omci_model_id[64];         /* OMCI: model identifier */
    char omci_vendor_id[5];         /* OMCI: vendor identifier */
    char serial_number[13];         /* OMCI: serial number */
    char omci_hardware_version[32]; /* OMCI: hardware version */
    uint8_t olt_profile;            /* OMCI: interoperability profile of the line terminal, number */
    char loid[30];                  /* logical identifier of the unit */
    char loid_password[37];         /* its password, in clear */
    char ploam_password[76];        /* PLOAM password, in clear */
};

/* Throughput and packet rates, in the host's units; read-only, as all that follows. */
struct kelmora_pon_stats {
    uint32_t throughput_tx; /* throughput sent */
    uint32_t throughput_rx; /* throughput received */
    uint32_t pps_tx;        /* packets sent per second */
    uint32_t pps_rx;        /* packets received per second */
};

/* An optical network unit that was seen. */
struct kelmora_pon_nodes {
    uint8_t ponOnuId;                /* its number */
    char model[128];                 /* its model */
    uint8_t gpon_provisioning_state; /* provisioning state code */
};

/* Counters of the link. */
struct kelmora_pon_counters {
    uint32_t tx_bytes;             /* bytes sent */
    uint32_t rx_bytes;             /* bytes received */
    uint32_t tx_packets;           /* packets sent */
    uint32_t rx_packets;           /* packets received */
    uint32_t tx_unicast_packets;   /* unicast packets sent */
    uint32_t rx_unicast_packets;   /* unicast packets received */
    uint32_t tx_multicast_packets; /* multicast packets sent */
    uint32_t rx_multicast_packets; /* multicast packets received */
    uint32_t tx_broadcast_packets; /* broadcast packets sent */
    uint32_t rx_broadcast_packets; /* broadcast packets received */
    uint32_t tx_pause_packets;     /* pause frames sent */
    uint32_t rx_pause_packets;     /* pause frames received */
    uint32_t fec_errors;           /* forward error correction errors */
    uint32_t hec_errors;           /* header error control errors */
    uint32_t dropped_packets;      /* packets dropped */
};

/* State of the GPON activation. */
struct kelmora_gpon_status {
    uint32_t onu_state;      /* number of the activation state, 0 when unknown */
    uint8_t onu_id;          /* number of the unit */
    char onu_state_desc[20]; /* the state in words */
};

/* Packets of a GEM port. */
struct kelmora_gem_port_stats {
    uint32_t pkt_count;         /* packets */
    uint32_t gemport_id;        /* number of the port */
    uint32_t gemport_direction; /* 1 upstream, 2 downstream */
};

/* Readings of the optical module, in the host's units. */
struct kelmora_pon_status {
    float bias_current;   /* bias current of the laser */
    char part_number[64]; /* part number of the module */
    float rx_power;       /* power received */
    float temperature;    /* temperature */
    char vendor_name[64]; /* vendor of the module */
    float tx_power;       /* power sent */
    float voltage;        /* supply voltage */
    char current_mode[5]; /* PON mode, as a string */
};

/* State of a logical link of EPON. */
struct kelmora_epon_llid_status {
    uint16_t llid_id;              /* number of the link */
    uint16_t llid_id_status;       /* state code */
    char llid_id_status_desc[128]; /* the state in words */
};

#endif
