#include "frame/translator.h"
#include "records/qos.h"

using namespace kelmora;

namespace {

void write(Encoder &out, const kelmora_qos_rule &rule, const NodeId &id)
{
    out.text("id", id);
    out.boolean("enabled", rule.enabled);
    out.text("name", rule.name);
    out.integer("type", rule.type);
    out.integer("mode", rule.mode);
    out.integer("download", rule.download);
    out.integer("upload", rule.upload);
    out.text("target", rule.target);
}

void read(Decoder &in, kelmora_qos_rule &rule)
{
    in.required_boolean("enabled"_key, rule.enabled);
    in.optional_text("name", rule.name);
    in.required_integer("type"_key, rule.type);
    in.required_integer("mode"_key, rule.mode);
    in.required_integer("download"_key, rule.download);
    in.required_integer("upload"_key, rule.upload);
    in.required_text("target"_key, rule.target);
}

} // namespace

int qos_rule_to_translator(kelmora_resource *head, char **out)
{
    return encode<write>(head, out, Shape::walking | Shape::literal_when_empty, Flags::pretty);
}

int qos_rule_from_translator(kelmora_resource *node, const char *text, kelmora_errorlist *errors)
{
    return decode<read>(node, text, errors);
}
