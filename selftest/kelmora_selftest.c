/*
 * Is this plug-in right on this machine? A program for the device: it loads the plug-in as a host does, and compares
 * what the plug-in makes of records and documents with what it makes of them on the build machine.
 *
 *     kelmora-selftest PLUGIN
 *
 * It says what is around it, one line a resource, and at the end how many checks passed and failed, alone on a line.
 * What differs goes to stderr. The exit status is 0 when all passed, 1 when one failed, 2 for wrong usage.
 *
 * What documents hang on records stays there until the program ends.
 */
#define _GNU_SOURCE /* dladdr */ /* NOLINT(bugprone-reserved-identifier) */

#include <kelmora_json.h>
#include <kelmora_records.h>

#include <dlfcn.h>
#include <limits.h>
#include <pthread.h>
#include <stddef.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>
#ifdef __GLIBC__
#include <gnu/libc-version.h>
#endif

/* ---- The vectors ----------------------------------------------------------------------------------------------- */

/* A symbol that the plug-in may import. */
struct import {
    const char *name;
    const char *whose;
};

/* A record with all that hangs on it, and what the to-translator makes of it alone. */
struct sample {
    const char *id;
    void *record;        /* where the plug-in finds it; NULL for a chain without nodes */
    const void *initial; /* what is there before each check */
    size_t size;
    int result;
    const char *text;
};

/* A change to the example, and what the from-translator makes of that document, on the first sample. */
struct change {
    size_t begin; /* the bytes of the example that are replaced */
    size_t size;
    const char *replacement;
    int result;
    const char *told;   /* errors and what was marked as missing, a line each */
    const char *text;   /* what the to-translator makes of the record afterwards */
    const void *record; /* the record afterwards, or NULL where the text alone is compared */
};

struct resource {
    const char *name;
    size_t raw; /* bytes of what is no JSON; 0 where it is */
    const struct sample *samples;
    size_t sample_count;
    int list_result; /* of all samples, as a list */
    const char *list_text;
    const char *example;
    const struct change *changes;
    size_t change_count;
};

#include "vectors.inc"

#define COUNT(array) (sizeof(array) / sizeof *(array))

/* ---- Checks ---------------------------------------------------------------------------------------------------- */

static unsigned passed;
static unsigned failed;

static int check(int holds)
{
    if (holds)
        ++passed;
    else
        ++failed;
    return holds;
}

static void *allocate(size_t size)
{
    void *block = calloc(1, size);

    if (block == NULL) {
        perror("kelmora-selftest");
        exit(1);
    }
    return block;
}

/* ---- The functions that the plug-in calls ---------------------------------------------------------------------- */

struct node {
    struct kelmora_resource resource;
    void *record;
    struct node *next;
};

/* What the plug-in said during a call, a line each: its errors, then what it marked as missing. */
struct kelmora_errorlist {
    char lines[2048];
};

static struct kelmora_errorlist missing;

static struct {
    kelmora_from_translator from;
    kelmora_to_translator to;
} translators[KELMORA_RESOURCE_COUNT];

int kelmora_set_translators(int number, kelmora_from_translator from, kelmora_to_translator to)
{
    if (number < 0 || number >= KELMORA_RESOURCE_COUNT)
        return 0;
    translators[number].from = from;
    translators[number].to = to;
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
    const size_t length = strlen(errors->lines);

    snprintf(errors->lines + length, sizeof errors->lines - length, "\"%s\": %s (%s)\n", field, message, source);
}

void kelmora_set_missing(struct kelmora_resource *node, int field)
{
    const size_t length = strlen(missing.lines);

    (void)node;
    snprintf(missing.lines + length, sizeof missing.lines - length, "field %d was not supplied\n", field);
}

void kelmora_wlan_access_control_allocate_list(struct kelmora_wlan_access_control *record, uint32_t entries)
{
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
    (void)errors;
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

/* ---- What is around the plug-in -------------------------------------------------------------------------------- */

/* The file that a function of this process comes from. */
static const char *file_of(void *process, const char *function)
{
    void *address = dlsym(process, function);
    Dl_info info;

    return address != NULL && dladdr(address, &info) != 0 && info.dli_fname != NULL ? info.dli_fname : "?";
}

static void show_surroundings(void *process)
{
    const unsigned one = 1;
    const char *(*version)(void);

#if defined __GLIBC__
    printf("C library: glibc %s", gnu_get_libc_version());
#elif defined __UCLIBC__
    printf("C library: uClibc %d.%d.%d", __UCLIBC_MAJOR__, __UCLIBC_MINOR__, __UCLIBC_SUBLEVEL__);
#else
    printf("C library: musl or another");
#endif
    printf(", %s\n", file_of(process, "malloc"));
    *(void **)&version = dlsym(process, "jansson_version_str"); /* as POSIX has it: C knows no such conversion */
    printf("jansson: %s, %s\n", version != NULL ? version() : "before 2.13", file_of(process, "json_loads"));
    printf("%u bits, %s-endian\n", (unsigned)(sizeof(void *) * CHAR_BIT),
           *(const unsigned char *)&one == 1 ? "little" : "big");
}

/* Whether all symbols are there that the plug-in may import: a call of one that is not would end the process. */
static int check_imports(void *process)
{
    int complete = 1;
    size_t i;

    for (i = 0; i < COUNT(imports); ++i) {
        if (!check(dlsym(process, imports[i].name) != NULL)) {
            printf("missing in this process: %s (%s)\n", imports[i].name, imports[i].whose);
            complete = 0;
        }
    }
    return complete;
}

/* ---- The stack ------------------------------------------------------------------------------------------------- */

/* What the README asks for, and the deepest document: jansson takes 2048 levels, one of which is not for lists. */
enum { STACK = (sizeof(void *) == 4 ? 256 : 512) * 1024, DEEPEST = 2047 };

static void *parse_deepest(void *unused)
{
    static char document[2 * DEEPEST + 1];
    static struct node node;
    static struct kelmora_errorlist deep;
    static struct kelmora_errorlist flat;

    (void)unused;
    memset(document, '[', DEEPEST);
    memset(document + DEEPEST, ']', DEEPEST);
    node.record = resources[0].samples[0].record;
    translators[0].from(&node.resource, document, &deep);
    translators[0].from(&node.resource, "[]", &flat);
    /* Parsed, both lack the first key; what is no JSON has another error. */
    return strcmp(deep.lines, flat.lines) == 0 ? &node : NULL;
}

/* Whether a thread with a stack of this size parses the deepest document: in a process of its own, which the stack's
 * overflow would end. 0 is the size that threads have by default. */
static int fits(size_t stack)
{
    int status;
    pid_t child;

    fflush(NULL);
    child = fork();
    if (child == 0) {
        const struct rlimit no_core = {0, 0};
        pthread_attr_t attributes;
        pthread_t thread;
        void *parsed = NULL;

        setrlimit(RLIMIT_CORE, &no_core);
        pthread_attr_init(&attributes);
        if (stack != 0)
            pthread_attr_setstacksize(&attributes, stack);
        if (pthread_create(&thread, &attributes, parse_deepest, NULL) == 0)
            pthread_join(thread, &parsed);
        _exit(parsed != NULL ? 0 : 1);
    }
    return child > 0 && waitpid(child, &status, 0) == child && WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

static void check_stack(void)
{
    pthread_attr_t attributes;
    size_t size = 0;

    pthread_attr_init(&attributes);
    pthread_attr_getstacksize(&attributes, &size);
    printf("a thread's stack: %lu KB by default, ", (unsigned long)(size / 1024));
    if (fits(0))
        printf("enough for the deepest document\n");
    else
        printf("too little for the deepest document; give the threads that translate %d KB\n", STACK / 1024);
    if (!check(fits(STACK)))
        printf("FAILED: a thread with %d KB of stack does not parse %d lists within each other\n", STACK / 1024,
               DEEPEST);
}

/* ---- The resources --------------------------------------------------------------------------------------------- */

/* The length of a number of JSON at the begin of a text; 0 when there is none. */
static size_t number_length(const char *text) { return strspn(text, "+-.0123456789eE"); }

/* Whether two JSON texts are the same. Reals are compared by their values: not all versions of jansson write as many
 * digits. */
static int same_text(const char *text, const char *expected)
{
    int in_string = 0;

    while (*expected != '\0') {
        const size_t length = number_length(expected);

        if (!in_string && (*expected == '-' || (*expected >= '0' && *expected <= '9')) &&
            strcspn(expected, ".eE") < length) {
            const size_t own_length = number_length(text);

            if (strcspn(text, ".eE") >= own_length || strtod(text, NULL) < strtod(expected, NULL) ||
                strtod(text, NULL) > strtod(expected, NULL))
                return 0;
            text += own_length;
            expected += length;
            continue;
        }
        if (*text != *expected)
            return 0;
        if (*expected == '"')
            in_string = !in_string;
        if (*expected == '\\') { /* what follows is no end of the string */
            ++text;
            ++expected;
            if (*text != *expected || *expected == '\0')
                return 0;
        }
        ++text;
        ++expected;
    }
    return *text == '\0';
}

/* Says what is wrong with a resource. */
static void differs(const struct resource *resource, const char *of, const char *document, const char *got,
                    const char *expected)
{
    fprintf(stderr, "%s: %s\n", resource->name, of);
    if (document != NULL)
        fprintf(stderr, "  document: %s\n", document);
    fprintf(stderr, "  expected: %s\n  got:      %s\n", expected, got);
}

static void restore(const struct sample *sample)
{
    if (sample->record != NULL)
        memcpy(sample->record, sample->initial, sample->size);
}

static struct node node_of(const struct sample *sample)
{
    struct node node;

    memset(&node, 0, sizeof node);
    strcpy(node.resource.id, sample->id);
    node.record = sample->record;
    restore(sample);
    return node;
}

/* Whether the to-translator makes this of a list of nodes. */
static int writes(const struct resource *resource, struct node *head, int is_list, size_t count, int result,
                  const char *text, const char *of, const char *document)
{
    char *out = allocate(4096);
    int got;
    int same;

    head->resource.count = (uint32_t)count;
    head->resource.is_list = (uint8_t)is_list;
    got = translators[resource - resources].to(&head->resource, &out);
    same = resource->raw != 0 ? memcmp(out, text, resource->raw) == 0 : same_text(out, text);
    if (got != result || !same) {
        differs(resource, of, document, resource->raw != 0 ? "other bytes" : out, resource->raw != 0 ? "" : text);
        if (got != result)
            fprintf(stderr, "  with the result %d, not %d\n", got, result);
    }
    free(out);
    return got == result && same;
}

static void check_samples(const struct resource *resource)
{
    struct node *nodes = allocate(resource->sample_count * sizeof *nodes);
    size_t i;

    for (i = 0; i < resource->sample_count; ++i) {
        const struct sample *sample = &resource->samples[i];

        nodes[i] = node_of(sample);
        check(writes(resource, &nodes[i], 0, 1, sample->result, sample->text, sample->id, NULL));
    }
    for (i = 1; i < resource->sample_count; ++i)
        nodes[i - 1].next = &nodes[i];
    check(writes(resource, nodes, 1, resource->sample_count, resource->list_result, resource->list_text,
                 "all as a list", NULL));
    free(nodes);
}

static int takes(const struct resource *resource, const struct change *change, const char *document)
{
    const struct sample *sample = &resource->samples[0];
    struct node node = node_of(sample);
    struct kelmora_errorlist errors = {""};
    size_t length;
    int result;

    missing.lines[0] = '\0';
    result = translators[resource - resources].from(&node.resource, document, &errors);
    length = strlen(errors.lines);
    snprintf(errors.lines + length, sizeof errors.lines - length, "%s", missing.lines);
    if (result != change->result || strcmp(errors.lines, change->told) != 0) {
        differs(resource, "errors", document, errors.lines, change->told);
        fprintf(stderr, "  with the result %d, and %d was expected\n", result, change->result);
        return 0;
    }
    if (change->record != NULL && memcmp(sample->record, change->record, sample->size) != 0) {
        differs(resource, "the record's bytes", document, "others", "those of the build machine");
        return 0;
    }
    return writes(resource, &node, 0, 1, sample->result, change->text, "the record afterwards", document);
}

static void check_changes(const struct resource *resource)
{
    size_t i;

    for (i = 0; i < resource->change_count; ++i) {
        const struct change *change = &resource->changes[i];
        char *document = allocate(strlen(resource->example) + strlen(change->replacement) + 1);

        sprintf(document, "%.*s%s%s", (int)change->begin, resource->example, change->replacement,
                resource->example + change->begin + change->size);
        check(takes(resource, change, document));
        free(document);
    }
}

static void check_resource(const struct resource *resource)
{
    const unsigned passed_before = passed;
    const unsigned failed_before = failed;

    printf("%-34s", resource->name); /* before anything can happen */
    fflush(stdout);
    check_samples(resource);
    check_changes(resource);
    printf("%3u passed", passed - passed_before);
    if (failed != failed_before)
        printf(", %u FAILED", failed - failed_before);
    printf("\n");
}

/* ---- The program ----------------------------------------------------------------------------------------------- */

/* Loads the plug-in, and lets it register all resources. */
static int load(const char *path)
{
    void *plugin = dlopen(path, RTLD_LAZY | RTLD_LOCAL);
    int (*init)(void);
    const char *(*version)(void);
    size_t i;

    if (plugin == NULL) {
        const char *why = dlerror();

        printf("FAILED: %s\n", why != NULL ? why : path);
        return 0;
    }
    *(void **)&init = dlsym(plugin, "kelmora_json_init");
    *(void **)&version = dlsym(plugin, "kelmora_json_get_version");
    if (init == NULL || version == NULL || init() != 1) {
        printf("FAILED: %s cannot be initialised\n", path);
        return 0;
    }
    for (i = 0; i < COUNT(resources); ++i) {
        if (translators[i].from == NULL || translators[i].to == NULL) {
            printf("FAILED: %s is not registered\n", resources[i].name);
            return 0;
        }
    }
    printf("plug-in: %s, %s\n", version(), path);
    if (strcmp(version(), KELMORA_JSON_VERSION) != 0) {
        printf("FAILED: this program is for %s\n", KELMORA_JSON_VERSION);
        return 0;
    }
    return 1;
}

int main(int argc, char **argv)
{
    void *process = dlopen(NULL, RTLD_LAZY);
    size_t i;

    if (argc != 2) {
        fprintf(stderr, "usage: kelmora-selftest PLUGIN\n");
        return 2;
    }
    show_surroundings(process);
    if (check_imports(process) && check(load(argv[1]))) {
        check_stack();
        for (i = 0; i < COUNT(resources); ++i)
            check_resource(&resources[i]);
    }
    printf("%u passed, %u failed\n", passed, failed);
    return failed == 0 ? 0 : 1;
}
