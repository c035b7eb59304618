/*
 * The host's side of the interface: what the configuration framework that loads the plug-in provides.
 *
 * The plug-in only calls these functions; they are resolved from the host process when they are first called. A host
 * that never serves a resource need not have the functions that only that resource needs.
 */
#ifndef KELMORA_HOST_H
#define KELMORA_HOST_H

#include <stdint.h>

/* Pointers of the host's own in front of the node's public fields. Host and plug-in must be built with one value. */
#ifndef KELMORA_HOST_PRIVATE_POINTERS
#define KELMORA_HOST_PRIVATE_POINTERS 2
#endif

/* Bytes of a node's identifier, the terminating NUL included. */
#define KELMORA_ID_SIZE 129

#ifdef __cplusplus
extern "C" {
#endif

/* A resource node, owned by the host: one record, and a place in the singly linked list of a request's records. */
struct kelmora_resource {
    void *host_private[KELMORA_HOST_PRIVATE_POINTERS]; /* the host's; the plug-in never looks at them */
    uint32_t count;                                    /* nodes in the list; valid in the head node only */
    char id[KELMORA_ID_SIZE];                          /* what the host keys this record by, NUL-terminated */
    uint8_t is_list; /* non-zero: the request is for a list (a JSON array); valid in the head node only */
};

/* A request's list of errors, owned by the host; the plug-in only appends to it. */
struct kelmora_errorlist;

struct kelmora_ipv6_dhcp_server;
struct kelmora_parental_control;
struct kelmora_tr369_local_agent_controller;
struct kelmora_tr369_local_agent_controller_mtp;
struct kelmora_tr369_mqtt_client;
struct kelmora_tr369_mqtt_client_subscription;
struct kelmora_wlan_access_control;

/*
 * Fills the record of `node` from JSON text.
 * text: NUL-terminated; an empty text changes nothing and succeeds. upgrade_by_file and backup_restore take a block of
 *       8 bytes of any value in its place.
 * Returns 1 for success; 0 after appending at most one error of its own to `errors`. What was stored before stays
 * stored. tr369_local_agent_controller also appends one for each MTP of an unknown protocol, and goes on: its result
 * may be 1 all the same.
 */
typedef int (*kelmora_from_translator)(struct kelmora_resource *node, const char *text,
                                       struct kelmora_errorlist *errors);

/*
 * Writes the records of the list that starts at `head` as one NUL-terminated JSON text into *out.
 * out: the host's buffer from malloc, at least 4096 bytes; enlarged with realloc when the text needs more.
 *      backup_restore writes a block of 8 bytes into it, and no NUL behind them.
 * Returns 1 for success; 0 when memory ran out: the text is then the empty document, "[]" or "{}".
 */
typedef int (*kelmora_to_translator)(struct kelmora_resource *head, char **out);

/* Files a pair of translators under a resource type number. The from-translator comes first. Returns the host's own
 * result, which kelmora_json_init hands on for the last pair. */
int kelmora_set_translators(int number, kelmora_from_translator from, kelmora_to_translator to);

/* The record of a node, writable; its type follows from the resource (kelmora_records.h). Never NULL, but for
 * qos_available_dscp, whose record is a chain. */
void *kelmora_resource_get_data(struct kelmora_resource *node);

/* The node behind `node`, or NULL after the last one. */
struct kelmora_resource *kelmora_resource_get_next(struct kelmora_resource *node);

/*
 * Appends one error to a request's list.
 * field:   the JSON key concerned, plain or composed ("acs.acs_url"), or "" for the whole document.
 * message: what is wrong, in English.
 * source:  "json" as a rule.
 * Copy the texts to keep them: those of the translators are constants of the plug-in, but those of the helpers that it
 * exports (get_json_obj, kelmora_json_validate) live as long as the call.
 */
void kelmora_errorlist_add_error(struct kelmora_errorlist *errors, const char *field, const char *message,
                                 const char *source);

/* Marks one field of the node's record as not supplied. field: the field's position in the record, from 0. */
void kelmora_set_missing(struct kelmora_resource *node, int field);

/* Gives the record a chain of exactly `entries` MAC address entries in place of the one it had; 0 is allowed. */
void kelmora_wlan_access_control_allocate_list(struct kelmora_wlan_access_control *record, uint32_t entries);

/* Gives the record a chain of exactly `entries` rule entries, at least one. Returns 0 on failure, else non-zero. */
int kelmora_parental_control_allocate_list(struct kelmora_parental_control *record, uint32_t entries,
                                           struct kelmora_errorlist *errors);

/* Appends one DNS server address to the record's list. address: copied, never NULL. */
void kelmora_ipv6_dhcp_dns_servers_add(struct kelmora_ipv6_dhcp_server *record, const char *address);

/* Appends one search domain to the record's list. domain: copied, never NULL. */
void kelmora_ipv6_dhcp_domains_add(struct kelmora_ipv6_dhcp_server *record, const char *domain);

/* Appends a copy of `mtp` to the controller's list; its `next` is not set. reserved: always 0. */
void kelmora_tr369_local_agent_controller_mtp_add(struct kelmora_tr369_local_agent_controller *record,
                                                  struct kelmora_tr369_local_agent_controller_mtp *mtp, int reserved,
                                                  struct kelmora_errorlist *errors);

/* Appends a copy of `subscription` to the client's list; its `next` is not set. reserved: always 0. The third t in
 * the name is part of it. */
void kelmora_tr369_mqttt_client_subscription_add_element(struct kelmora_tr369_mqtt_client *record,
                                                         struct kelmora_tr369_mqtt_client_subscription *subscription,
                                                         int reserved, struct kelmora_errorlist *errors);

#ifdef __cplusplus
}
#endif

#endif
