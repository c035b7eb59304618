#include "frame/translator.h"
#include "records/firewall.h"

#include <cstdint>

using namespace kelmora;

namespace {

void to_json(Encoder &out, const kelmora_ipv6_ip_port_filter_default_rule &rule, const NodeId &id)
{
    out.string("id", id);
    out.integer("default_incoming_action", rule.default_incoming_action);
    out.integer("default_outgoing_action", rule.default_outgoing_action);
}

/// Contract: the absence of a key is reported with the resource as the source.
void action_from_json(const Decoder &in, const char *name, std::uint32_t &action)
{
    if (const Decoder value = in.optional(name))
        action = static_cast<std::uint32_t>(value.integer());
    else
        in.fail(name, "field not found", "ipv6_ip_port_filter_default_rule");
}

void from_json(Decoder &in, kelmora_ipv6_ip_port_filter_default_rule &rule)
{
    in.leak_document_on_failure(true); // Contract: a missing key leaks the document
    action_from_json(in, "default_incoming_action", rule.default_incoming_action);
    action_from_json(in, "default_outgoing_action", rule.default_outgoing_action);
}

} // namespace

int ipv6_ip_port_filter_default_rule_to_translator(kelmora_resource *head, char **out)
{
    return encode<to_json>(head, out, Nodes::counting, Flags::plain);
}

int ipv6_ip_port_filter_default_rule_from_translator(kelmora_resource *node, const char *text,
                                                     kelmora_errorlist *errors)
{
    return decode<from_json>(node, text, errors);
}
