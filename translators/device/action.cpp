#include "frame/translator.h"
#include "records/device.h"

using namespace kelmora;

namespace {

void write(Encoder &out, const kelmora_action &action) { out.integer("actionID", action.actionID); }

void read(Decoder &in, kelmora_resource *node)
{
    // Its absence is reported in the resource's name, not the key's, on purpose.
    const Decoder action_id = in.required(key<"actionID", "action", "action field not found">());
    if (action_id)
        record_of<kelmora_action>(node).actionID = static_cast<std::uint32_t>(action_id.integer());
}

} // namespace

int action_to_translator(kelmora_resource *head, char **out)
{
    return encode<write>(head, out, Shape::walking | Shape::always_array, Flags::compact);
}

int action_from_translator(kelmora_resource *node, const char *text, kelmora_errorlist *errors)
{
    return decode<read>(node, text, errors);
}
