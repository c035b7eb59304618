#include "frame/translator.h"
#include "records/device.h"

using namespace kelmora;

namespace {

void to_json(Encoder &out, const kelmora_syslog &syslog)
{
    out.boolean("enabled", syslog.enabled);
    out.string("server", syslog.server);
    out.integer("port", syslog.port);
    out.integer("severity_level", syslog.severity_level);
}

void from_json(Decoder &in, kelmora_syslog &syslog)
{
    in.required_boolean("enabled"_key, syslog.enabled);
    in.required_string("server"_key, syslog.server);
    in.optional_integer("port", syslog.port);
    in.optional_integer("severity_level", syslog.severity_level);
}

} // namespace

int syslog_to_translator(kelmora_resource *head, char **out)
{
    return encode<to_json>(head, out, Nodes::walking, Flags::pretty);
}

int syslog_from_translator(kelmora_resource *node, const char *text, kelmora_errorlist *errors)
{
    return decode<from_json>(node, text, errors);
}
