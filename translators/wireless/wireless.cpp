#include "frame/translator.h"
#include "records/wireless.h"

using namespace kelmora;

namespace {

void to_json(Encoder &out, const kelmora_wireless &network, const NodeId &id)
{
    out.integer("mode", network.mode);
    out.boolean("enabled", network.enabled);
    out.string("id", id);
    out.integer("ieee_std", network.ieee_std);
    out.string("interfaceID", network.interfaceID);
    out.string("radioID", network.radioID);
    out.boolean("broadcast", network.broadcast);
    out.string("ssid", network.ssid);
    out.string("bssid", network.bssid);
    out.integer("cipher", network.cipher);
    out.integer("crypto", network.crypto);
    out.string("key", network.key);
    out.boolean("wps", network.wps);
    out.boolean("isRoot", network.isRoot);
    out.integer("client_mode_rssi", network.client_mode_rssi);
    out.boolean("guest_network", network.guest_network);
}

void from_json(Decoder &in, kelmora_wireless &network)
{
    in.required_string("interfaceID"_key, network.interfaceID);
    in.required_string("radioID"_key, network.radioID);
    in.required_boolean("broadcast"_key, network.broadcast);
    in.required_string("ssid"_key, network.ssid);
    in.required_integer("cipher"_key, network.cipher);
    in.required_integer("crypto"_key, network.crypto);
    in.optional_integer("mode", network.mode); // here: stored even when a key below is missing
    in.required_string("key"_key, network.key);
    in.required_boolean("wps"_key, network.wps);
    in.required_boolean("enabled"_key, network.enabled);
    in.optional_boolean("isRoot", network.isRoot);
    in.optional_integer("client_mode_rssi", network.client_mode_rssi);
    in.optional_integer("ieee_std", network.ieee_std);
    in.optional_boolean("guest_network", network.guest_network);
}

} // namespace

int wireless_to_translator(kelmora_resource *head, char **out)
{
    return encode<to_json>(head, out, Nodes::counting, Flags::plain);
}

int wireless_from_translator(kelmora_resource *node, const char *text, kelmora_errorlist *errors)
{
    return decode<from_json>(node, text, errors);
}
