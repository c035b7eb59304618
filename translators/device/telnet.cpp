#include "frame/translator.h"
#include "records/device.h"

using namespace kelmora;

namespace {

void from_json(Decoder &in, kelmora_telnet &telnet)
{
    in.required_string("password"_key, telnet.password); // first: stored even when the switch is missing
    in.required_boolean("enable"_key, telnet.enable);
}

} // namespace

// The settings are write-only.
int telnet_to_translator(kelmora_resource *, char **) { return 1; }

int telnet_from_translator(kelmora_resource *node, const char *text, kelmora_errorlist *errors)
{
    return decode<from_json>(node, text, errors);
}
