#include "frame/translator.h"
#include "records/wan_lan.h"

using namespace kelmora;

namespace {

void write(Encoder &out, const kelmora_dhcp_static_lease &lease, const NodeId &id)
{
    out.text("id", id);
    out.text("mac", lease.mac);
    out.text("ip", lease.ip);
    out.text("description", lease.description);
}

void read(Decoder &in, kelmora_dhcp_static_lease &lease)
{
    in.required_text("mac"_key, lease.mac);
    in.required_text("ip"_key, lease.ip);
    in.optional_text("description", lease.description);
}

} // namespace

int dhcp_static_lease_to_translator(kelmora_resource *head, char **out)
{
    return encode<write>(head, out, Shape::walking | Shape::literal_when_empty, Flags::pretty);
}

int dhcp_static_lease_from_translator(kelmora_resource *node, const char *text, kelmora_errorlist *errors)
{
    return decode<read>(node, text, errors);
}
