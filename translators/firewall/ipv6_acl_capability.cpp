#include "frame/translator.h"
#include "records/firewall.h"

using namespace kelmora;

namespace {

void write(Encoder &out, const kelmora_ipv6_acl_capability &capability, const NodeId &id)
{
    out.text("id", id);
    out.boolean("ipv6_acl_capability", capability.capability);
    out.array("available_services", [&](ArrayEncoder &list) {
        for (const auto &service : capability.available_services)
            list.text(service); // the empty ones too, on purpose
    });
}

// The names of the services are the device's to report.
void read(Decoder &in, kelmora_ipv6_acl_capability &capability)
{
    in.required_boolean("ipv6_acl_capability"_key, capability.capability);
}

} // namespace

int ipv6_acl_capability_to_translator(kelmora_resource *head, char **out)
{
    return encode<write>(head, out, Shape::walking | Shape::literal_when_empty, Flags::compact);
}

int ipv6_acl_capability_from_translator(kelmora_resource *node, const char *text, kelmora_errorlist *errors)
{
    return decode<read>(node, text, errors);
}
