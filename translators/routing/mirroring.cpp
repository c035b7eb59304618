#include "frame/translator.h"
#include "records/routing.h"

using namespace kelmora;

namespace {

void write(Encoder &out, const kelmora_mirroring &mirroring, const NodeId &id)
{
    out.text("id", id);
    out.boolean("enabled", mirroring.enabled);
    out.integer("mirrored_port", mirroring.mirrored_port);
    out.integer("mirror_port", mirroring.mirror_port);
}

void read(Decoder &in, kelmora_mirroring &mirroring)
{
    in.required_boolean("enabled"_key, mirroring.enabled);
    in.required_integer("mirrored_port"_key, mirroring.mirrored_port);
    in.required_integer("mirror_port"_key, mirroring.mirror_port);
}

} // namespace

int mirroring_to_translator(kelmora_resource *head, char **out)
{
    return encode<write>(head, out, Shape::head_only | Shape::always_object | Shape::literal_when_empty, Flags::pretty);
}

int mirroring_from_translator(kelmora_resource *node, const char *text, kelmora_errorlist *errors)
{
    return decode<read>(node, text, errors);
}
