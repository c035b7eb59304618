#include "frame/translator.h"
#include "records/ipv6.h"

using namespace kelmora;

namespace {

void to_json(Encoder &out, const kelmora_ipv6_dhcp_relay &relay) { out.string("interfaceID", relay.interfaceID); }

void from_json(Decoder &in, kelmora_ipv6_dhcp_relay &relay)
{
    in.required_string("interfaceID"_bare_key, relay.interfaceID);
}

} // namespace

int ipv6_dhcp_relay_to_translator(kelmora_resource *head, char **out)
{
    return encode<to_json>(head, out, Nodes::counting, Flags::plain);
}

int ipv6_dhcp_relay_from_translator(kelmora_resource *node, const char *text, kelmora_errorlist *errors)
{
    return decode<from_json>(node, text, errors);
}
