#include "bench/baselines/baselines.h"
#include "bench/baselines/json.h"

#include "records/wan_lan.h"

namespace kelmora_bench {

namespace {

void fill(json_t *out, const kelmora_wan &wan, const char *id)
{
    json_object_set_new(out, "id", json_string(id));
    json_object_set_new(out, "interfaceID", json_string(wan.interfaceID));
    json_object_set_new(out, "mode", json_integer(wan.mode));
    json_object_set_new(out, "address_mode_v6", json_integer(wan.address_mode_v6));
    json_object_set_new(out, "gateway", json_string(wan.gateway));
    json_object_set_new(out, "gateway_v6", json_string(wan.gateway_v6));
    json_t *dns_v4 = json_object();
    json_object_set_new(dns_v4, "automatic", json_boolean(wan.dns_v4_automatic));
    json_object_set_new(dns_v4, "dns1", json_string(wan.dns_v4_dns1));
    json_object_set_new(dns_v4, "dns2", json_string(wan.dns_v4_dns2));
    json_object_set_new(dns_v4, "dns3", json_string(wan.dns_v4_dns3));
    json_object_set_new(out, "dns_v4", dns_v4);
    json_t *dns_v6 = json_object();
    json_object_set_new(dns_v6, "automatic", json_boolean(wan.dns_v6_automatic));
    json_object_set_new(dns_v6, "dns1", json_string(wan.dns_v6_dns1));
    json_object_set_new(dns_v6, "dns2", json_string(wan.dns_v6_dns2));
    json_object_set_new(dns_v6, "dns3", json_string(wan.dns_v6_dns3));
    json_object_set_new(out, "dns_v6", dns_v6);
    json_object_set_new(out, "clonedMac", json_string(wan.clonedMac));
    json_object_set_new(out, "napt_enable", json_boolean(wan.napt_enable));
    json_object_set_new(out, "vlan_enable", json_boolean(wan.vlan_enable));
    json_object_set_new(out, "prefix_enable", json_boolean(wan.prefix_enable));
    if (wan.vlan_enable != 0)
        json_object_set_new(out, "vlanID", json_integer(wan.vlanID));
    else
        json_object_set_new(out, "vlanID", json_string(""));
    json_object_set_new(out, "multicast_vlanID", json_integer(wan.multicast_vlanID));
    json_object_set_new(out, "omci_configured", json_boolean(wan.omci_configured));
    json_object_set_new(out, "protocol", json_integer(wan.protocol));
}

void from_json(const json_t *in, kelmora_wan &wan)
{
    store_string(wan.interfaceID, json_object_get(in, "interfaceID"));
    store_integer(wan.mode, json_object_get(in, "mode"));
    store_integer(wan.address_mode_v6, json_object_get(in, "address_mode_v6"));
    store_string(wan.gateway, json_object_get(in, "gateway"));
    store_string(wan.gateway_v6, json_object_get(in, "gateway_v6"));
    const json_t *dns_v4 = json_object_get(in, "dns_v4");
    store_boolean(wan.dns_v4_automatic, json_object_get(dns_v4, "automatic"));
    store_string(wan.dns_v4_dns1, json_object_get(dns_v4, "dns1"));
    store_string(wan.dns_v4_dns2, json_object_get(dns_v4, "dns2"));
    store_string(wan.dns_v4_dns3, json_object_get(dns_v4, "dns3"));
    if (const json_t *dns_v6 = json_object_get(in, "dns_v6")) {
        store_boolean(wan.dns_v6_automatic, json_object_get(dns_v6, "automatic"));
        store_string(wan.dns_v6_dns1, json_object_get(dns_v6, "dns1"));
        store_string(wan.dns_v6_dns2, json_object_get(dns_v6, "dns2"));
        store_string(wan.dns_v6_dns3, json_object_get(dns_v6, "dns3"));
    }
    store_string(wan.clonedMac, json_object_get(in, "clonedMac"));
    store_boolean(wan.napt_enable, json_object_get(in, "napt_enable"));
    store_boolean(wan.vlan_enable, json_object_get(in, "vlan_enable"));
    store_boolean(wan.prefix_enable, json_object_get(in, "prefix_enable"));
    store_integer(wan.vlanID, json_object_get(in, "vlanID"));
    store_integer(wan.multicast_vlanID, json_object_get(in, "multicast_vlanID"));
    store_boolean(wan.omci_configured, json_object_get(in, "omci_configured"));
    store_integer(wan.protocol, json_object_get(in, "protocol"));
}

} // namespace

} // namespace kelmora_bench

using namespace kelmora_bench;

int wan_to_baseline(kelmora_resource *head, char **out) { return render_nodes<kelmora_wan, fill>(head, 0, out); }

int wan_from_baseline(kelmora_resource *node, const char *text, kelmora_errorlist * /*errors*/)
{
    return document_from_json<kelmora_wan, from_json>(node, text);
}
