/* Records of the device as a whole: accounts and remote access, identity and limits, maintenance, clock and log. */
#ifndef KELMORA_RECORDS_DEVICE_H
#define KELMORA_RECORDS_DEVICE_H

#include <stdint.h>

/* ---- Accounts and remote access */

/* A login request, or a user who is logged in. */
struct kelmora_session {
    char username[34]; /* account name */
    char password[34]; /* password, in clear; never written out */
    char token[130];   /* session token; never written out */
};

/* A management account. */
struct kelmora_user {
    char username[33];     /* account name */
    char password[33];     /* password, in clear */
    uint8_t is_privileged; /* the account is privileged */
};

/* One front-end resource that the limited user may reach. The host makes and frees the chain and its strings. */
struct kelmora_limited_user_permissions_entry {
    const char *resource_name;                           /* NUL-terminated string of any length, the host's */
    uint32_t resource_id;                                /* the front end's number of it */
    struct kelmora_limited_user_permissions_entry *next; /* NULL at the end */
};

/* What the limited user may reach; read-only. */
struct kelmora_limited_user_permissions {
    struct kelmora_limited_user_permissions_entry *limited_user_permissions; /* chain, NULL when empty */
};

/* Management from the WAN side. */
struct kelmora_remote_web_access {
    uint8_t enabled;         /* management from the WAN allowed */
    uint32_t port;           /* port of the management web server on the WAN side */
    uint8_t enable_ip_range; /* only a range of source addresses is allowed */
    char rangeStart[17];     /* first allowed IPv4 address, dotted decimal */
    char rangeEnd[17];       /* last allowed IPv4 address, dotted decimal */
    uint8_t ipv6Enabled;     /* remote access over IPv6 allowed */
    uint8_t pingWan;         /* the device answers ping on the WAN side */
};

/* The telnet service; write-only. */
struct kelmora_telnet {
    uint8_t enable;    /* service on */
    char password[48]; /* password, in clear */
};

/* ---- Identity, status and limits */

/* The device's identity and a few switches of its front end. */
struct kelmora_device {
    char model[64];        /* model name; read-only */
    uint32_t uptime;       /* time since start, in the host's unit; read-only */
    char fw_version[64];   /* firmware version; read-only */
    char alias[64];        /* user-given device name */
    uint8_t show_wizard;   /* the set-up wizard is to be shown */
    uint8_t login_enable;  /* login to the management front end is required */
    uint8_t leds;          /* LEDs on */
    uint8_t is_manageable; /* the device may be managed */
};

/* A summary of connectivity; read-only. */
struct kelmora_status {
    uint8_t wan_cable;          /* a cable is in the WAN port */
    uint8_t has_internet;       /* the internet is reachable */
    uint8_t tavoline_connected; /* connected to the remote-management cloud service */
    uint8_t firmware_update;    /* a firmware update is available */
    uint32_t wps_status;        /* WPS state code */
};

/* System-wide switches. */
struct kelmora_system {
    uint8_t upnp;                 /* UPnP on */
    uint8_t sip_alg;              /* SIP ALG on */
    char upnp_wan_if[20];         /* WAN interface that UPnP serves */
    uint32_t operationMode;       /* operation mode code */
    uint8_t dmz_enabled;          /* DMZ on */
    char dmz_ip4[17];             /* DMZ host's IPv4 address, dotted decimal */
    uint8_t ipv6_enabled;         /* IPv6 on */
    uint8_t limited_user_enabled; /* the limited user account is enabled */
};

/* Information to read, and a password to write. */
struct kelmora_mp_info {
    char info[127];    /* information to show; read-only */
    char password[48]; /* password, in clear; write-only */
};

/* A Wi-Fi limit of one radio. Made by the from-translator, each a block from malloc, and freed by the host. */
struct kelmora_limits_wifi_limit {
    char radio_id[7];                       /* radio that it holds for */
    int32_t value;                          /* the limit */
    struct kelmora_limits_wifi_limit *next; /* NULL at the end */
};

/* How much the device's tables hold. Each entry of a document goes in front of the chain that is there. */
struct kelmora_limits {
    int32_t port_redirect;                         /* maximum number of port-redirect rules */
    int32_t qos_rules;                             /* maximum number of QoS rules */
    int32_t static_leases;                         /* maximum number of static DHCP leases */
    struct kelmora_limits_wifi_limit *wifi_limits; /* chain of limits of the radios, NULL when empty */
    int32_t filter_ip;                             /* maximum number of IP filter rules */
    int32_t filter_mac;                            /* maximum number of MAC filter rules */
    int32_t filter_port;                           /* maximum number of port filter rules */
    int32_t filter_url;                            /* maximum number of URL filter rules */
};

/* ---- Maintenance */

/* An action for the host to perform. */
struct kelmora_action {
    uint32_t actionID; /* action code */
};

/* A firmware upgrade from an uploaded file; write-only. */
struct kelmora_upgrade_by_file {
    uint8_t file[8]; /* the host's description of the file, opaque */
};

/* The reset button's time that triggers a factory reset. */
struct kelmora_factory_default {
    int32_t pressedTime; /* how long the button was or must be held, in the host's unit */
};

/* A backup of the configuration, or its restoration. */
struct kelmora_backup_restore {
    uint8_t backup[8]; /* the host's description of the backup, opaque */
};

/* A switch to another firmware version. */
struct kelmora_change_to_firmware_version {
    uint8_t change;   /* switch requested or possible */
    char version[32]; /* the other firmware's version; read-only */
};

/* Whether a customised default configuration is in use. */
struct kelmora_custom_default_config {
    uint8_t enabled; /* in use */
};

/* A daily reboot. */
struct kelmora_daily_reboot {
    int32_t hour;   /* hour of the day */
    int32_t minute; /* minute of the hour */
    uint8_t enable; /* schedule on */
    uint8_t delay;  /* postpone the reboot */
};

/* A window for automatic maintenance. */
struct kelmora_automatic_maintenance {
    uint8_t enabled; /* window on */
    uint8_t hour;    /* hour of the day */
    uint8_t min;     /* minute of the hour */
};

/* ---- Clock and log */

/* A time zone that the device offers. The host makes and frees the chain and its strings. */
struct kelmora_datetime_timezone {
    uint32_t id;                            /* number of the zone */
    const char *region;                     /* NUL-terminated string of any length, the host's */
    struct kelmora_datetime_timezone *next; /* NULL at the end */
};

/* The clock, its time zone and its NTP client. */
struct kelmora_datetime {
    uint32_t datetime;                               /* current time, the host's count; read-only */
    char timezone[8];                                /* identifier of the selected time zone */
    struct kelmora_datetime_timezone *timezone_list; /* chain of the zones offered, NULL when empty; read-only */
    uint8_t synced;                                  /* clock is synchronised; read-only */
    uint8_t dst_enabled;                             /* daylight saving on */
    uint8_t ntp_enabled;                             /* NTP client on */
    uint8_t ntp_automatic;                           /* NTP servers are chosen automatically */
    char ntp_server1[255];                           /* first NTP server */
    char ntp_server2[255];                           /* second NTP server */
};

/* Forwarding of the system log to a remote server. */
struct kelmora_syslog {
    uint8_t enabled;         /* forwarding on */
    char server[255];        /* remote log server */
    int32_t port;            /* its port */
    uint32_t severity_level; /* lowest severity that is forwarded, code */
};

#endif
