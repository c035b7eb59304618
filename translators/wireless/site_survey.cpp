#include "frame/translator.h"
#include "records/wireless.h"

using namespace kelmora;

namespace {

void to_json(Encoder &out, const kelmora_site_survey &access_point)
{
    out.string("ssid", access_point.ssid);
    out.integer("signal_level", access_point.signal_level);
    out.integer("channel", access_point.channel);
    out.integer("extension", access_point.extension);
    out.integer("bandwidth", access_point.bandwidth);
    out.string("mac", access_point.mac);
    out.integer("cipher", access_point.cipher);
    out.integer("crypto", access_point.crypto);
    out.integer("op_mode", access_point.op_mode);
}

} // namespace

int site_survey_to_translator(kelmora_resource *head, char **out)
{
    return encode<to_json>(head, out, Nodes::walking_if_any, Flags::pretty);
}

// A scan is read-only.
int site_survey_from_translator(kelmora_resource *, const char *, kelmora_errorlist *) { return 1; }
