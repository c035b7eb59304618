#include "frame/translator.h"
#include "records/wan_lan.h"

#include <cstddef>

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
    in.leak_document_on_failure(true); // Contract: when a member of an entry is missing
    std::size_t i = 0;
    for (auto &port : ports.lan_list) { // as many as the record has: more are ignored
        const Decoder entry = list[i++];
        if (in.ok() && i > list.size()) {
            port = {};
            continue;
        }
        entry.require("lan_list.lan_id"_bare_key, "lan_list.enabled"_bare_key); // both or neither is stored
        entry.required_string("lan_list.lan_id"_bare_key, port.lan_id);
        entry.required_boolean("lan_list.enabled"_bare_key, port.enabled);
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
