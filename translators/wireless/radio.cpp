#include "frame/translator.h"
#include "records/wireless.h"

using namespace kelmora;

namespace {

void to_json(Encoder &out, const kelmora_radio &radio, const NodeId &id)
{
    out.string("id", id);
    out.boolean("enabled", radio.enabled);
    out.integer("opMode", radio.opMode);
    out.integer("frequency", radio.frequency);
    out.integer("configuredChannel", radio.configuredChannel);
    out.integer("channel", radio.channel);
    out.integer("extension", radio.extension);
    out.integer("bandwidth", radio.bandwidth);
    out.boolean("mu_mimo", radio.mu_mimo);
    out.boolean("beamforming", radio.beamforming);
    out.boolean("ofdma", radio.ofdma);
    out.boolean("twt", radio.twt);
    out.integer("power", radio.power);
}

void from_json(Decoder &in, kelmora_radio &radio)
{
    in.required_boolean("enabled"_key, radio.enabled);
    in.required_integer("opMode"_key, radio.opMode);
    in.required_integer("frequency"_key, radio.frequency);
    in.required_integer("configuredChannel"_key, radio.configuredChannel);
    in.required_integer("channel"_key, radio.channel);
    in.required_integer("extension"_key, radio.extension);
    in.required_integer("bandwidth"_key, radio.bandwidth);
    in.optional_boolean("mu_mimo", radio.mu_mimo);
    in.optional_boolean("beamforming", radio.beamforming);
    in.optional_boolean("ofdma", radio.ofdma);
    in.optional_boolean("twt", radio.twt);
    in.required_integer("power"_key, radio.power); // last: the features are stored by now
}

} // namespace

int radio_to_translator(kelmora_resource *head, char **out)
{
    return encode<to_json>(head, out, Nodes::counting, Flags::plain);
}

int radio_from_translator(kelmora_resource *node, const char *text, kelmora_errorlist *errors)
{
    return decode<from_json>(node, text, errors);
}
