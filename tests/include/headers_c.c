#include "kelmora_json.h"
#include "kelmora_records.h"

/* The rows' positions: a row's number is the position that it stands at. */
#define POSITION(number, name, group, directions) position_##name,
enum { KELMORA_RESOURCES(POSITION) positions };

#define AT_ITS_POSITION(number, name, group, directions)                                                               \
    typedef char name##_is_at_its_position[(number) == position_##name ? 1 : -1];
KELMORA_RESOURCES(AT_ITS_POSITION)

#if KELMORA_RESOURCE_COUNT < 1
#error "the number of resources must be known to the preprocessor too"
#endif

typedef char every_row_is_counted[KELMORA_RESOURCE_COUNT == positions ? 1 : -1];

struct pair {
    kelmora_to_translator to;
    kelmora_from_translator from;
};

#define PAIR(number, name, group, directions) {name##_to_translator, name##_from_translator},
extern const struct pair pairs[];
const struct pair pairs[] = {KELMORA_RESOURCES(PAIR)};

typedef int (*check)(struct json_t *, const struct json_t *, const char *, struct kelmora_errorlist *);
extern const check checks[];
const check checks[] = {
    kelmora_json_validate_field,        kelmora_json_validate_string_type, kelmora_json_validate_integer_type,
    kelmora_json_validate_boolean_type, kelmora_json_validate_array_type,
};

/* What a host does, from its loading of the plug-in to the answer to a request. */
extern int host_uses_the_plugin(struct kelmora_resource *head, struct kelmora_errorlist *errors, char **out);
int host_uses_the_plugin(struct kelmora_resource *head, struct kelmora_errorlist *errors, char **out)
{
    int (*init)(void) = kelmora_json_init;
    const char *(*version)(void) = kelmora_json_get_version;
    int (*copy)(char *, const char *, size_t) = kelmora_strncpy;
    int (*validate)(struct json_t *, const struct json_t *, const char *, int, struct kelmora_errorlist *) =
        kelmora_json_validate;
    struct kelmora_radio radio = {0};
    struct kelmora_wireless wireless = {0};
    struct kelmora_site_survey survey = {0};

    if (!init() || !pairs[0].to(head, out) || !pairs[0].from(head, *out, errors))
        return 0;
    if (!validate(NULL, libkelmora_json_string(version(), sizeof survey.mac), "", KELMORA_JSON_INTEGER, errors))
        return libkelmora_json_check_data_size(*out, out) != 0;
    radio.opMode = survey.op_mode;
    return copy(wireless.ssid, survey.ssid, sizeof wireless.ssid) && radio.opMode == 0 && head->count == 1;
}

/* What a host provides. */
extern int plugin_uses_the_host(struct kelmora_resource *node, struct kelmora_errorlist *errors);
int plugin_uses_the_host(struct kelmora_resource *node, struct kelmora_errorlist *errors)
{
    const struct kelmora_radio *radio = kelmora_resource_get_data(node);

    kelmora_set_missing(node, 0);
    kelmora_errorlist_add_error(errors, "", node->id, "json");
    kelmora_wlan_access_control_allocate_list(NULL, UINT32_C(0));
    kelmora_ipv6_dhcp_dns_servers_add(NULL, "");
    kelmora_ipv6_dhcp_domains_add(NULL, "");
    kelmora_tr369_local_agent_controller_mtp_add(NULL, NULL, 0, errors);
    kelmora_tr369_mqttt_client_subscription_add_element(NULL, NULL, 0, errors);
    return kelmora_resource_get_next(node) != NULL && radio->enabled &&
           kelmora_parental_control_allocate_list(NULL, UINT32_C(1), errors) &&
           kelmora_set_translators(5, radio_from_translator, radio_to_translator);
}
