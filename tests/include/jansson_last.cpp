#include "kelmora_json.h"

#include <jansson.h>

int is_name(json_t *root, const json_t *value, kelmora_errorlist *errors);
int is_name(json_t *root, const json_t *value, kelmora_errorlist *errors)
{
    return json_is_string(value) && kelmora_json_validate_string_type(root, value, "name", errors);
}
