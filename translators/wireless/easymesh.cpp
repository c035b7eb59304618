#include "frame/translator.h"
#include "records/wireless.h"

using namespace kelmora;

namespace {

void neighbors_to_json(ArrayEncoder &list, const kelmora_easymesh_neighbor *first)
{
    for (const auto &node : chain(first)) {
        list.object([&](Encoder &entry) {
            entry.string("name", node.name);
            entry.string("model", node.model);
            entry.boolean("is_online", node.is_online);
            entry.string("ip", node.ip);
            entry.string("mac", node.mac);
            entry.integer("rssi", node.rssi);
            entry.integer("backhaul", node.backhaul);
            entry.array("neighbors", [&](ArrayEncoder &nested) { neighbors_to_json(nested, node.neighbors); });
        });
    }
}

void to_json(Encoder &out, const kelmora_easymesh &mesh)
{
    out.boolean("enabled", mesh.enabled);
    out.string("controllerIp", mesh.controllerIp);
    out.string("backhaul_mac", mesh.backhaul_mac);
    out.integer("backhaul_rssi", mesh.backhaul_rssi);
    out.integer("type", mesh.type);
    out.integer("backhaul", mesh.backhaul);
    out.integer("syncing", mesh.syncing);
    out.array("neighbors", [&](ArrayEncoder &list) { neighbors_to_json(list, mesh.neighbors); });
}

void neighbor_from_json(const Decoder &element, const Decoder &mac, kelmora_easymesh_neighbor &node)
{
    mac.store_string(node.mac);
    element.optional_string("name", node.name);
    element.optional_string("model", node.model);
    if (element.optional("neighbors"))
        element.fail("neighbors", "neighbors of neighbors cannot be set");
}

/// A list that has elements takes the place of the chain that the record had.
void neighbors_from_json(const Decoder &in, kelmora_easymesh &mesh)
{
    const ArrayDecoder list = in.optional_array("neighbors");
    if (list.size() == 0)
        return;
    // The first node is there even when the first element turns out to lack its address; further ones are not.
    auto *node = new_node<kelmora_easymesh_neighbor>(in, "neighbors");
    if (node == nullptr)
        return;
    mesh.neighbors = node;
    ChainBuilder<kelmora_easymesh_neighbor> builder(mesh.neighbors);
    for (const Decoder element : list) {
        const Decoder mac = element.required(key<"mac", "neighbors", "no mac field">());
        if (node == nullptr)
            node = builder.add(in, "neighbors");
        if (node == nullptr)
            return;
        neighbor_from_json(element, mac, *node);
        node = nullptr; // the next element has one of its own
    }
}

void from_json(Decoder &in, kelmora_easymesh &mesh)
{
    in.required_boolean("enabled"_key, mesh.enabled);
    in.required_string("controllerIp"_key, mesh.controllerIp);
    in.required_integer("type"_key, mesh.type);
    in.required_integer("backhaul"_key, mesh.backhaul);
    if (in.optional("syncing"))
        in.fail("syncing", "syncing cannot be configured");
    neighbors_from_json(in, mesh);
}

} // namespace

int add_neighbors(const kelmora_easymesh_neighbor *node, json_t *array)
{
    const bool done = extend(array, [&](ArrayEncoder &list) { neighbors_to_json(list, node); });
    return done ? 0 : -1;
}

int easymesh_to_translator(kelmora_resource *head, char **out)
{
    return encode<to_json>(head, out, Nodes::counting, Flags::plain);
}

int easymesh_from_translator(kelmora_resource *node, const char *text, kelmora_errorlist *errors)
{
    return decode<from_json>(node, text, errors);
}
