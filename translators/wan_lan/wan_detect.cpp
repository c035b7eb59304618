#include "frame/translator.h"
#include "records/wan_lan.h"

using namespace kelmora;

namespace {

void to_json(Encoder &out, const kelmora_wan_detect &detected)
{
    out.integer("hasDHCP", detected.hasDHCP);
    out.integer("hasPPPoE", detected.hasPPPoE);
    out.integer("hasStatic", detected.hasStatic);
}

void from_json(Decoder &in, kelmora_wan_detect &detected)
{
    in.optional_integer("hasDHCP", detected.hasDHCP);
    in.optional_integer("hasPPPoE", detected.hasPPPoE);
    in.optional_integer("hasStatic", detected.hasStatic);
}

} // namespace

int wan_detect_to_translator(kelmora_resource *head, char **out)
{
    return encode<to_json>(head, out, Nodes::walking_if_any, Flags::pretty);
}

int wan_detect_from_translator(kelmora_resource *node, const char *text, kelmora_errorlist *errors)
{
    return decode<from_json>(node, text, errors);
}
