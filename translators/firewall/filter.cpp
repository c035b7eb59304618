#include "frame/translator.h"
#include "records/firewall.h"

using namespace kelmora;

namespace {

void write(Encoder &out, const kelmora_filter &filter, const NodeId &id)
{
    out.text("id", id);
    out.boolean("enabled", filter.enabled);
    out.text("description", filter.description);
    out.integer("protocol", filter.protocol);
    out.integer("type", filter.type);
    out.text("target", filter.target);
    out.integer("port_start", filter.port_start);
    out.integer("port_end", filter.port_end);
    out.integer("policy", filter.policy);
}

void read(Decoder &in, kelmora_filter &filter)
{
    in.required_boolean("enabled"_key, filter.enabled);
    in.optional_text("description", filter.description); // here on purpose: stored even when a key below is missing
    in.required_integer("protocol"_key, filter.protocol);
    in.required_integer("type"_key, filter.type);
    in.required_text("target"_key, filter.target);
    in.optional_integer("port_start", filter.port_start);
    in.optional_integer("port_end", filter.port_end);
    in.optional_integer("policy", filter.policy);
}

} // namespace

int filter_to_translator(kelmora_resource *head, char **out)
{
    return encode<write>(head, out, Shape::walking | Shape::literal_when_empty, Flags::pretty);
}

int filter_from_translator(kelmora_resource *node, const char *text, kelmora_errorlist *errors)
{
    return decode<read>(node, text, errors);
}
