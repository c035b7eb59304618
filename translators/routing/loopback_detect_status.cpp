#include "frame/translator.h"
#include "records/routing.h"

using namespace kelmora;

namespace {

void to_json(Encoder &out, const kelmora_loopback_detect_status &status, const NodeId &id)
{
    out.string("id", id);
    out.string("port", status.port);
    out.boolean("loop_detect", status.loop_detect);
}

void from_json(Decoder &in, kelmora_loopback_detect_status &status)
{
    in.required_string("port"_key, status.port);
    in.required_boolean("loop_detect"_key, status.loop_detect);
}

} // namespace

int loopback_detect_status_to_translator(kelmora_resource *head, char **out)
{
    return encode<to_json>(head, out, Nodes::walking, Flags::plain);
}

int loopback_detect_status_from_translator(kelmora_resource *node, const char *text, kelmora_errorlist *errors)
{
    return decode<from_json>(node, text, errors);
}
