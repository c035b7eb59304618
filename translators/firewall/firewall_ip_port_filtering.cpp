#include "frame/translator.h"
#include "records/firewall.h"

using namespace kelmora;

namespace {

void to_json(Encoder &out, const kelmora_firewall_ip_port_filtering &filter, const NodeId &id)
{
    out.string("id", id);
    out.integer("outgoing_default_action", filter.outgoing_default_action);
    out.integer("incoming_default_action", filter.incoming_default_action);
    out.array("filter_lists", [&](ArrayEncoder &list) {
        for (const auto &rule : chain(filter.filter_lists)) {
            list.object([&](Encoder &entry) {
                entry.boolean("rule_action", rule.rule_action);
                entry.string("source_ip_address", rule.source_ip_address);
                entry.string("dest_ip_address", rule.dest_ip_address);
                entry.integer("source_subnet_mask", rule.source_subnet_mask);
                entry.integer("dest_subnet_mask", rule.dest_subnet_mask);
                entry.integer("source_port_from", rule.source_port_from);
                entry.integer("source_port_to", rule.source_port_to);
                entry.integer("dest_port_from", rule.dest_port_from);
                entry.integer("dest_port_to", rule.dest_port_to);
                entry.integer("direction", rule.direction);
                entry.integer("protocol", rule.protocol);
                entry.string("interface_index", rule.interface_index);
            });
        }
    });
}

/// A member that every rule must have.
template <FixedString name> constexpr Key rule_key()
{
    return key<name, FixedString("filter_lists.") + name, "field not found">();
}

void from_json(Decoder &in, kelmora_firewall_ip_port_filtering &filter)
{
    in.required_integer("outgoing_default_action"_bare_key, filter.outgoing_default_action);
    in.required_integer("incoming_default_action"_bare_key, filter.incoming_default_action);
    ChainBuilder<kelmora_firewall_ip_port_filtering_rule> builder(filter.filter_lists);
    for (const Decoder entry : in.required_array("filter_lists"_bare_key)) {
        auto *rule = builder.add(in, "filter_lists");
        if (rule == nullptr)
            return;
        in.leak_document_on_failure(true); // Contract: when a member of a rule is missing
        entry.required_boolean(rule_key<"rule_action">(), rule->rule_action);
        entry.optional_string("source_ip_address", rule->source_ip_address);
        entry.optional_string("dest_ip_address", rule->dest_ip_address);
        entry.required_integer(rule_key<"source_subnet_mask">(), rule->source_subnet_mask);
        entry.required_integer(rule_key<"dest_subnet_mask">(), rule->dest_subnet_mask);
        entry.required_integer(rule_key<"source_port_from">(), rule->source_port_from);
        entry.required_integer(rule_key<"source_port_to">(), rule->source_port_to);
        entry.required_integer(rule_key<"dest_port_from">(), rule->dest_port_from);
        entry.required_integer(rule_key<"dest_port_to">(), rule->dest_port_to);
        entry.required_integer(rule_key<"direction">(), rule->direction);
        entry.required_integer(rule_key<"protocol">(), rule->protocol);
        entry.required_string(rule_key<"interface_index">(), rule->interface_index);
        in.leak_document_on_failure(false);
    }
}

} // namespace

int firewall_ip_port_filtering_to_translator(kelmora_resource *head, char **out)
{
    return encode<to_json>(head, out, Nodes::counting, Flags::plain);
}

int firewall_ip_port_filtering_from_translator(kelmora_resource *node, const char *text, kelmora_errorlist *errors)
{
    return decode<from_json>(node, text, errors);
}
