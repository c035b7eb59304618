/* Records of remote management: TR-069 and TR-369. */
#ifndef KELMORA_RECORDS_REMOTE_MGMT_H
#define KELMORA_RECORDS_REMOTE_MGMT_H

#include "../kelmora_config.h"

#include <stdint.h>

/* ---- TR-069 */

/* The TR-069 client. */
struct kelmora_tr069_config {
    uint8_t tr069_enable;                                    /* client on */
    char acs_url[257];                                       /* auto-configuration server: URL */
    char acs_username[257];                                  /* auto-configuration server: user name */
    char acs_password[257];                                  /* auto-configuration server: password, in clear */
    uint8_t tr069_inform;                                    /* periodic informs on */
    uint32_t tr069_interval;                                 /* time between periodic informs, in the host's unit */
    uint8_t connection_enabled;                              /* connection requests: accepted */
    char conreq_name[257];                                   /* connection requests: user name */
    char conreq_pw[257];                                     /* connection requests: password, in clear */
    char conreq_path[257];                                   /* connection requests: path of the URL */
    int32_t conreq_port;                                     /* connection requests: port */
    uint8_t stun_enabled;                                    /* STUN on */
    char stun_server_addr[257];                              /* address of the STUN server */
    int32_t stun_server_port;                                /* port of the STUN server */
    unsigned char host_block[KELMORA_TR069_HOST_BLOCK_SIZE]; /* the host's; not part of the JSON document */
    char ca_cert[4097];                                      /* certificate for the connection to the server */
};

/* What came of the last inform; read-only. */
struct kelmora_tr069_inform {
    uint32_t status; /* result code */
    char *cause;     /* explanation: NUL-terminated, of any length, the host's, or NULL */
};

/* ---- TR-369 */

/* A topic that an MQTT client subscribes to. The host makes the chain
 * (kelmora_tr369_mqttt_client_subscription_add_element), and frees it. */
struct kelmora_tr369_mqtt_client_subscription {
    uint8_t enabled;                                     /* subscription active */
    char topic[256];                                     /* topic */
    uint32_t qos;                                        /* MQTT quality of service level */
    struct kelmora_tr369_mqtt_client_subscription *next; /* NULL at the end */
};

/* An MQTT client of the agent. */
struct kelmora_tr369_mqtt_client {
    uint8_t enabled;                                             /* client on */
    char brokeraddress[256];                                     /* address of the broker */
    int32_t brokerport;                                          /* port of the broker */
    char username[256];                                          /* user name */
    char password[256];                                          /* password, in clear */
    char clientID[256];                                          /* client identifier */
    int32_t keep_alive_time;                                     /* time between keep-alives, in the host's unit */
    uint32_t protocol_version;                                   /* version code of MQTT */
    uint32_t transport_protocol;                                 /* transport protocol code */
    struct kelmora_tr369_mqtt_client_subscription *subscription; /* chain of subscriptions, NULL when empty */
};

/* Values of `protocol` of a message transfer protocol (MTP). */
enum kelmora_tr369_mtp_protocol { KELMORA_TR369_MTP_WEBSOCKET = 0, KELMORA_TR369_MTP_MQTT = 1 };

/* A message transfer protocol of the agent itself. */
struct kelmora_tr369_local_agent_mtp {
    uint8_t enabled;           /* MTP active */
    uint32_t protocol;         /* KELMORA_TR369_MTP_MQTT, or a code of the host's */
    char reference[128];       /* MQTT: the client that it uses */
    char reference_topic[257]; /* MQTT: topic that responses go to */
    uint32_t qos;              /* MQTT: quality of service level */
};

/* How a controller is reached over WebSocket. */
struct kelmora_tr369_local_agent_controller_websocket {
    char host[256];              /* host name or address */
    int32_t port;                /* port */
    char path[256];              /* path of the URL */
    uint8_t encryption;          /* over TLS */
    int32_t keep_alive_interval; /* time between keep-alives, in the host's unit */
};

/* How a controller is reached over MQTT. */
struct kelmora_tr369_local_agent_controller_mqtt {
    char reference[128];       /* the client that is used */
    char reference_topic[256]; /* topic that the controller listens to */
};

/* A message transfer protocol of a controller. The host makes the chain
 * (kelmora_tr369_local_agent_controller_mtp_add), and frees it. */
struct kelmora_tr369_local_agent_controller_mtp {
    uint8_t enabled;   /* MTP active */
    uint32_t protocol; /* kelmora_tr369_mtp_protocol: which variant holds */
    union {
        struct kelmora_tr369_local_agent_controller_websocket websocket;
        struct kelmora_tr369_local_agent_controller_mqtt mqtt;
    } variant;
    struct kelmora_tr369_local_agent_controller_mtp *next; /* NULL at the end */
};

/* A controller that the agent knows. */
struct kelmora_tr369_local_agent_controller {
    uint8_t enabled;                                      /* controller active */
    char endpoint_id[256];                                /* its endpoint identifier */
    int32_t periodic_notific_interval;                    /* time between notifications, in the host's unit */
    struct kelmora_tr369_local_agent_controller_mtp *mtp; /* chain of its MTPs, NULL when empty */
};

#endif
