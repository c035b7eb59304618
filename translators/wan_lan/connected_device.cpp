#include "frame/translator.h"
#include "records/wan_lan.h"

using namespace kelmora;

namespace {

void to_json(Encoder &out, const kelmora_connected_device &device, const NodeId &id)
{
    out.string("id", id);
    out.string("hostname", device.hostname);
    out.string("ip", device.ip);
    out.string("mac", device.mac);
    out.string("network", device.network);
    out.integer("opMode", device.opMode);
    out.real("txRate", device.txRate);
    out.real("rxRate", device.rxRate);
    out.integer("signalLevel", device.signalLevel);
    out.integer("txBytes", device.txBytes);
    out.integer("rxBytes", device.rxBytes);
    out.integer("unitySize", device.unitySize);
    out.boolean("isStaticIP", device.isStaticIP);
    out.boolean("isDMZ", device.isDMZ);
    out.integer("time", device.time);
    out.integer("frequency", device.frequency);
    out.array("ip6_list", [&](ArrayEncoder &list) {
        for (const auto &node : chain(device.ip6_list))
            list.string(node.address);
    });
    out.integer("ip6_count", device.ip6_count); // the host's count, which need not be the list's length
}

} // namespace

int connected_device_to_translator(kelmora_resource *head, char **out)
{
    return encode<to_json>(head, out, Nodes::walking_if_any, Flags::pretty);
}

// The devices are what the host has seen.
int connected_device_from_translator(kelmora_resource *, const char *, kelmora_errorlist *) { return 1; }
