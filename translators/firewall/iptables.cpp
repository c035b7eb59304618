#include "frame/translator.h"
#include "records/firewall.h"

#include <cstdint>

using namespace kelmora;

namespace {

void to_json(Encoder &out, const kelmora_iptables &rule, const NodeId &id)
{
    out.string("id", id);
    out.integer("ip_protocol", rule.ip_protocol);
    out.integer("position", rule.position);
    out.integer("chain", rule.chain);
    out.integer("protocol", rule.protocol);
    out.object("source", [&](Encoder &end) {
        end.string("ip", rule.source_ip);
        end.string("mac", rule.source_mac);
        end.string("interface", rule.source_interface);
        end.integer("port", rule.source_port);
    });
    out.object("destination", [&](Encoder &end) {
        end.string("ip", rule.destination_ip);
        end.string("mac", rule.destination_mac);
        end.string("interface", rule.destination_interface);
        end.integer("port", rule.destination_port);
    });
    out.string("url", rule.url);
    out.integer("policy", rule.policy);
}

/// One end of the traffic. Contract: each string is ended by one more NUL behind its field, so an address that is there
/// empties the MAC address, and a MAC address the interface, unless the document has these as well.
void end_from_json(const Decoder &end, char (&ip)[46], char (&mac)[18], char (&interface)[6], std::int32_t &port)
{
    if (const Decoder text = end.optional("ip")) {
        text.store_string(ip);
        mac[0] = '\0';
    }
    if (const Decoder text = end.optional("mac")) {
        text.store_string(mac);
        interface[0] = '\0';
    }
    end.optional_string("interface", interface);
    end.optional_integer("port", port);
}

void from_json(Decoder &in, kelmora_iptables &rule)
{
    in.required_integer("chain"_key, rule.chain);
    in.required_integer("policy"_key, rule.policy);
    in.optional_integer("ip_protocol", rule.ip_protocol);
    in.optional_integer("position", rule.position);
    in.optional_integer("protocol", rule.protocol);
    end_from_json(in.optional("source"), rule.source_ip, rule.source_mac, rule.source_interface, rule.source_port);
    end_from_json(in.optional("destination"), rule.destination_ip, rule.destination_mac, rule.destination_interface,
                  rule.destination_port);
    in.optional_string("url", rule.url);
}

} // namespace

int iptables_to_translator(kelmora_resource *head, char **out)
{
    return encode<to_json>(head, out, Nodes::walking_if_any, Flags::pretty);
}

int iptables_from_translator(kelmora_resource *node, const char *text, kelmora_errorlist *errors)
{
    return decode<from_json>(node, text, errors);
}
