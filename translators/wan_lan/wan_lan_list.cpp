#include "frame/translator.h"
#include "records/wan_lan.h"

#include <cstddef>
#include <iterator>

using namespace kelmora;

namespace {

void write(Encoder &out, const kelmora_wan_lan_list &ports, const NodeId &id)
{
    out.text("id", id);
    out.array("lan_list", [&](ArrayEncoder &list) {
        for (const auto &port : ports.lan_list) {
            if (port.lan_id[0] == '\0')
                continue;
            list.object([&](Encoder &entry) {
                entry.text("lan_id", port.lan_id);
                entry.boolean("enabled", port.enabled);
            });
        }
    });
}

void read(Decoder &in, kelmora_wan_lan_list &ports)
{
    const Elements list = in.required_array("lan_list"_bare_key);
    in.keep_document_on_failure(true); // from here on, on purpose: an incomplete entry leaves all of it unreleased
    for (std::size_t i = 0; i < std::size(ports.lan_list) && in.ok(); ++i) {
        auto &port = ports.lan_list[i];
        if (i >= list.size()) {
            port = {};
            continue;
        }
        Decoder entry = list[i];
        const Decoder lan_id = entry.required(key<"lan_id", "lan_list.lan_id", "field not found">());
        const Decoder enabled = entry.required(key<"enabled", "lan_list.enabled", "field not found">());
        if (in.ok()) { // both or neither
            lan_id.store_text(port.lan_id);
            port.enabled = enabled.is_true() ? 1 : 0;
        }
    }
}

} // namespace

int wan_lan_list_to_translator(kelmora_resource *head, char **out)
{
    return encode<write>(head, out, Shape::counting, Flags::compact);
}

int wan_lan_list_from_translator(kelmora_resource *node, const char *text, kelmora_errorlist *errors)
{
    return decode<read>(node, text, errors);
}
