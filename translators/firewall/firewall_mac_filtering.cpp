#include "frame/translator.h"
#include "records/firewall.h"

using namespace kelmora;

namespace {

void to_json(Encoder &out, const kelmora_firewall_mac_filtering &filter, const NodeId &id)
{
    out.string("id", id);
    out.integer("incoming_default_act", filter.incoming_default_act);
    out.integer("outgoing_default_act", filter.outgoing_default_act);
    out.array("entry", [&](ArrayEncoder &list) {
        for (const auto &rule : chain(filter.entry)) {
            list.object([&](Encoder &entry) {
                entry.integer("direction", rule.direction);
                entry.string("source_mac", rule.source_mac);
                entry.string("destination_mac", rule.destination_mac);
                entry.integer("rule_action", rule.rule_action);
            });
        }
    });
}

void from_json(Decoder &in, kelmora_firewall_mac_filtering &filter)
{
    in.required_integer("incoming_default_act"_bare_key, filter.incoming_default_act);
    in.required_integer("outgoing_default_act"_bare_key, filter.outgoing_default_act);
    ChainBuilder<kelmora_firewall_mac_filtering_entry> builder(filter.entry);
    for (const Decoder entry : in.required_array("entry"_bare_key)) {
        auto *rule = builder.add(in, "entry");
        if (rule == nullptr)
            return;
        in.leak_document_on_failure(true); // Contract: when a member of a rule is missing
        entry.required_integer("entry.direction"_bare_key, rule->direction);
        entry.optional_string("source_mac", rule->source_mac);
        entry.optional_string("destination_mac", rule->destination_mac);
        entry.required_integer("entry.rule_action"_bare_key, rule->rule_action);
        in.leak_document_on_failure(false);
    }
}

} // namespace

int firewall_mac_filtering_to_translator(kelmora_resource *head, char **out)
{
    return encode<to_json>(head, out, Nodes::counting, Flags::plain);
}

int firewall_mac_filtering_from_translator(kelmora_resource *node, const char *text, kelmora_errorlist *errors)
{
    return decode<from_json>(node, text, errors);
}
