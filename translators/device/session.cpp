#include "frame/translator.h"
#include "records/device.h"

using namespace kelmora;

namespace {

void to_json(Encoder &out, const kelmora_session &session) { out.string("username", session.username); }

/// A member that is no string is skipped, neither stored nor reported.
template <std::size_t width> void optional_if_string(const Decoder &in, const char *name, char (&field)[width])
{
    const Decoder value = in.optional(name);
    if (value.is_string())
        value.store_string(field);
}

void from_json(Decoder &in, kelmora_session &session)
{
    optional_if_string(in, "username", session.username);
    optional_if_string(in, "password", session.password);
    optional_if_string(in, "token", session.token);
}

} // namespace

int session_to_translator(kelmora_resource *head, char **out)
{
    return encode<to_json>(head, out, Nodes::walking, Root::always_array, Flags::pretty);
}

int session_from_translator(kelmora_resource *node, const char *text, kelmora_errorlist *errors)
{
    auto &session = record_of<kelmora_session>(node); // Contract: before the text is looked at
    return decode_into<from_json>(session, text, errors);
}
