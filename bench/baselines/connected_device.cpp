#include "bench/baselines/baselines.h"
#include "bench/baselines/json.h"

#include "records/wan_lan.h"

namespace kelmora_bench {

namespace {

void fill(json_t *out, const kelmora_connected_device &device, const char *id)
{
    json_object_set_new(out, "id", json_string(id));
    json_object_set_new(out, "hostname", json_string(device.hostname));
    json_object_set_new(out, "ip", json_string(device.ip));
    json_object_set_new(out, "mac", json_string(device.mac));
    json_object_set_new(out, "network", json_string(device.network));
    json_object_set_new(out, "opMode", json_integer(device.opMode));
    json_object_set_new(out, "txRate", json_real(device.txRate));
    json_object_set_new(out, "rxRate", json_real(device.rxRate));
    json_object_set_new(out, "signalLevel", json_integer(device.signalLevel));
    json_object_set_new(out, "txBytes", json_integer(device.txBytes));
    json_object_set_new(out, "rxBytes", json_integer(device.rxBytes));
    json_object_set_new(out, "unitySize", json_integer(device.unitySize));
    json_object_set_new(out, "isStaticIP", json_boolean(device.isStaticIP));
    json_object_set_new(out, "isDMZ", json_boolean(device.isDMZ));
    json_object_set_new(out, "time", json_integer(device.time));
    json_object_set_new(out, "frequency", json_integer(device.frequency));
    json_t *list = json_array();
    for (const auto *node = device.ip6_list; node != nullptr; node = node->next)
        json_array_append_new(list, json_string(node->address));
    json_object_set_new(out, "ip6_list", list);
    json_object_set_new(out, "ip6_count", json_integer(device.ip6_count));
}

} // namespace

} // namespace kelmora_bench

using namespace kelmora_bench;

int connected_device_to_baseline(kelmora_resource *head, char **out)
{
    return render_nodes<kelmora_connected_device, fill>(head, pretty, out);
}
