#include "frame/translator.h"
#include "records/device.h"

using namespace kelmora;

namespace {

void write(Encoder &out, const kelmora_factory_default &factory_default, const NodeId &id)
{
    out.text("id", id);
    out.integer("pressedTime", factory_default.pressedTime);
}

void read(Decoder &in, kelmora_resource *node)
{
    // Its absence is reported under the resource's name, on purpose.
    const Decoder pressed_time = in.required(key<"pressedTime", "factory_default">());
    if (pressed_time)
        record_of<kelmora_factory_default>(node).pressedTime = static_cast<std::int32_t>(pressed_time.integer());
}

} // namespace

int factory_default_to_translator(kelmora_resource *head, char **out)
{
    return encode<write>(head, out, Shape::walking | Shape::always_array, Flags::compact);
}

int factory_default_from_translator(kelmora_resource *node, const char *text, kelmora_errorlist *errors)
{
    return decode<read>(node, text, errors);
}
