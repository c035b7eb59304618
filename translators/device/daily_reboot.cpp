#include "frame/translator.h"
#include "records/device.h"

using namespace kelmora;

namespace {

void to_json(Encoder &out, const kelmora_daily_reboot &reboot)
{
    out.integer("hour", reboot.hour);
    out.integer("minute", reboot.minute);
    out.boolean("enable", reboot.enable);
    out.boolean("delay", reboot.delay);
}

void from_json(Decoder &in, kelmora_daily_reboot &reboot)
{
    in.required_integer("hour"_key, reboot.hour);
    in.required_integer("minute"_key, reboot.minute);
    in.required_boolean("enable"_key, reboot.enable);
    in.required_boolean("delay"_key, reboot.delay);
}

} // namespace

int daily_reboot_to_translator(kelmora_resource *head, char **out)
{
    return encode<to_json>(head, out, Nodes::walking_if_any, Flags::pretty);
}

int daily_reboot_from_translator(kelmora_resource *node, const char *text, kelmora_errorlist *errors)
{
    return decode<from_json>(node, text, errors);
}
