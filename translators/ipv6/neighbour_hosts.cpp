#include "frame/translator.h"
#include "records/ipv6.h"

using namespace kelmora;

namespace {

void to_json(Encoder &out, const kelmora_neighbour_hosts &neighbour)
{
    out.string("ip_addr", neighbour.ip_addr);
    out.string("mac_addr", neighbour.mac_addr);
    out.string("interfaceID", neighbour.interfaceID);
    out.integer("nud", neighbour.nud);
}

void from_json(Decoder &in, kelmora_neighbour_hosts &neighbour)
{
    // Contract: the first two messages name the address alone.
    in.required_string(key<"ip_addr", "ip_addr", "ip field not found">(), neighbour.ip_addr);
    in.required_string(key<"mac_addr", "mac_addr", "mac field not found">(), neighbour.mac_addr);
    in.required_string("interfaceID"_key, neighbour.interfaceID);
    in.required_integer("nud"_key, neighbour.nud);
}

} // namespace

int neighbour_hosts_to_translator(kelmora_resource *head, char **out)
{
    return encode<to_json>(head, out, Nodes::walking, Root::always_array, Flags::plain);
}

int neighbour_hosts_from_translator(kelmora_resource *node, const char *text, kelmora_errorlist *errors)
{
    return decode<from_json>(node, text, errors);
}
