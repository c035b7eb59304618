#include "frame/translator.h"
#include "records/ipv6.h"

using namespace kelmora;

namespace {

void write(Encoder &out, const kelmora_neighbour_hosts &neighbour)
{
    out.text("ip_addr", neighbour.ip_addr);
    out.text("mac_addr", neighbour.mac_addr);
    out.text("interfaceID", neighbour.interfaceID);
    out.integer("nud", neighbour.nud);
}

void read(Decoder &in, kelmora_neighbour_hosts &neighbour)
{
    // The first two messages name the address alone, on purpose.
    in.required_text(key<"ip_addr", "ip_addr", "ip field not found">(), neighbour.ip_addr);
    in.required_text(key<"mac_addr", "mac_addr", "mac field not found">(), neighbour.mac_addr);
    in.required_text("interfaceID"_key, neighbour.interfaceID);
    in.required_integer("nud"_key, neighbour.nud);
}

} // namespace

int neighbour_hosts_to_translator(kelmora_resource *head, char **out)
{
    return encode<write>(head, out, Shape::walking | Shape::always_array, Flags::compact);
}

int neighbour_hosts_from_translator(kelmora_resource *node, const char *text, kelmora_errorlist *errors)
{
    return decode<read>(node, text, errors);
}
