#include "bench/baselines/baselines.h"
#include "bench/baselines/json.h"

#include "records/wireless.h"

namespace kelmora_bench {

namespace {

json_t *neighbors_of(const kelmora_easymesh_neighbor *first)
{
    json_t *list = json_array();
    for (const auto *node = first; node != nullptr; node = node->next) {
        json_t *entry = json_object();
        json_object_set_new(entry, "name", json_string(node->name));
        json_object_set_new(entry, "model", json_string(node->model));
        json_object_set_new(entry, "is_online", json_boolean(node->is_online));
        json_object_set_new(entry, "ip", json_string(node->ip));
        json_object_set_new(entry, "mac", json_string(node->mac));
        json_object_set_new(entry, "rssi", json_integer(node->rssi));
        json_object_set_new(entry, "backhaul", json_integer(node->backhaul));
        json_object_set_new(entry, "neighbors", neighbors_of(node->neighbors));
        json_array_append_new(list, entry);
    }
    return list;
}

void fill(json_t *out, const kelmora_easymesh &mesh, const char * /*id*/)
{
    json_object_set_new(out, "enabled", json_boolean(mesh.enabled));
    json_object_set_new(out, "controllerIp", json_string(mesh.controllerIp));
    json_object_set_new(out, "backhaul_mac", json_string(mesh.backhaul_mac));
    json_object_set_new(out, "backhaul_rssi", json_integer(mesh.backhaul_rssi));
    json_object_set_new(out, "type", json_integer(mesh.type));
    json_object_set_new(out, "backhaul", json_integer(mesh.backhaul));
    json_object_set_new(out, "syncing", json_integer(mesh.syncing));
    json_object_set_new(out, "neighbors", neighbors_of(mesh.neighbors));
}

void from_json(const json_t *in, kelmora_easymesh &mesh)
{
    store_boolean(mesh.enabled, json_object_get(in, "enabled"));
    store_string(mesh.controllerIp, json_object_get(in, "controllerIp"));
    store_integer(mesh.type, json_object_get(in, "type"));
    store_integer(mesh.backhaul, json_object_get(in, "backhaul"));
    if (json_object_get(in, "syncing") != nullptr)
        return;
    auto **link = &mesh.neighbors;
    const json_t *list = json_object_get(in, "neighbors");
    const std::size_t size = json_array_size(list);
    for (std::size_t i = 0; i < size; ++i) {
        const json_t *element = json_array_get(list, i);
        auto *node = append(link);
        store_string(node->mac, json_object_get(element, "mac"));
        store_string(node->name, json_object_get(element, "name"));
        store_string(node->model, json_object_get(element, "model"));
        if (json_object_get(element, "neighbors") != nullptr)
            return;
    }
}

} // namespace

} // namespace kelmora_bench

using namespace kelmora_bench;

int easymesh_to_baseline(kelmora_resource *head, char **out)
{
    return render_nodes<kelmora_easymesh, fill>(head, 0, out);
}

int easymesh_from_baseline(kelmora_resource *node, const char *text, kelmora_errorlist * /*errors*/)
{
    return document_from_json<kelmora_easymesh, from_json>(node, text);
}
