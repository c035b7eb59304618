#include <jansson.h>

#include "kelmora_json.h"

json_t *name_of(const char *name);
json_t *name_of(const char *name) { return json_incref(libkelmora_json_string(name, KELMORA_ID_SIZE)); }
