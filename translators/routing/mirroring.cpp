#include "frame/translator.h"
#include "records/routing.h"

using namespace kelmora;

namespace {

void to_json(Encoder &out, const kelmora_mirroring &mirroring, const NodeId &id)
{
    out.string("id", id);
    out.boolean("enabled", mirroring.enabled);
    out.integer("mirrored_port", mirroring.mirrored_port);
    out.integer("mirror_port", mirroring.mirror_port);
}

void from_json(Decoder &in, kelmora_mirroring &mirroring)
{
    in.required_boolean("enabled"_key, mirroring.enabled);
    in.required_integer("mirrored_port"_key, mirroring.mirrored_port);
    in.required_integer("mirror_port"_key, mirroring.mirror_port);
}

} // namespace

int mirroring_to_translator(kelmora_resource *head, char **out)
{
    return encode<to_json>(head, out, Nodes::head_only_if_any, Root::always_object, Flags::pretty);
}

int mirroring_from_translator(kelmora_resource *node, const char *text, kelmora_errorlist *errors)
{
    return decode<from_json>(node, text, errors);
}
