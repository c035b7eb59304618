#include "frame/translator.h"
#include "records/routing.h"

using namespace kelmora;

namespace {

void write(Encoder &out, const kelmora_loopback_detect_status &status, const NodeId &id)
{
    out.text("id", id);
    out.text("port", status.port);
    out.boolean("loop_detect", status.loop_detect);
}

void read(Decoder &in, kelmora_loopback_detect_status &status)
{
    in.required_text("port"_key, status.port);
    in.required_boolean("loop_detect"_key, status.loop_detect);
}

} // namespace

int loopback_detect_status_to_translator(kelmora_resource *head, char **out)
{
    return encode<write>(head, out, Shape::walking, Flags::compact);
}

int loopback_detect_status_from_translator(kelmora_resource *node, const char *text, kelmora_errorlist *errors)
{
    return decode<read>(node, text, errors);
}
