#include "frame/translator.h"
#include "records/device.h"

using namespace kelmora;

namespace {

void to_json(Encoder &out, const kelmora_change_to_firmware_version &firmware, const NodeId &id)
{
    out.string("id", id);
    out.boolean("change", firmware.change);
    out.string("version", firmware.version);
}

void from_json(Decoder &in, kelmora_change_to_firmware_version &firmware)
{
    in.optional_boolean("change", firmware.change);
}

} // namespace

int change_to_firmware_version_to_translator(kelmora_resource *head, char **out)
{
    return encode<to_json>(head, out, Nodes::head_repeated, Flags::plain);
}

int change_to_firmware_version_from_translator(kelmora_resource *node, const char *text, kelmora_errorlist *errors)
{
    return decode<from_json>(node, text, errors);
}
