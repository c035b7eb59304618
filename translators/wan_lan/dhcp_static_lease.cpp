#include "frame/translator.h"
#include "records/wan_lan.h"

using namespace kelmora;

namespace {

void to_json(Encoder &out, const kelmora_dhcp_static_lease &lease, const NodeId &id)
{
    out.string("id", id);
    out.string("mac", lease.mac);
    out.string("ip", lease.ip);
    out.string("description", lease.description);
}

void from_json(Decoder &in, kelmora_dhcp_static_lease &lease)
{
    in.required_string("mac"_key, lease.mac);
    in.required_string("ip"_key, lease.ip);
    in.optional_string("description", lease.description);
}

} // namespace

int dhcp_static_lease_to_translator(kelmora_resource *head, char **out)
{
    return encode<to_json>(head, out, Nodes::walking_if_any, Flags::pretty);
}

int dhcp_static_lease_from_translator(kelmora_resource *node, const char *text, kelmora_errorlist *errors)
{
    return decode<from_json>(node, text, errors);
}
