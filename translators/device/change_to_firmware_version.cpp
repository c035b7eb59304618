#include "frame/translator.h"
#include "records/device.h"

using namespace kelmora;

namespace {

void write(Encoder &out, const kelmora_change_to_firmware_version &firmware, const NodeId &id)
{
    out.text("id", id);
    out.boolean("change", firmware.change);
    out.text("version", firmware.version);
}

void read(Decoder &in, kelmora_change_to_firmware_version &firmware) { in.optional_boolean("change", firmware.change); }

} // namespace

int change_to_firmware_version_to_translator(kelmora_resource *head, char **out)
{
    return encode<write>(head, out, Shape::head_repeated, Flags::compact);
}

int change_to_firmware_version_from_translator(kelmora_resource *node, const char *text, kelmora_errorlist *errors)
{
    return decode<read>(node, text, errors);
}
