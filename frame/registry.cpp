#include "kelmora_json.h"

int kelmora_json_init(void)
{
    int result = 0;
#define REGISTER(number, name, group, directions)                                                                      \
    result = kelmora_set_translators(number, name##_from_translator, name##_to_translator);

    KELMORA_RESOURCES(REGISTER)

#undef REGISTER
    return result;
}

const char *kelmora_json_get_version(void) { return KELMORA_JSON_VERSION; }
