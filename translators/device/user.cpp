#include "frame/translator.h"
#include "records/device.h"

using namespace kelmora;

namespace {

void to_json(Encoder &out, const kelmora_user &user, const NodeId &id)
{
    out.string("id", id);
    out.string("username", user.username);
    out.string("password", user.password);
    out.boolean("is_privileged", user.is_privileged);
}

void from_json(Decoder &in, kelmora_user &user)
{
    in.required_string("username"_key, user.username);
    in.required_string("password"_key, user.password);
    in.optional_boolean("is_privileged", user.is_privileged);
}

} // namespace

int user_to_translator(kelmora_resource *head, char **out)
{
    return encode<to_json>(head, out, Nodes::walking, Flags::plain);
}

int user_from_translator(kelmora_resource *node, const char *text, kelmora_errorlist *errors)
{
    return decode_after<from_json>("username"_key, node, text, errors);
}
