/*
 * The host's side of the interface: what the configuration framework that loads the plug-in provides.
 *
 * The plug-in only calls these functions; they are resolved from the host process when they are first called. A host
 * that never serves a resource need not have the functions that only that resource needs: each says what calls it.
 *
 * Memory: nodes, records, all that hangs on records, the error list and the output buffer are the host's. Translators
 * free nothing of these, and they take memory with malloc. Before a from-translator is called a host notes what hangs
 * on the record, and afterwards frees what does not hang there any more:
 *   - easymesh: a list with elements takes the place of the whole chain and of the chains that its nodes had.
 *   - interface, firewall_mac_filtering, firewall_ip_port_filtering, firewall_domain_blocking, firewall_url_blocking: a
 *     list of which anything is stored keeps the first node that was there, and goes behind it. The nodes that stood
 *     behind the first one are let go of.
 *   - http_request: a rendered body takes the place of the string that was there.
 *   - limits: nothing is let go of; the new nodes go in front of those that are there.
 *   - lists that a function below makes or appends to: what becomes of the nodes that were there is the host's affair.
 * An empty list changes nothing (but for wlan_access_control). That holds for documents that are refused too: what was
 * linked before the error stays linked, and what was let go of before it is not put back. A host that wants the old
 * list to be gone frees it first and hands over a record with NULL in its place.
 */
#ifndef KELMORA_HOST_H
#define KELMORA_HOST_H

#include "kelmora_config.h"

#include <stdint.h>

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
 * text:   NUL-terminated, the caller's, read during the call only; an empty text changes nothing and succeeds.
 *         upgrade_by_file and backup_restore take a block of 8 bytes of any value in its place.
 * errors: the request's; only handed on to the host's functions.
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
 * result, which kelmora_json_init hands on for the last pair. Called by kelmora_json_init alone. The pointers hold for
 * as long as the plug-in is loaded. */
int kelmora_set_translators(int number, kelmora_from_translator from, kelmora_to_translator to);

/* The record of a node, writable; its type follows from the resource (kelmora_records.h). It stays the host's. Never
 * NULL, but for qos_available_dscp, whose record is a chain. Called by every translator that does anything; for
 * reading it may be called for one node several times. */
void *kelmora_resource_get_data(struct kelmora_resource *node);

/* The node behind `node`, or NULL after the last one. Called by the to-translators whose document may have several
 * records. */
struct kelmora_resource *kelmora_resource_get_next(struct kelmora_resource *node);

/*
 * Appends one error to a request's list. Called by every from-translator that parses a document, and by the helpers
 * that get an error list.
 * field:   the JSON key concerned, plain or composed ("acs.acs_url"), or "" for the whole document.
 * message: what is wrong, in English.
 * source:  "json" as a rule.
 * All three end in NUL. Copy them to keep them: those of the translators are constants of the plug-in, but those of the
 * helpers that it exports (get_json_obj, kelmora_json_validate) live as long as the call.
 */
void kelmora_errorlist_add_error(struct kelmora_errorlist *errors, const char *field, const char *message,
                                 const char *source);

/* Marks one field of the node's record as not supplied. field: the field's position in the record, from 0. Called by
 * device_from_translator alone, for the settable fields (3 to 7) that its document does not have. */
void kelmora_set_missing(struct kelmora_resource *node, int field);

/* Gives the record a chain of exactly `entries` MAC address entries in place of the one it had; 0 is allowed, and then
 * mac_list is NULL. The host makes the nodes, links them, and frees them as well as those that it replaces. A host that
 * has no memory leaves the chain shorter: the translator then reports ("mac_list", "out of memory", "json"). Called by
 * wlan_access_control_from_translator alone. */
void kelmora_wlan_access_control_allocate_list(struct kelmora_wlan_access_control *record, uint32_t entries);

/* Gives the record a chain of exactly `entries` rule entries, at least one, in place of the one it had. The host makes
 * the nodes, links them, and frees them as well as those that it replaces. Returns non-zero; 0 on failure, and then it
 * appends an error itself, as the translator reports none. Called by parental_control_from_translator alone. */
int kelmora_parental_control_allocate_list(struct kelmora_parental_control *record, uint32_t entries,
                                           struct kelmora_errorlist *errors);

/* Appends one DNS server address to the record's list; what is there stays. address: never NULL, of any length, empty
 * too; valid during the call only, so the host copies it into a node of its own. Called by
 * ipv6_dhcp_server_from_translator alone, once for each element. */
void kelmora_ipv6_dhcp_dns_servers_add(struct kelmora_ipv6_dhcp_server *record, const char *address);

/* The same for a search domain. */
void kelmora_ipv6_dhcp_domains_add(struct kelmora_ipv6_dhcp_server *record, const char *domain);

/* Appends a copy of `mtp` to the controller's list, in a node of the host's own; what is there stays. mtp: the
 * translator's, valid during the call only; its `next` is not set. reserved: always 0. Called by
 * tr369_local_agent_controller_from_translator alone, once for each element. */
void kelmora_tr369_local_agent_controller_mtp_add(struct kelmora_tr369_local_agent_controller *record,
                                                  struct kelmora_tr369_local_agent_controller_mtp *mtp, int reserved,
                                                  struct kelmora_errorlist *errors);

/* The same for a subscription of an MQTT client. Called by tr369_mqtt_client_from_translator alone, once for each
 * element. The third t in the name is part of it. */
void kelmora_tr369_mqttt_client_subscription_add_element(struct kelmora_tr369_mqtt_client *record,
                                                         struct kelmora_tr369_mqtt_client_subscription *subscription,
                                                         int reserved, struct kelmora_errorlist *errors);

#ifdef __cplusplus
}
#endif

#endif
