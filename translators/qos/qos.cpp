#include "frame/translator.h"
#include "records/qos.h"

using namespace kelmora;

namespace {

void to_json(Encoder &out, const kelmora_qos &qos, const NodeId &id)
{
    out.string("id", id);
    out.boolean("enabled", qos.enabled);
    out.integer("global_download", qos.global_download);
    out.integer("global_upload", qos.global_upload);
}

void from_json(Decoder &in, kelmora_qos &qos)
{
    in.required_boolean("enabled"_key, qos.enabled);
    // Contract: reported under the short names.
    in.required_integer(key<"global_download", "download", "download field not found">(), qos.global_download);
    in.required_integer(key<"global_upload", "upload", "upload field not found">(), qos.global_upload);
}

} // namespace

int qos_to_translator(kelmora_resource *head, char **out)
{
    return encode<to_json>(head, out, Nodes::walking_if_any, Flags::pretty);
}

int qos_from_translator(kelmora_resource *node, const char *text, kelmora_errorlist *errors)
{
    return decode<from_json>(node, text, errors);
}
