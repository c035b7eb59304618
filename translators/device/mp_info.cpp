#include "frame/translator.h"
#include "records/device.h"

using namespace kelmora;

namespace {

// The two directions carry different fields, on purpose: the password is never shown, the information never set.

void write(Encoder &out, const kelmora_mp_info &mp_info) { out.text("info", mp_info.info); }

void read(Decoder &in, kelmora_mp_info &mp_info) { in.required_text("password"_key, mp_info.password); }

} // namespace

int mp_info_to_translator(kelmora_resource *head, char **out)
{
    return encode<write>(head, out, Shape::walking, Flags::pretty);
}

int mp_info_from_translator(kelmora_resource *node, const char *text, kelmora_errorlist *errors)
{
    return decode<read>(node, text, errors);
}
