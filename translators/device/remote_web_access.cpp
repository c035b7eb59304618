#include "frame/translator.h"
#include "records/device.h"

using namespace kelmora;

namespace {

void to_json(Encoder &out, const kelmora_remote_web_access &access, const NodeId &id)
{
    out.string("id", id);
    out.boolean("enabled", access.enabled);
    out.integer("port", access.port);
    out.boolean("enable_ip_range", access.enable_ip_range);
    out.string("rangeStart", access.rangeStart);
    out.string("rangeEnd", access.rangeEnd);
    out.boolean("ipv6Enabled", access.ipv6Enabled);
    out.boolean("pingWan", access.pingWan);
}

void from_json(Decoder &in, kelmora_remote_web_access &access)
{
    in.required_boolean("enabled"_key, access.enabled);
    in.required_integer("port"_key, access.port);
    in.optional_boolean("enable_ip_range", access.enable_ip_range);
    // The record's switch: a document that leaves it out is checked against the current setting.
    if (access.enable_ip_range != 0) {
        in.required_string("rangeStart"_key, access.rangeStart);
        in.required_string("rangeEnd"_key, access.rangeEnd);
    } else {
        in.optional_string("rangeStart", access.rangeStart);
        in.optional_string("rangeEnd", access.rangeEnd);
    }
    in.optional_boolean("ipv6Enabled", access.ipv6Enabled);
    in.optional_boolean("pingWan", access.pingWan);
}

} // namespace

int remote_web_access_to_translator(kelmora_resource *head, char **out)
{
    return encode<to_json>(head, out, Nodes::counting, Flags::plain);
}

int remote_web_access_from_translator(kelmora_resource *node, const char *text, kelmora_errorlist *errors)
{
    return decode<from_json>(node, text, errors);
}
