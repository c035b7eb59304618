#include "frame/translator.h"
#include "records/firewall.h"

using namespace kelmora;

namespace {

void to_json(Encoder &out, const kelmora_filter &filter, const NodeId &id)
{
    out.string("id", id);
    out.boolean("enabled", filter.enabled);
    out.string("description", filter.description);
    out.integer("protocol", filter.protocol);
    out.integer("type", filter.type);
    out.string("target", filter.target);
    out.integer("port_start", filter.port_start);
    out.integer("port_end", filter.port_end);
    out.integer("policy", filter.policy);
}

void from_json(Decoder &in, kelmora_filter &filter)
{
    in.required_boolean("enabled"_key, filter.enabled);
    in.optional_string("description", filter.description); // here: stored even when a key below is missing
    in.required_integer("protocol"_key, filter.protocol);
    in.required_integer("type"_key, filter.type);
    in.required_string("target"_key, filter.target);
    in.optional_integer("port_start", filter.port_start);
    in.optional_integer("port_end", filter.port_end);
    in.optional_integer("policy", filter.policy);
}

} // namespace

int filter_to_translator(kelmora_resource *head, char **out)
{
    return encode<to_json>(head, out, Nodes::walking_if_any, Flags::pretty);
}

int filter_from_translator(kelmora_resource *node, const char *text, kelmora_errorlist *errors)
{
    return decode<from_json>(node, text, errors);
}
