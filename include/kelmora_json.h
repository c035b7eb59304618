/*
 * libkelmora_json: everything that the shared object exports.
 *
 * The library converts the host's typed records (kelmora_records.h) into JSON text and back. It is loaded with dlopen
 * by a host process that has jansson loaded and provides the functions of kelmora_host.h; kelmora_json_init then
 * registers a pair of translators for each resource of kelmora_resources.h. There is no other state: every function
 * may be called from several threads at once, on different records, buffers and JSON values.
 */
#ifndef KELMORA_JSON_H
#define KELMORA_JSON_H

#include "kelmora_host.h"
#include "kelmora_resources.h"

#include <stddef.h>
#include <stdint.h>

#if defined(__GNUC__)
#define KELMORA_JSON_API __attribute__((visibility("default")))
#else
#define KELMORA_JSON_API
#endif

/* The version that these headers belong to. */
#define KELMORA_JSON_VERSION "1.3.0"

#ifdef __cplusplus
extern "C" {
#endif

/* jansson's JSON value; jansson.h is needed only by those who make or read one. */
struct json_t;

/* ---- Entry points ---------------------------------------------------------------------------------------------- */

/* Registers the pairs of translators of all resources with the host, in ascending order of their numbers. A pair that
 * the host refuses does not stop the rest. Returns what the host answered to the last one. May be called again. */
KELMORA_JSON_API int kelmora_json_init(void);

/* The library's version, KELMORA_JSON_VERSION of the headers that it was built with: the same constant at every call,
 * not to be freed. */
KELMORA_JSON_API const char *kelmora_json_get_version(void);

/* ---- Output: buffer and strings -------------------------------------------------------------------------------- */

/*
 * Makes room for `text` in the host's output buffer; copies nothing.
 * text: NUL-terminated; stays the caller's.
 * out: the buffer, from malloc and of at least 4096 bytes; reallocated to the text's length plus one when the length
 *      is 4096 or more, else left alone.
 * Returns the text's length when the buffer was left alone (0 for the empty text); the new buffer's address when it was
 * reallocated; 0 when that failed, and then *out is as it was and too small for the text.
 */
KELMORA_JSON_API uintptr_t libkelmora_json_check_data_size(const char *text, char **out);

/*
 * A new JSON string of a fixed-width field.
 * text:  NUL-terminated within its width, or else read no further than it.
 * width: the field's bytes, the NUL included; at most width - 1 bytes are taken, wherever that cuts a character.
 * Returns a value that the caller owns; NULL when `text` is NULL or (after the cut) not UTF-8, or memory ran out.
 */
KELMORA_JSON_API struct json_t *libkelmora_json_string(const char *text, size_t width);

/* ---- Input: strings and checks --------------------------------------------------------------------------------- */

/*
 * Copies a string into a fixed-width field, which ends in NUL whatever the string: at most width - 1 bytes are stored
 * and the rest is filled with NULs. source: NULL counts as the empty string. width: the field's bytes; 0 stores
 * nothing. Returns 1 when the whole string fitted, 0 when it was cut.
 */
KELMORA_JSON_API int kelmora_strncpy(char *field, const char *source, size_t width);

/* What kelmora_json_validate checks besides presence; any other code checks nothing more. */
enum kelmora_json_type {
    KELMORA_JSON_STRING = 0,
    KELMORA_JSON_INTEGER = 1, /* a real such as 1.0 is none */
    KELMORA_JSON_BOOLEAN = 2,
    KELMORA_JSON_ARRAY = 3
};

/*
 * Checks of one value of a parsed document.
 * root:  the document. Released (one reference) when the check fails, before the error is appended; NULL is allowed.
 * value: the value to check, or NULL when the document has none; borrowed.
 * name:  the error's field name. It is handed on after the document was released, so it must outlive the document: no
 *        name that points into it, such as a key or a string value of it, unless the caller holds another reference.
 * Returns 1 when the value passes, and then touches nothing; else 0, after releasing the document and appending
 * (name, message, "json") to `errors`.
 */

/* The value is there at all, JSON null included. Message: "field not found". */
KELMORA_JSON_API int kelmora_json_validate_field(struct json_t *root, const struct json_t *value, const char *name,
                                                 struct kelmora_errorlist *errors);

/* The value is a string. Message: "data type must be a valid string", for a missing value too. */
KELMORA_JSON_API int kelmora_json_validate_string_type(struct json_t *root, const struct json_t *value,
                                                       const char *name, struct kelmora_errorlist *errors);

/* The value is an integer. Message: "data type must be a valid integer", for a missing value too. */
KELMORA_JSON_API int kelmora_json_validate_integer_type(struct json_t *root, const struct json_t *value,
                                                        const char *name, struct kelmora_errorlist *errors);

/* The value is true or false. Message: "data type must be a valid boolean", for a missing value too. */
KELMORA_JSON_API int kelmora_json_validate_boolean_type(struct json_t *root, const struct json_t *value,
                                                        const char *name, struct kelmora_errorlist *errors);

/* The value is an array. Message: "data type must be a valid array", for a missing value too. */
KELMORA_JSON_API int kelmora_json_validate_array_type(struct json_t *root, const struct json_t *value, const char *name,
                                                      struct kelmora_errorlist *errors);

/* The value is there and of the type that `type` (enum kelmora_json_type) names. Note the order of arguments: the
 * type comes before the error list. */
KELMORA_JSON_API int kelmora_json_validate(struct json_t *root, const struct json_t *value, const char *name, int type,
                                           struct kelmora_errorlist *errors);

/* ---- Input: looking members up --------------------------------------------------------------------------------- */

/*
 * A member of a JSON object, borrowed.
 * object: searched; released (one reference) when it has no such member, after the error was appended, so that key and
 *         prefix may point into it. So a caller passes the parsed document itself and returns at once on NULL.
 * prefix: what stands before a dot and the key in the error's field name; NULL or empty for the key alone. A
 *         dotted name of more than 55 bytes is cut.
 * Returns NULL after appending (name, "field not found", "json") to `errors`; unlike for other errors a dotted name is
 * valid during the call only.
 */
KELMORA_JSON_API struct json_t *get_json_obj(struct json_t *object, const char *key, const char *prefix,
                                             struct kelmora_errorlist *errors);

/* ---- Output: mesh neighbours ----------------------------------------------------------------------------------- */

struct kelmora_easymesh_neighbor;

/*
 * Appends one object for each node of a chain of mesh neighbours to a JSON array, each with the objects of the node's
 * own neighbours in its "neighbors", to any depth.
 * node:  the first node of the chain, never NULL; only read.
 * array: the caller's, before and after; what it has already stays.
 * Returns 0; -1 when a node is missing in it because memory ran out, or when it is no array at all.
 */
KELMORA_JSON_API int add_neighbors(const struct kelmora_easymesh_neighbor *node, struct json_t *array);

/* ---- Translators ----------------------------------------------------------------------------------------------- */

/*
 * For each resource X:
 *     int X_to_translator(struct kelmora_resource *head, char **out)
 *     int X_from_translator(struct kelmora_resource *node, const char *text, struct kelmora_errorlist *errors)
 * with the contracts of kelmora_to_translator and kelmora_from_translator. Where the resource has one direction only,
 * the other function returns 1 and touches nothing.
 */
#define KELMORA_JSON_DECLARE_PAIR(number, name, group, directions)                                                     \
    KELMORA_JSON_API int name##_to_translator(struct kelmora_resource *head, char **out);                              \
    KELMORA_JSON_API int name##_from_translator(struct kelmora_resource *node, const char *text,                       \
                                                struct kelmora_errorlist *errors);

KELMORA_RESOURCES(KELMORA_JSON_DECLARE_PAIR)

#undef KELMORA_JSON_DECLARE_PAIR

#ifdef __cplusplus
}
#endif

#endif
