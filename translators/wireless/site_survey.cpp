#include "frame/translator.h"
#include "records/wireless.h"

using namespace kelmora;

namespace {

void write(Encoder &out, const kelmora_site_survey &access_point)
{
    out.text("ssid", access_point.ssid);
    out.integer("signal_level", access_point.signal_level);
    out.integer("channel", access_point.channel);
    out.integer("extension", access_point.extension);
    out.integer("bandwidth", access_point.bandwidth);
    out.text("mac", access_point.mac);
    out.integer("cipher", access_point.cipher);
    out.integer("crypto", access_point.crypto);
    out.integer("op_mode", access_point.op_mode);
}

} // namespace

int site_survey_to_translator(kelmora_resource *head, char **out)
{
    return encode<write>(head, out, Shape::walking | Shape::literal_when_empty, Flags::pretty);
}

// A scan is read-only.
int site_survey_from_translator(kelmora_resource * /*node*/, const char * /*text*/, kelmora_errorlist * /*errors*/)
{
    return 1;
}
