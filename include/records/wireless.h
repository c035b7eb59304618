/* Records of Wi-Fi networks, radios and scan results. */
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
    char mac[18];         /* BSSID as text */
    uint32_t cipher;      /* cipher code */
    uint32_t crypto;      /* security code */
    uint32_t op_mode;     /* operating mode code */
};

#endif
