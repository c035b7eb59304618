#include "frame/translator.h"
#include "records/device.h"

using namespace kelmora;

namespace {

void write(Encoder &out, const kelmora_user &user, const NodeId &id)
{
    out.text("id", id);
    out.text("username", user.username);
    out.text("password", user.password);
    out.boolean("is_privileged", user.is_privileged);
}

void read(Decoder &in, kelmora_user &user)
{
    in.required_text("username"_key, user.username);
    in.required_text("password"_key, user.password);
    in.optional_boolean("is_privileged", user.is_privileged);
}

} // namespace

int user_to_translator(kelmora_resource *head, char **out)
{
    return encode<write>(head, out, Shape::walking, Flags::compact);
}

int user_from_translator(kelmora_resource *node, const char *text, kelmora_errorlist *errors)
{
    return decode_after<read>("username"_key, node, text, errors);
}
