#include "frame/translator.h"
#include "records/device.h"

using namespace kelmora;

namespace {

void to_json(Encoder &out, const kelmora_limits &limits)
{
    out.integer("port_redirect", limits.port_redirect);
    out.integer("qos_rules", limits.qos_rules);
    out.integer("static_leases", limits.static_leases);
    out.integer("filter_ip", limits.filter_ip);
    out.integer("filter_mac", limits.filter_mac);
    out.integer("filter_port", limits.filter_port);
    out.integer("filter_url", limits.filter_url);
    out.array("wifi_limits", [&limits](ArrayEncoder &list) {
        for (const auto &wifi_limit : chain(limits.wifi_limits)) {
            list.object([&wifi_limit](Encoder &entry) {
                entry.string("radio_id", wifi_limit.radio_id);
                entry.integer("value", wifi_limit.value);
            });
        }
    });
}

void from_json(Decoder &in, kelmora_limits &limits)
{
    in.optional_integer("port_redirect", limits.port_redirect);
    in.optional_integer("qos_rules", limits.qos_rules);
    in.optional_integer("static_leases", limits.static_leases);
    in.optional_integer("filter_ip", limits.filter_ip);
    in.optional_integer("filter_mac", limits.filter_mac);
    in.optional_integer("filter_port", limits.filter_port);
    in.optional_integer("filter_url", limits.filter_url);

    // Each entry goes in front of those that are there: old ones stay, new ones end up in reverse order.
    for (const Decoder element : in.optional_array("wifi_limits")) {
        auto *wifi_limit = new_node<kelmora_limits_wifi_limit>(in, "wifi_limits");
        if (wifi_limit == nullptr)
            return;
        element.optional_string("radio_id", wifi_limit->radio_id);
        element.optional_integer("value", wifi_limit->value);
        wifi_limit->next = limits.wifi_limits;
        limits.wifi_limits = wifi_limit;
    }
}

} // namespace

int limits_to_translator(kelmora_resource *head, char **out)
{
    return encode<to_json>(head, out, Nodes::walking_if_any, Flags::pretty);
}

int limits_from_translator(kelmora_resource *node, const char *text, kelmora_errorlist *errors)
{
    return decode<from_json>(node, text, errors);
}
