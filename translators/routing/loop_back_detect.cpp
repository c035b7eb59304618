#include "frame/translator.h"
#include "records/routing.h"

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

using namespace kelmora;

namespace {

void frame_type_to_json(Encoder &out, std::uint16_t frame_type)
{
    char text[sizeof "0xFFFF"]{};
    std::sprintf(text, "0x%X", unsigned{frame_type});
    text[5] = '\0'; // Contract: a fourth digit is lost
    out.string("frame_type", text);
}

void to_json(Encoder &out, const kelmora_loop_back_detect &detection, const NodeId &id)
{
    out.string("id", id);
    out.boolean("enabled", detection.enabled);
    out.integer("detection_interval", detection.detection_interval);
    out.integer("recovery_interval", detection.recovery_interval);
    frame_type_to_json(out, detection.frame_type);
    out.array("vlan_list", [&](ArrayEncoder &list) {
        for (const auto &slot : detection.vlan_list) {
            if (slot.in_use != 0)
                list.integer(slot.vlan_id);
        }
    });
}

/// What strtol gives on the target, whose long has 32 bits: beyond them the largest or the smallest.
std::int32_t number_in_hexadecimal(const char *string)
{
    const long number = std::strtol(string, nullptr, 16);
    if (number > INT32_MAX)
        return INT32_MAX;
    return number < INT32_MIN ? INT32_MIN : static_cast<std::int32_t>(number);
}

void vlans_from_json(const Decoder &in, kelmora_loop_back_detect &detection)
{
    const ArrayDecoder list = in.required_array("vlan_list"_key);
    if (list.size() > sizeof detection.vlan_list / sizeof *detection.vlan_list)
        in.fail("vlan_list", "vlan_list with more than 16 ids");
    // A shorter list does not clear the slots behind its end: they stay in use.
    for (std::size_t i = 0; i < list.size(); ++i) {
        auto &slot = detection.vlan_list[i];
        slot.vlan_id = static_cast<std::uint16_t>(list[i].integer());
        slot.in_use = 1;
    }
}

void from_json(Decoder &in, kelmora_loop_back_detect &detection)
{
    in.leak_document_on_success(); // Contract: success alone leaks the document
    in.required_boolean("enabled"_key, detection.enabled);
    in.required_integer("detection_interval"_key, detection.detection_interval);
    in.required_integer("recovery_interval"_key, detection.recovery_interval);
    if (const Decoder frame_type = in.required("frame_type"_key))
        detection.frame_type = static_cast<std::uint16_t>(number_in_hexadecimal(frame_type.string()));
    vlans_from_json(in, detection);
}

} // namespace

int loop_back_detect_to_translator(kelmora_resource *head, char **out)
{
    return encode<to_json>(head, out, Nodes::walking, Flags::plain);
}

int loop_back_detect_from_translator(kelmora_resource *node, const char *text, kelmora_errorlist *errors)
{
    return decode<from_json>(node, text, errors);
}
