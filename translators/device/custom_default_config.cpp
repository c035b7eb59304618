#include "frame/translator.h"
#include "records/device.h"

using namespace kelmora;

namespace {

void to_json(Encoder &out, const kelmora_custom_default_config &config) { out.boolean("enabled", config.enabled); }

void from_json(Decoder &in, kelmora_custom_default_config &config) { in.checked_boolean("enabled", config.enabled); }

} // namespace

int custom_default_config_to_translator(kelmora_resource *head, char **out)
{
    return encode<to_json>(head, out, Nodes::walking_if_any, Flags::pretty);
}

int custom_default_config_from_translator(kelmora_resource *node, const char *text, kelmora_errorlist *errors)
{
    return decode<from_json>(node, text, errors);
}
