#include "frame/translator.h"
#include "records/qos.h"

using namespace kelmora;

namespace {

void to_json(Encoder &out, const kelmora_qos_rule &rule, const NodeId &id)
{
    out.string("id", id);
    out.boolean("enabled", rule.enabled);
    out.string("name", rule.name);
    out.integer("type", rule.type);
    out.integer("mode", rule.mode);
    out.integer("download", rule.download);
    out.integer("upload", rule.upload);
    out.string("target", rule.target);
}

void from_json(Decoder &in, kelmora_qos_rule &rule)
{
    in.required_boolean("enabled"_key, rule.enabled);
    in.optional_string("name", rule.name);
    in.required_integer("type"_key, rule.type);
    in.required_integer("mode"_key, rule.mode);
    in.required_integer("download"_key, rule.download);
    in.required_integer("upload"_key, rule.upload);
    in.required_string("target"_key, rule.target);
}

} // namespace

int qos_rule_to_translator(kelmora_resource *head, char **out)
{
    return encode<to_json>(head, out, Nodes::walking_if_any, Flags::pretty);
}

int qos_rule_from_translator(kelmora_resource *node, const char *text, kelmora_errorlist *errors)
{
    return decode<from_json>(node, text, errors);
}
