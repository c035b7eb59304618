#include "frame/translator.h"
#include "records/qos.h"

using namespace kelmora;

namespace {

void write(Encoder &out, const kelmora_qos &qos, const NodeId &id)
{
    out.text("id", id);
    out.boolean("enabled", qos.enabled);
    out.integer("global_download", qos.global_download);
    out.integer("global_upload", qos.global_upload);
}

void read(Decoder &in, kelmora_qos &qos)
{
    in.required_boolean("enabled"_key, qos.enabled);
    // Reported under the short names, on purpose.
    in.required_integer(key<"global_download", "download", "download field not found">(), qos.global_download);
    in.required_integer(key<"global_upload", "upload", "upload field not found">(), qos.global_upload);
}

} // namespace

int qos_to_translator(kelmora_resource *head, char **out)
{
    return encode<write>(head, out, Shape::walking | Shape::literal_when_empty, Flags::pretty);
}

int qos_from_translator(kelmora_resource *node, const char *text, kelmora_errorlist *errors)
{
    return decode<read>(node, text, errors);
}
