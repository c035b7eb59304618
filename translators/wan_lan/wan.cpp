#include "frame/translator.h"
#include "records/wan_lan.h"

using namespace kelmora;

namespace {

void to_json(Encoder &out, const kelmora_wan &wan, const NodeId &id)
{
    out.string("id", id);
    out.string("interfaceID", wan.interfaceID);
    out.integer("mode", wan.mode);
    out.integer("address_mode_v6", wan.address_mode_v6);
    out.string("gateway", wan.gateway);
    out.string("gateway_v6", wan.gateway_v6);
    out.object("dns_v4", [&](Encoder &dns) {
        dns.boolean("automatic", wan.dns_v4_automatic);
        dns.string("dns1", wan.dns_v4_dns1);
        dns.string("dns2", wan.dns_v4_dns2);
        dns.string("dns3", wan.dns_v4_dns3);
    });
    out.object("dns_v6", [&](Encoder &dns) {
        dns.boolean("automatic", wan.dns_v6_automatic);
        dns.string("dns1", wan.dns_v6_dns1);
        dns.string("dns2", wan.dns_v6_dns2);
        dns.string("dns3", wan.dns_v6_dns3);
    });
    out.string("clonedMac", wan.clonedMac);
    out.boolean("napt_enable", wan.napt_enable);
    out.boolean("vlan_enable", wan.vlan_enable);
    out.boolean("prefix_enable", wan.prefix_enable);
    if (wan.vlan_enable != 0)
        out.integer("vlanID", wan.vlanID);
    else
        out.whole_string("vlanID", ""); // an untagged connection has none, which is not VLAN 0
    out.integer("multicast_vlanID", wan.multicast_vlanID);
    out.boolean("omci_configured", wan.omci_configured);
    out.integer("protocol", wan.protocol);
}

void from_json(Decoder &in, kelmora_wan &wan)
{
    in.required_string("interfaceID"_key, wan.interfaceID);
    in.required_integer("mode"_key, wan.mode);
    in.optional_integer("address_mode_v6", wan.address_mode_v6);
    in.optional_string("gateway", wan.gateway);
    in.optional_string("gateway_v6", wan.gateway_v6);
    const Decoder dns_v4 = in.required(key<"dns_v4", "dns_v4", "dns_v4 fields not found">());
    dns_v4.required_boolean("dns_v4.automatic"_key, wan.dns_v4_automatic);
    dns_v4.optional_string("dns1", wan.dns_v4_dns1);
    dns_v4.optional_string("dns2", wan.dns_v4_dns2);
    dns_v4.optional_string("dns3", wan.dns_v4_dns3);
    if (const Decoder dns_v6 = in.optional("dns_v6")) {
        dns_v6.required_boolean("dns_v6.automatic"_key, wan.dns_v6_automatic);
        dns_v6.optional_string("dns1", wan.dns_v6_dns1);
        dns_v6.optional_string("dns2", wan.dns_v6_dns2);
        dns_v6.optional_string("dns3", wan.dns_v6_dns3);
    }
    in.optional_string("clonedMac", wan.clonedMac);
    in.optional_boolean("napt_enable", wan.napt_enable);
    in.optional_boolean("vlan_enable", wan.vlan_enable);
    in.optional_boolean("prefix_enable", wan.prefix_enable);
    in.optional_integer("vlanID", wan.vlanID);
    in.optional_integer("multicast_vlanID", wan.multicast_vlanID);
    in.optional_boolean("omci_configured", wan.omci_configured);
    in.optional_integer("protocol", wan.protocol);
}

} // namespace

int wan_to_translator(kelmora_resource *head, char **out)
{
    return encode<to_json>(head, out, Nodes::counting, Flags::plain);
}

int wan_from_translator(kelmora_resource *node, const char *text, kelmora_errorlist *errors)
{
    return decode_after<from_json>("interfaceID"_key, node, text, errors);
}
