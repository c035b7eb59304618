#include "frame/translator.h"
#include "records/ipv6.h"

using namespace kelmora;

namespace {

void write(Encoder &out, const kelmora_ipv6_dhcp_relay &relay) { out.text("interfaceID", relay.interfaceID); }

void read(Decoder &in, kelmora_ipv6_dhcp_relay &relay) { in.required_text("interfaceID"_bare_key, relay.interfaceID); }

} // namespace

int ipv6_dhcp_relay_to_translator(kelmora_resource *head, char **out)
{
    return encode<write>(head, out, Shape::counting, Flags::compact);
}

int ipv6_dhcp_relay_from_translator(kelmora_resource *node, const char *text, kelmora_errorlist *errors)
{
    return decode<read>(node, text, errors);
}
