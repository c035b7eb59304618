#include "frame/translator.h"
#include "records/device.h"

using namespace kelmora;

namespace {

void write(Encoder &out, const kelmora_custom_default_config &config) { out.boolean("enabled", config.enabled); }

void read(Decoder &in, kelmora_custom_default_config &config) { in.checked_boolean("enabled", config.enabled); }

} // namespace

int custom_default_config_to_translator(kelmora_resource *head, char **out)
{
    return encode<write>(head, out, Shape::walking | Shape::literal_when_empty, Flags::pretty);
}

int custom_default_config_from_translator(kelmora_resource *node, const char *text, kelmora_errorlist *errors)
{
    return decode<read>(node, text, errors);
}
