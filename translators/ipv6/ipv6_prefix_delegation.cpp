#include "frame/translator.h"
#include "records/ipv6.h"

using namespace kelmora;

namespace {

void to_json(Encoder &out, const kelmora_ipv6_prefix_delegation &delegation)
{
    out.integer("mode", delegation.mode);
    out.string("prefix", delegation.prefix);
    out.string("interfaceID", delegation.interfaceID);
}

void from_json(Decoder &in, kelmora_ipv6_prefix_delegation &delegation)
{
    in.checked_integer("mode", delegation.mode);
    in.checked_string("prefix", delegation.prefix);
    in.checked_string("interfaceID", delegation.interfaceID);
}

} // namespace

int ipv6_prefix_delegation_to_translator(kelmora_resource *head, char **out)
{
    return encode<to_json>(head, out, Nodes::counting, Flags::plain);
}

int ipv6_prefix_delegation_from_translator(kelmora_resource *node, const char *text, kelmora_errorlist *errors)
{
    return decode<from_json>(node, text, errors);
}
