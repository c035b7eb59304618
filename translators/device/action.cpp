#include "frame/translator.h"
#include "records/device.h"

using namespace kelmora;

namespace {

void to_json(Encoder &out, const kelmora_action &action) { out.integer("actionID", action.actionID); }

// Contract: its absence is reported in the resource's name.
constexpr Key action_id() { return key<"actionID", "action", "action field not found">(); }

void from_json(Decoder &in, kelmora_action &action) { in.required_integer(action_id(), action.actionID); }

} // namespace

int action_to_translator(kelmora_resource *head, char **out)
{
    return encode<to_json>(head, out, Nodes::walking, Root::always_array, Flags::plain);
}

int action_from_translator(kelmora_resource *node, const char *text, kelmora_errorlist *errors)
{
    return decode_after<from_json>(action_id(), node, text, errors);
}
