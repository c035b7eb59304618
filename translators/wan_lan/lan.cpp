#include "frame/translator.h"
#include "records/wan_lan.h"

using namespace kelmora;

namespace {

void to_json(Encoder &out, const kelmora_lan &lan)
{
    out.string("interfaceID", lan.interfaceID);
    out.string("gateway", lan.gateway);
}

void from_json(Decoder &in, kelmora_lan &lan)
{
    in.required_string("interfaceID"_key, lan.interfaceID);
    in.optional_string("gateway", lan.gateway);
}

} // namespace

int lan_to_translator(kelmora_resource *head, char **out)
{
    return encode<to_json>(head, out, Nodes::walking, Root::always_array, Flags::plain);
}

int lan_from_translator(kelmora_resource *node, const char *text, kelmora_errorlist *errors)
{
    return decode_after<from_json>("interfaceID"_key, node, text, errors);
}
