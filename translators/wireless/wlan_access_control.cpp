#include "frame/translator.h"
#include "records/wireless.h"

#include <cstdint>

using namespace kelmora;

namespace {

void to_json(Encoder &out, const kelmora_wlan_access_control &control, const NodeId &id)
{
    out.string("id", id);
    out.integer("mode", control.mode);
    out.array("mac_list", [&](ArrayEncoder &list) {
        for (const auto &entry : chain(control.mac_list))
            list.string(entry.mac);
    });
}

void from_json(Decoder &in, kelmora_wlan_access_control &control)
{
    in.checked_integer("mode", control.mode);
    const ArrayDecoder list = in.checked_array("mac_list");
    if (!in.ok())
        return;
    kelmora_wlan_access_control_allocate_list(&control, static_cast<std::uint32_t>(list.size()));
    auto *entry = control.mac_list;
    for (const Decoder element : list) {
        if (!element.is_string()) {
            in.fail("mac_address", "data type must be a valid string"); // Contract: no such key
        } else if (entry == nullptr) { // fewer than asked for: the host cannot say otherwise that it has no memory
            in.fail("mac_list", "out of memory");
        } else {
            element.store_string(entry->mac);
            entry = entry->next;
        }
    }
}

} // namespace

int wlan_access_control_to_translator(kelmora_resource *head, char **out)
{
    return encode<to_json>(head, out, Nodes::counting, Flags::plain);
}

int wlan_access_control_from_translator(kelmora_resource *node, const char *text, kelmora_errorlist *errors)
{
    return decode<from_json>(node, text, errors);
}
