#include "frame/translator.h"
#include "records/wan_lan.h"

using namespace kelmora;

namespace {

void to_json(Encoder &out, const kelmora_dhcp_server &server, const NodeId &id)
{
    out.string("id", id);
    out.boolean("enabled", server.enabled);
    out.string("interface", server.interface);
    out.string("rangeStart", server.rangeStart);
    out.string("rangeEnd", server.rangeEnd);
    out.integer("dns_mode", server.dns_mode);
    out.integer("dhcpLeaseTime", server.dhcpLeaseTime);
    out.string("dns1", server.dns1);
    out.string("dns2", server.dns2);
    out.array("leases", [&](ArrayEncoder &list) {
        for (const auto &lease : chain(server.leases)) {
            list.object([&](Encoder &entry) {
                entry.string("mac", lease.mac);
                entry.string("ip", lease.ip);
            });
        }
    });
}

void from_json(Decoder &in, kelmora_dhcp_server &server)
{
    in.leak_document_on_success(); // Contract: success alone leaks the document
    in.required_boolean("enabled"_key, server.enabled);
    in.required_string("interface"_key, server.interface);
    in.required_string("rangeStart"_key, server.rangeStart);
    in.required_string("rangeEnd"_key, server.rangeEnd);
    in.optional_integer("dns_mode", server.dns_mode);
    in.optional_integer("dhcpLeaseTime", server.dhcpLeaseTime);
    in.required_string("dns1"_key, server.dns1); // required whatever the mode
    in.required_string("dns2"_key, server.dns2);
}

} // namespace

int dhcp_server_to_translator(kelmora_resource *head, char **out)
{
    return encode<to_json>(head, out, Nodes::counting, Flags::plain);
}

int dhcp_server_from_translator(kelmora_resource *node, const char *text, kelmora_errorlist *errors)
{
    return decode<from_json>(node, text, errors);
}
