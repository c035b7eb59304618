#include "kelmora_json.h"

#include <cstring>

namespace {

// The pair of every resource that has no unit yet. Reading answers with the empty document, writing with an error.

int pending_to_translator(kelmora_resource *head, char **out)
{
    std::memcpy(*out, head->is_list != 0 ? "[]" : "{}", sizeof "[]");
    return 0;
}

int pending_from_translator(kelmora_resource * /*node*/, const char * /*text*/, kelmora_errorlist *errors)
{
    kelmora_errorlist_add_error(errors, "", "not supported", "json");
    return 0;
}

} // namespace

int kelmora_json_init(void)
{
    int result = 0;
#define REGISTER(number, name, group, directions)                                                                      \
    result = kelmora_set_translators(number, name##_from_translator, name##_to_translator);
#define REGISTER_PENDING(number, name, group, directions)                                                              \
    result = kelmora_set_translators(number, pending_from_translator, pending_to_translator);

    KELMORA_RESOURCES(REGISTER, REGISTER_PENDING)

#undef REGISTER
#undef REGISTER_PENDING
    return result;
}

const char *kelmora_json_get_version(void) { return KELMORA_JSON_VERSION; }
