#include "frame/translator.h"
#include "records/device.h"

using namespace kelmora;

namespace {

void write(Encoder &out, const kelmora_session &session) { out.text("username", session.username); }

/// Skips a member that is no string, on purpose: it is neither stored nor reported.
template <std::size_t width> void read_if_text(Decoder &in, const char *name, char (&field)[width])
{
    const Decoder value = in.optional(name);
    if (value.is_text())
        value.store_text(field);
}

void read(Decoder &in, kelmora_session &session)
{
    read_if_text(in, "username", session.username);
    read_if_text(in, "password", session.password);
    read_if_text(in, "token", session.token);
}

} // namespace

int session_to_translator(kelmora_resource *head, char **out)
{
    return encode<write>(head, out, Shape::walking | Shape::always_array, Flags::pretty);
}

int session_from_translator(kelmora_resource *node, const char *text, kelmora_errorlist *errors)
{
    auto &session = record_of<kelmora_session>(node); // before the text is looked at, on purpose
    return decode_into<read>(session, text, errors);
}
