#include "frame/translator.h"
#include "records/ipv6.h"

using namespace kelmora;

namespace {

void write(Encoder &out, const kelmora_ipv6_prefix_delegation &delegation)
{
    out.integer("mode", delegation.mode);
    out.text("prefix", delegation.prefix);
    out.text("interfaceID", delegation.interfaceID);
}

void read(Decoder &in, kelmora_ipv6_prefix_delegation &delegation)
{
    in.checked_integer("mode", delegation.mode);
    in.checked_text("prefix", delegation.prefix);
    in.checked_text("interfaceID", delegation.interfaceID);
}

} // namespace

int ipv6_prefix_delegation_to_translator(kelmora_resource *head, char **out)
{
    return encode<write>(head, out, Shape::counting, Flags::compact);
}

int ipv6_prefix_delegation_from_translator(kelmora_resource *node, const char *text, kelmora_errorlist *errors)
{
    return decode<read>(node, text, errors);
}
