#include "frame/translator.h"
#include "records/wan_lan.h"

using namespace kelmora;

namespace {

void write(Encoder &out, const kelmora_wan &wan, const NodeId &id)
{
    out.text("id", id);
    out.text("interfaceID", wan.interfaceID);
    out.integer("mode", wan.mode);
    out.integer("address_mode_v6", wan.address_mode_v6);
    out.text("gateway", wan.gateway);
    out.text("gateway_v6", wan.gateway_v6);
    out.object("dns_v4", [&](Encoder &dns) {
        dns.boolean("automatic", wan.dns_v4_automatic);
        dns.text("dns1", wan.dns_v4_dns1);
        dns.text("dns2", wan.dns_v4_dns2);
        dns.text("dns3", wan.dns_v4_dns3);
    });
    out.object("dns_v6", [&](Encoder &dns) {
        dns.boolean("automatic", wan.dns_v6_automatic);
        dns.text("dns1", wan.dns_v6_dns1);
        dns.text("dns2", wan.dns_v6_dns2);
        dns.text("dns3", wan.dns_v6_dns3);
    });
    out.text("clonedMac", wan.clonedMac);
    out.boolean("napt_enable", wan.napt_enable);
    out.boolean("vlan_enable", wan.vlan_enable);
    out.boolean("prefix_enable", wan.prefix_enable);
    if (wan.vlan_enable != 0)
        out.integer("vlanID", wan.vlanID);
    else
        out.whole_text("vlanID", ""); // on purpose: an untagged connection has none, not VLAN 0
    out.integer("multicast_vlanID", wan.multicast_vlanID);
    out.boolean("omci_configured", wan.omci_configured);
    out.integer("protocol", wan.protocol);
}

void read(Decoder &in, kelmora_wan &wan)
{
    in.required_text("interfaceID"_key, wan.interfaceID);
    in.required_integer("mode"_key, wan.mode);
    in.optional_integer("address_mode_v6", wan.address_mode_v6);
    in.optional_text("gateway", wan.gateway);
    in.optional_text("gateway_v6", wan.gateway_v6);
    Decoder dns_v4 = in.required(key<"dns_v4", "dns_v4", "dns_v4 fields not found">());
    dns_v4.required_boolean(key<"automatic", "dns_v4.automatic">(), wan.dns_v4_automatic);
    dns_v4.optional_text("dns1", wan.dns_v4_dns1);
    dns_v4.optional_text("dns2", wan.dns_v4_dns2);
    dns_v4.optional_text("dns3", wan.dns_v4_dns3);
    if (Decoder dns_v6 = in.optional("dns_v6")) {
        dns_v6.required_boolean(key<"automatic", "dns_v6.automatic">(), wan.dns_v6_automatic);
        dns_v6.optional_text("dns1", wan.dns_v6_dns1);
        dns_v6.optional_text("dns2", wan.dns_v6_dns2);
        dns_v6.optional_text("dns3", wan.dns_v6_dns3);
    }
    in.optional_text("clonedMac", wan.clonedMac);
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
    return encode<write>(head, out, Shape::counting, Flags::compact);
}

int wan_from_translator(kelmora_resource *node, const char *text, kelmora_errorlist *errors)
{
    return decode_after<read>("interfaceID"_key, node, text, errors);
}
