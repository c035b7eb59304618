#include "frame/translator.h"
#include "records/routing.h"

using namespace kelmora;

namespace {

void to_json(Encoder &out, const kelmora_igmp_mld_snooping &snooping) { out.boolean("enabled", snooping.enabled); }

void from_json(Decoder &in, kelmora_igmp_mld_snooping &snooping)
{
    in.required_boolean("enabled"_bare_key, snooping.enabled);
}

} // namespace

int igmp_mld_snooping_to_translator(kelmora_resource *head, char **out)
{
    return encode<to_json>(head, out, Nodes::walking, Flags::pretty);
}

int igmp_mld_snooping_from_translator(kelmora_resource *node, const char *text, kelmora_errorlist *errors)
{
    return decode<from_json>(node, text, errors);
}
