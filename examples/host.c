/*
 * A small host: it loads the plug-in, and writes and reads every resource once.
 *
 *     cc -std=c99 $(pkg-config --cflags kelmora_json) host.c -o host $(pkg-config --libs kelmora_json)
 *     ./host PLUGIN EXAMPLES
 *
 * EXAMPLES is a folder with documents NAME.json. What each resource then has goes to stdout, errors go to stderr; the
 * exit status is 0 when all translations succeeded and every resource was registered.
 *
 * The program never calls jansson itself: the link options keep it, as the plug-in takes it from this process. A host
 * with threads calls json_object_seed(0) before there are any.
 */
#include <kelmora_json.h>
#include <kelmora_records.h>

#include <dlfcn.h>
#include <stddef.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

/* ---- What this host knows of the resources --------------------------------------------------------------------- */

#define NUMBER(number, name, group, directions) RESOURCE_##name = (number),
enum { KELMORA_RESOURCES(NUMBER) RESOURCES };

struct resource {
    const char *name;
    size_t size; /* of its record */
};

#define RESOURCE(number, name, group, directions) {#name, sizeof(struct kelmora_##name)},
static const struct resource resources[] = {KELMORA_RESOURCES(RESOURCE)};

/* A chain inside a record: where the record points to its first node, and where a node points to the next. */
struct chain {
    int resource;
    size_t first;
    size_t next;
};

/* A string of its own is a chain of one block. */
#define NO_NEXT ((size_t)-1)

#define CHAIN(resource, list, node)                                                                                    \
    {                                                                                                                  \
        RESOURCE_##resource, offsetof(struct kelmora_##resource, list), offsetof(struct kelmora_##node, next)          \
    }
#define STRING(resource, string)                                                                                       \
    {                                                                                                                  \
        RESOURCE_##resource, offsetof(struct kelmora_##resource, string), NO_NEXT                                      \
    }

/*
 * All that documents hang on records, each block to be freed with free(). What only a host itself would hang there
 * (leases, hops, time zones, the neighbours of neighbours, ...) is missing, as this one has none.
 */
static const struct chain chains[] = {
    /* made by the plug-in */
    CHAIN(easymesh, neighbors, easymesh_neighbor),
    CHAIN(firewall_domain_blocking, domains, firewall_domain_blocking_domain),
    CHAIN(firewall_ip_port_filtering, filter_lists, firewall_ip_port_filtering_rule),
    CHAIN(firewall_mac_filtering, entry, firewall_mac_filtering_entry),
    CHAIN(firewall_url_blocking, keywords, firewall_url_blocking_keyword),
    CHAIN(firewall_url_blocking, urls, firewall_url_blocking_url),
    STRING(http_request, body),
    CHAIN(interface, ip6_list, ip6_address),
    CHAIN(limits, wifi_limits, limits_wifi_limit),
    /* made by the functions below, which the plug-in calls */
    CHAIN(ipv6_dhcp_server, dns_servers, ipv6_dhcp_server_dns_server),
    CHAIN(ipv6_dhcp_server, domains, ipv6_dhcp_server_domain),
    CHAIN(parental_control, parental_control_list, parental_control_rule),
    CHAIN(tr369_local_agent_controller, mtp, tr369_local_agent_controller_mtp),
    CHAIN(tr369_mqtt_client, subscription, tr369_mqtt_client_subscription),
    CHAIN(wlan_access_control, mac_list, wlan_access_control_mac),
};

/* ---- Memory ---------------------------------------------------------------------------------------------------- */

/* A block of zeros. A host that may not end for want of memory leaves its lists shorter instead. */
static void *allocate(size_t size)
{
    void *block = calloc(1, size);

    if (block == NULL) {
        perror("host");
        exit(1);
    }
    return block;
}

/* The pointer that a record or a node has at an offset, whatever it points to. */
static void *pointer_at(const void *block, size_t offset)
{
    void *pointer;

    memcpy(&pointer, (const char *)block + offset, sizeof pointer);
    return pointer;
}

static void *next_of(const void *node, const struct chain *chain)
{
    return chain->next == NO_NEXT ? NULL : pointer_at(node, chain->next);
}

/* The blocks that hang on a record, before a document is written to it. */
struct blocks {
    void **block;
    size_t count;
};

static struct blocks blocks_of(int resource, const void *record)
{
    struct blocks blocks = {NULL, 0};
    size_t i;
    void *node;

    for (i = 0; i < sizeof chains / sizeof *chains; ++i) {
        if (chains[i].resource != resource)
            continue;
        for (node = pointer_at(record, chains[i].first); node != NULL; node = next_of(node, &chains[i])) {
            void **larger = realloc(blocks.block, (blocks.count + 1) * sizeof *larger);

            if (larger == NULL) {
                perror("host");
                exit(1);
            }
            blocks.block = larger;
            blocks.block[blocks.count++] = node;
        }
    }
    return blocks;
}

static int contains(const struct blocks *blocks, const void *block)
{
    size_t i;

    for (i = 0; i < blocks->count; ++i) {
        if (blocks->block[i] == block)
            return 1;
    }
    return 0;
}

/* Frees the blocks of `before` that are not among those of `after`: what the document let go of. */
static void free_lost(struct blocks *before, struct blocks *after)
{
    size_t i;

    for (i = 0; i < before->count; ++i) {
        if (!contains(after, before->block[i]))
            free(before->block[i]);
    }
    free(before->block);
    free(after->block);
}

/* Frees a record with all that hangs on it. */
static void free_record(int resource, void *record)
{
    struct blocks blocks = blocks_of(resource, record);
    struct blocks none = {NULL, 0};

    free_lost(&blocks, &none);
    free(record);
}

/* ---- The functions that the plug-in calls ---------------------------------------------------------------------- */

/* A node of this host. The fields of the host's own in front of the public ones (host_private) are not used: what else
 * belongs to a node stands behind them. */
struct node {
    struct kelmora_resource resource;
    void *record;
    struct node *next;
};

struct kelmora_errorlist {
    const char *resource;
    unsigned count;
};

static struct pair {
    kelmora_from_translator from;
    kelmora_to_translator to;
} pairs[KELMORA_RESOURCE_COUNT];

int kelmora_set_translators(int number, kelmora_from_translator from, kelmora_to_translator to)
{
    if (number < 0 || number >= KELMORA_RESOURCE_COUNT)
        return 0;
    pairs[number].from = from;
    pairs[number].to = to;
    return 1;
}

void *kelmora_resource_get_data(struct kelmora_resource *node) { return ((struct node *)node)->record; }

struct kelmora_resource *kelmora_resource_get_next(struct kelmora_resource *node)
{
    struct node *next = ((struct node *)node)->next;

    return next != NULL ? &next->resource : NULL;
}

void kelmora_errorlist_add_error(struct kelmora_errorlist *errors, const char *field, const char *message,
                                 const char *source)
{
    ++errors->count;
    fprintf(stderr, "%s: \"%s\": %s (%s)\n", errors->resource, field, message, source);
}

void kelmora_set_missing(struct kelmora_resource *node, int field)
{
    fprintf(stderr, "%s: field %d was not supplied\n", node->id, field);
}

void kelmora_wlan_access_control_allocate_list(struct kelmora_wlan_access_control *record, uint32_t entries)
{
    /* The old list is freed by whoever called the translator, as everything that a document lets go of. */
    record->mac_list = NULL;
    while (entries-- > 0) {
        struct kelmora_wlan_access_control_mac *entry = allocate(sizeof *entry);

        entry->next = record->mac_list;
        record->mac_list = entry;
    }
}

int kelmora_parental_control_allocate_list(struct kelmora_parental_control *record, uint32_t entries,
                                           struct kelmora_errorlist *errors)
{
    if (entries > 1000) {
        kelmora_errorlist_add_error(errors, "parental_control_list", "too many rules", "host");
        return 0;
    }
    record->parental_control_list = NULL;
    while (entries-- > 0) {
        struct kelmora_parental_control_rule *rule = allocate(sizeof *rule);

        rule->next = record->parental_control_list;
        record->parental_control_list = rule;
    }
    return 1;
}

void kelmora_ipv6_dhcp_dns_servers_add(struct kelmora_ipv6_dhcp_server *record, const char *address)
{
    struct kelmora_ipv6_dhcp_server_dns_server **link = &record->dns_servers;

    while (*link != NULL)
        link = &(*link)->next;
    *link = allocate(sizeof **link);
    strncpy((*link)->address, address, sizeof(*link)->address - 1);
}

void kelmora_ipv6_dhcp_domains_add(struct kelmora_ipv6_dhcp_server *record, const char *domain)
{
    struct kelmora_ipv6_dhcp_server_domain **link = &record->domains;

    while (*link != NULL)
        link = &(*link)->next;
    *link = allocate(sizeof **link);
    strncpy((*link)->domain, domain, sizeof(*link)->domain - 1);
}

void kelmora_tr369_local_agent_controller_mtp_add(struct kelmora_tr369_local_agent_controller *record,
                                                  struct kelmora_tr369_local_agent_controller_mtp *mtp, int reserved,
                                                  struct kelmora_errorlist *errors)
{
    struct kelmora_tr369_local_agent_controller_mtp **link = &record->mtp;

    (void)reserved;
    (void)errors;
    while (*link != NULL)
        link = &(*link)->next;
    *link = allocate(sizeof **link);
    **link = *mtp;
    (*link)->next = NULL;
}

void kelmora_tr369_mqttt_client_subscription_add_element(struct kelmora_tr369_mqtt_client *record,
                                                         struct kelmora_tr369_mqtt_client_subscription *subscription,
                                                         int reserved, struct kelmora_errorlist *errors)
{
    struct kelmora_tr369_mqtt_client_subscription **link = &record->subscription;

    (void)reserved;
    (void)errors;
    while (*link != NULL)
        link = &(*link)->next;
    *link = allocate(sizeof **link);
    **link = *subscription;
    (*link)->next = NULL;
}

/* ---- Writing and reading --------------------------------------------------------------------------------------- */

/* The two resources that move a block of bytes instead of JSON. */
enum { BLOCK_SIZE = 8 };

static int is_block(int resource)
{
    return resource == RESOURCE_backup_restore || resource == RESOURCE_upgrade_by_file;
}

/* A file as a string, to be freed; NULL when it cannot be read. */
static char *read_file(const char *path)
{
    FILE *file = fopen(path, "rb");
    size_t size = 0;
    char *string;

    if (file == NULL)
        return NULL;
    string = allocate(1);
    for (;;) {
        char part[4096];
        const size_t count = fread(part, 1, sizeof part, file);
        char *larger;

        if (count == 0)
            break;
        larger = allocate(size + count + 1);
        memcpy(larger, string, size);
        memcpy(larger + size, part, count);
        free(string);
        string = larger;
        size += count;
    }
    fclose(file);
    return string;
}

/* Hands JSON text (or a block) to the from-translator. Whatever the answer, what the record lost is freed. */
static int set(int number, struct node *node, const char *text)
{
    struct kelmora_errorlist errors = {resources[number].name, 0};
    struct blocks before = blocks_of(number, node->record);
    const int result = pairs[number].from(&node->resource, text, &errors);
    struct blocks after = blocks_of(number, node->record);

    free_lost(&before, &after);
    return result == 1 && errors.count == 0;
}

/* Shows what the to-translator makes of the record: as an object, or as a list of one. */
static int show(int number, struct node *node, int as_list)
{
    char *out = allocate(4096);
    int result;

    node->resource.count = 1;
    node->resource.is_list = (uint8_t)as_list;
    result = pairs[number].to(&node->resource, &out);
    if (is_block(number)) {
        size_t i;

        for (i = 0; i < BLOCK_SIZE; ++i)
            printf("%02x", (unsigned char)out[i]);
        printf("\n");
    } else {
        printf("%s\n", out);
    }
    free(out);
    return result == 1;
}

/* Writes and reads one resource. Its document is written twice: the second time there is something to replace. */
static int serve(int number, const char *examples)
{
    static const char block[BLOCK_SIZE] = {'\x01', '\x02', '\x03', '\x04', '\x05', '\x06', '\x07', '\x08'};
    const struct resource *resource = &resources[number];
    char path[1024];
    char *document;
    struct node *node = allocate(sizeof *node);
    int done = 1;

    strcpy(node->resource.id, "example");
    node->record = allocate(resource->size);
    snprintf(path, sizeof path, "%s/%s.json", examples, resource->name);
    document = read_file(path);
    printf("%d %s\n", number, resource->name);

    done &= show(number, node, 0);
    if (is_block(number))
        done &= set(number, node, block);
    else if (document != NULL)
        done &= set(number, node, document) & set(number, node, document);
    else
        done &= set(number, node, ""); /* an empty text changes nothing */
    done &= show(number, node, 1);

    free(document);
    free_record(number, node->record);
    free(node);
    return done;
}

int main(int argc, char **argv)
{
    void *plugin;
    int (*init)(void);
    int number;
    int status = 0;

    if (argc != 3) {
        fprintf(stderr, "usage: host PLUGIN EXAMPLES\n");
        return 2;
    }
    /* Lazily: functions that a host leaves out are missed only by the resources that call them. */
    plugin = dlopen(argv[1], RTLD_LAZY | RTLD_LOCAL);
    if (plugin == NULL) {
        const char *why = dlerror();

        fprintf(stderr, "host: %s\n", why != NULL ? why : argv[1]);
        return 1;
    }
    *(void **)&init = dlsym(plugin, "kelmora_json_init"); /* as POSIX has it: C knows no such conversion */
    if (init == NULL || init() != 1) {
        fprintf(stderr, "host: %s: cannot be initialised\n", argv[1]);
        return 1;
    }
    for (number = 0; number < KELMORA_RESOURCE_COUNT; ++number) {
        if (pairs[number].to == NULL || pairs[number].from == NULL || !serve(number, argv[2])) {
            fprintf(stderr, "host: %s failed\n", resources[number].name);
            status = 1;
        }
    }
    /* Only a host that is about to end unloads it: what was registered points into it. */
    if (dlclose(plugin) != 0)
        status = 1;
    return status;
}
