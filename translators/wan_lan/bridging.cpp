#include "frame/translator.h"
#include "records/wan_lan.h"

using namespace kelmora;

namespace {

void to_json(Encoder &out, const kelmora_bridging &bridge, const NodeId &id)
{
    out.string("id", id);
    out.integer("ageing_time", bridge.ageing_time);
    out.boolean("802_1_d_spanning_tree", bridge.spanning_tree_802_1_d);
    out.array("mac_list", [&](ArrayEncoder &list) {
        for (const auto &node : chain(bridge.mac_list)) {
            list.object([&](Encoder &entry) {
                entry.integer("port", node.port);
                entry.string("mac_addr", node.mac_addr);
                entry.boolean("is_local", node.is_local);
                entry.string("ageing_time", node.ageing_time); // Contract: a string here, an integer above
            });
        }
    });
}

void from_json(Decoder &in, kelmora_bridging &bridge)
{
    in.optional_integer("ageing_time", bridge.ageing_time);
    in.optional_boolean("802_1_d_spanning_tree", bridge.spanning_tree_802_1_d);
}

} // namespace

int bridging_to_translator(kelmora_resource *head, char **out)
{
    return encode<to_json>(head, out, Nodes::walking_if_any, Flags::plain);
}

int bridging_from_translator(kelmora_resource *node, const char *text, kelmora_errorlist *errors)
{
    return decode<from_json>(node, text, errors);
}
