#include "frame/translator.h"
#include "records/firewall.h"

#include <cstdint>

using namespace kelmora;

namespace {

void to_json(Encoder &out, const kelmora_parental_control &control)
{
    out.boolean("enabled", control.enabled);
    out.array("parental_control_list", [&](ArrayEncoder &list) {
        for (const auto &rule : chain(control.parental_control_list)) {
            list.object([&](Encoder &entry) {
                entry.string("username", rule.username);
                entry.integer("address_type", rule.address_type);
                entry.string("ip_address_from", rule.ip_address_from);
                entry.string("ip_address_to", rule.ip_address_to);
                entry.string("mac_address", rule.mac_address);
                entry.integer("days", rule.days);
                entry.integer("hours_begin", rule.hours_begin);
                entry.integer("minutes_begin", rule.minutes_begin);
                entry.integer("hours_end", rule.hours_end);
                entry.integer("minutes_end", rule.minutes_end);
            });
        }
    });
}

void from_json(Decoder &in, kelmora_parental_control &control)
{
    in.checked_boolean("enabled", control.enabled);
    const ArrayDecoder list = in.checked_array("parental_control_list");
    const auto count = static_cast<std::uint32_t>(list.size());
    if (count == 0)
        return; // an empty list leaves the rules as they are
    if (kelmora_parental_control_allocate_list(&control, count, in.errors()) == 0)
        in.fail_silently();
    auto *rule = control.parental_control_list;
    for (const Decoder element : list) {
        if (rule == nullptr) { // fewer than the host promised
            in.fail("parental_control_list", "out of memory");
            return;
        }
        element.checked_string("username", rule->username);
        element.checked_integer("address_type", rule->address_type);
        element.checked_string("ip_address_from", rule->ip_address_from);
        element.checked_string("ip_address_to", rule->ip_address_to);
        element.checked_string("mac_address", rule->mac_address);
        element.checked_integer("days", rule->days);
        element.checked_integer("hours_begin", rule->hours_begin);
        element.checked_integer("minutes_begin", rule->minutes_begin);
        element.checked_integer("hours_end", rule->hours_end);
        element.checked_integer("minutes_end", rule->minutes_end);
        rule = rule->next;
    }
}

} // namespace

int parental_control_to_translator(kelmora_resource *head, char **out)
{
    return encode<to_json>(head, out, Nodes::head_only, Root::always_object, Flags::plain);
}

int parental_control_from_translator(kelmora_resource *node, const char *text, kelmora_errorlist *errors)
{
    return decode<from_json>(node, text, errors);
}
