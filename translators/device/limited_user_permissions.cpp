#include "frame/translator.h"
#include "records/device.h"

using namespace kelmora;

namespace {

void to_json(Encoder &out, const kelmora_limited_user_permissions &permissions)
{
    out.array("limited_user_permissions", [&](ArrayEncoder &list) {
        for (const auto &permission : chain(permissions.limited_user_permissions)) {
            list.object([&](Encoder &entry) {
                entry.whole_string("resource_name", permission.resource_name);
                entry.integer("resource_id", permission.resource_id);
            });
        }
    });
}

} // namespace

int limited_user_permissions_to_translator(kelmora_resource *head, char **out)
{
    return encode<to_json>(head, out, Nodes::counting, Flags::plain);
}

// What the limited user may reach is the host's to decide.
int limited_user_permissions_from_translator(kelmora_resource *, const char *, kelmora_errorlist *) { return 1; }
