#include "frame/translator.h"
#include "records/device.h"

using namespace kelmora;

namespace {

void to_json(Encoder &out, const kelmora_factory_default &factory_default, const NodeId &id)
{
    out.string("id", id);
    out.integer("pressedTime", factory_default.pressedTime);
}

// Contract: its absence is reported in the resource's name.
constexpr Key pressed_time() { return key<"pressedTime", "factory_default", "pressedTime field not found">(); }

void from_json(Decoder &in, kelmora_factory_default &factory_default)
{
    in.required_integer(pressed_time(), factory_default.pressedTime);
}

} // namespace

int factory_default_to_translator(kelmora_resource *head, char **out)
{
    return encode<to_json>(head, out, Nodes::walking, Root::always_array, Flags::plain);
}

int factory_default_from_translator(kelmora_resource *node, const char *text, kelmora_errorlist *errors)
{
    return decode_after<from_json>(pressed_time(), node, text, errors);
}
