// A plug-in's entry points as they are not to be: radio's pair is registered before session's and turned into wan's,
// telnet's comes twice, user's is missing, and there is one of no resource.

#include "kelmora_json.h"

int kelmora_json_init(void)
{
    int result = 0;
#define REGISTER(number, name, group, directions)                                                                      \
    if ((number) != 5 && (number) != 15)                                                                               \
        result = kelmora_set_translators(number, name##_from_translator, name##_to_translator);                        \
    if ((number) == 0)                                                                                                 \
        result = kelmora_set_translators(5, wan_from_translator, radio_to_translator);                                 \
    if ((number) == 12)                                                                                                \
        result = kelmora_set_translators(12, telnet_from_translator, telnet_to_translator);

    KELMORA_RESOURCES(REGISTER)

#undef REGISTER
    return kelmora_set_translators(KELMORA_RESOURCE_COUNT, user_from_translator, user_to_translator) + result;
}

const char *kelmora_json_get_version(void) { return "0.9"; }
