#include "frame/translator.h"
#include "records/ipv6.h"

using namespace kelmora;

namespace {

void to_json(Encoder &out, const kelmora_ipv6_dhcp &dhcp)
{
    out.boolean("enabled", dhcp.enabled);
    out.integer("mode", dhcp.mode);
}

void from_json(Decoder &in, kelmora_ipv6_dhcp &dhcp)
{
    in.required_boolean("enabled"_bare_key, dhcp.enabled);
    in.required_integer("mode"_bare_key, dhcp.mode);
}

} // namespace

int ipv6_dhcp_to_translator(kelmora_resource *head, char **out)
{
    return encode<to_json>(head, out, Nodes::counting, Flags::plain);
}

int ipv6_dhcp_from_translator(kelmora_resource *node, const char *text, kelmora_errorlist *errors)
{
    return decode<from_json>(node, text, errors);
}
