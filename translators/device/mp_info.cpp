#include "frame/translator.h"
#include "records/device.h"

using namespace kelmora;

namespace {

// The two directions carry different fields: the password is never shown, the information never set.

void to_json(Encoder &out, const kelmora_mp_info &mp_info) { out.string("info", mp_info.info); }

void from_json(Decoder &in, kelmora_mp_info &mp_info) { in.required_string("password"_key, mp_info.password); }

} // namespace

int mp_info_to_translator(kelmora_resource *head, char **out)
{
    return encode<to_json>(head, out, Nodes::walking, Flags::pretty);
}

int mp_info_from_translator(kelmora_resource *node, const char *text, kelmora_errorlist *errors)
{
    return decode<from_json>(node, text, errors);
}
