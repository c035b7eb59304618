#include "frame/translator.h"
#include "records/wan_lan.h"

using namespace kelmora;

namespace {

void write(Encoder &out, const kelmora_lan &lan)
{
    out.text("interfaceID", lan.interfaceID);
    out.text("gateway", lan.gateway);
}

void read(Decoder &in, kelmora_lan &lan)
{
    in.required_text("interfaceID"_key, lan.interfaceID);
    in.optional_text("gateway", lan.gateway);
}

} // namespace

int lan_to_translator(kelmora_resource *head, char **out)
{
    return encode<write>(head, out, Shape::walking | Shape::always_array, Flags::compact);
}

int lan_from_translator(kelmora_resource *node, const char *text, kelmora_errorlist *errors)
{
    return decode_after<read>("interfaceID"_key, node, text, errors);
}
