#include "frame/translator.h"
#include "records/firewall.h"

using namespace kelmora;

namespace {

void to_json(Encoder &out, const kelmora_acl_capability &capability, const NodeId &id)
{
    out.string("id", id);
    out.boolean("acl_capability", capability.capability);
    out.array("available_services", [&](ArrayEncoder &list) {
        for (const auto &service : capability.available_services)
            list.string(service); // the empty ones too: there are always eight
    });
}

// The names of the services are the device's to report.
void from_json(Decoder &in, kelmora_acl_capability &capability)
{
    in.required_boolean("acl_capability"_key, capability.capability);
}

} // namespace

int acl_capability_to_translator(kelmora_resource *head, char **out)
{
    return encode<to_json>(head, out, Nodes::walking_if_any, Flags::plain);
}

int acl_capability_from_translator(kelmora_resource *node, const char *text, kelmora_errorlist *errors)
{
    return decode<from_json>(node, text, errors);
}
