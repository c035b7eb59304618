#include "frame/translator.h"
#include "records/device.h"

using namespace kelmora;

namespace {

void write(Encoder &out, const kelmora_action &action) { out.integer("actionID", action.actionID); }

// The absence of the key is reported in the resource's name, on purpose.
constexpr Key action_id() { return key<"actionID", "action", "action field not found">(); }

void read(Decoder &in, kelmora_action &action) { in.required_integer(action_id(), action.actionID); }

} // namespace

int action_to_translator(kelmora_resource *head, char **out)
{
    return encode<write>(head, out, Shape::walking | Shape::always_array, Flags::compact);
}

int action_from_translator(kelmora_resource *node, const char *text, kelmora_errorlist *errors)
{
    return decode_after<read>(action_id(), node, text, errors);
}
