#include "frame/translator.h"
#include "records/wan_lan.h"

#include <cstddef>
#include <iterator>

using namespace kelmora;

namespace {

void to_json(Encoder &out, const kelmora_wan_lan_list &ports, const NodeId &id)
{
    out.string("id", id);
    out.array("lan_list", [&](ArrayEncoder &list) {
        for (const auto &port : ports.lan_list) {
            if (port.lan_id[0] == '\0')
                continue;
            list.object([&](Encoder &entry) {
                entry.string("lan_id", port.lan_id);
                entry.boolean("enabled", port.enabled);
            });
        }
    });
}

void from_json(Decoder &in, kelmora_wan_lan_list &ports)
{
    const ArrayDecoder list = in.required_array("lan_list"_bare_key);
    in.leak_document_on_failure(true); // from here on, on purpose: an incomplete entry leaves all of it unreleased
    for (std::size_t i = 0; i < std::size(ports.lan_list) && in.ok(); ++i) {
        auto &port = ports.lan_list[i];
        if (i >= list.size()) {
            port = {};
            continue;
        }
        Decoder entry = list[i];
        const Decoder lan_id = entry.required("lan_list.lan_id"_bare_key);
        const Decoder enabled = entry.required("lan_list.enabled"_bare_key);
        if (in.ok()) { // both or neither
            lan_id.store_string(port.lan_id);
            port.enabled = enabled.is_true() ? 1 : 0;
        }
    }
}

} // namespace

int wan_lan_list_to_translator(kelmora_resource *head, char **out)
{
    return encode<to_json>(head, out, Nodes::counting, Flags::plain);
}

int wan_lan_list_from_translator(kelmora_resource *node, const char *text, kelmora_errorlist *errors)
{
    return decode<from_json>(node, text, errors);
}
