#include "frame/translator.h"
#include "records/wan_lan.h"

using namespace kelmora;

namespace {

void write(Encoder &out, const kelmora_dhcp_server &server, const NodeId &id)
{
    out.text("id", id);
    out.boolean("enabled", server.enabled);
    out.text("interface", server.interface);
    out.text("rangeStart", server.rangeStart);
    out.text("rangeEnd", server.rangeEnd);
    out.integer("dns_mode", server.dns_mode);
    out.integer("dhcpLeaseTime", server.dhcpLeaseTime);
    out.text("dns1", server.dns1);
    out.text("dns2", server.dns2);
    out.array("leases", [&](ArrayEncoder &list) {
        for (const auto &lease : chain(server.leases)) {
            list.object([&](Encoder &entry) {
                entry.text("mac", lease.mac);
                entry.text("ip", lease.ip);
            });
        }
    });
}

void read(Decoder &in, kelmora_dhcp_server &server)
{
    in.keep_document_on_success(); // on purpose: success alone leaves it unreleased
    in.required_boolean("enabled"_key, server.enabled);
    in.required_text("interface"_key, server.interface);
    in.required_text("rangeStart"_key, server.rangeStart);
    in.required_text("rangeEnd"_key, server.rangeEnd);
    in.optional_integer("dns_mode", server.dns_mode);
    in.optional_integer("dhcpLeaseTime", server.dhcpLeaseTime);
    in.required_text("dns1"_key, server.dns1); // whatever the mode, on purpose
    in.required_text("dns2"_key, server.dns2);
}

} // namespace

int dhcp_server_to_translator(kelmora_resource *head, char **out)
{
    return encode<write>(head, out, Shape::counting, Flags::compact);
}

int dhcp_server_from_translator(kelmora_resource *node, const char *text, kelmora_errorlist *errors)
{
    return decode<read>(node, text, errors);
}
