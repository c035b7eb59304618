#include "bench/baselines/baselines.h"
#include "bench/baselines/json.h"

#include "records/wireless.h"

namespace kelmora_bench {

namespace {

void fill(json_t *out, const kelmora_wireless &network, const char *id)
{
    json_object_set_new(out, "mode", json_integer(network.mode));
    json_object_set_new(out, "enabled", json_boolean(network.enabled));
    json_object_set_new(out, "id", json_string(id));
    json_object_set_new(out, "ieee_std", json_integer(network.ieee_std));
    json_object_set_new(out, "interfaceID", json_string(network.interfaceID));
    json_object_set_new(out, "radioID", json_string(network.radioID));
    json_object_set_new(out, "broadcast", json_boolean(network.broadcast));
    json_object_set_new(out, "ssid", json_string(network.ssid));
    json_object_set_new(out, "bssid", json_string(network.bssid));
    json_object_set_new(out, "cipher", json_integer(network.cipher));
    json_object_set_new(out, "crypto", json_integer(network.crypto));
    json_object_set_new(out, "key", json_string(network.key));
    json_object_set_new(out, "wps", json_boolean(network.wps));
    json_object_set_new(out, "isRoot", json_boolean(network.isRoot));
    json_object_set_new(out, "client_mode_rssi", json_integer(network.client_mode_rssi));
    json_object_set_new(out, "guest_network", json_boolean(network.guest_network));
}

void from_json(const json_t *in, kelmora_wireless &network)
{
    store_string(network.interfaceID, json_object_get(in, "interfaceID"));
    store_string(network.radioID, json_object_get(in, "radioID"));
    store_boolean(network.broadcast, json_object_get(in, "broadcast"));
    store_string(network.ssid, json_object_get(in, "ssid"));
    store_integer(network.cipher, json_object_get(in, "cipher"));
    store_integer(network.crypto, json_object_get(in, "crypto"));
    store_integer(network.mode, json_object_get(in, "mode"));
    store_string(network.key, json_object_get(in, "key"));
    store_boolean(network.wps, json_object_get(in, "wps"));
    store_boolean(network.enabled, json_object_get(in, "enabled"));
    store_boolean(network.isRoot, json_object_get(in, "isRoot"));
    store_integer(network.client_mode_rssi, json_object_get(in, "client_mode_rssi"));
    store_integer(network.ieee_std, json_object_get(in, "ieee_std"));
    store_boolean(network.guest_network, json_object_get(in, "guest_network"));
}

} // namespace

} // namespace kelmora_bench

using namespace kelmora_bench;

int wireless_to_baseline(kelmora_resource *head, char **out)
{
    return render_nodes<kelmora_wireless, fill>(head, 0, out);
}

int wireless_from_baseline(kelmora_resource *node, const char *text, kelmora_errorlist * /*errors*/)
{
    return document_from_json<kelmora_wireless, from_json>(node, text);
}
