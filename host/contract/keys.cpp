#include "host/contract/keys.h"

#include "host/contract/learned.h"
#include "host/gateway/blank.h"
#include "host/json.h"
#include "host/plugin/translate.h"

#include <vector>

namespace kelmora_host {

namespace {

void add_keys(const json_t *value, const std::string &path, std::set<std::string> &keys)
{
    const char *key = nullptr;
    json_t *member = nullptr;
    json_object_foreach(const_cast<json_t *>(value), key, member)
    {
        keys.insert(path + "/" + key);
        add_keys(member, path + "/" + key, keys);
    }
    for (std::size_t i = 0; i < json_array_size(value); ++i)
        add_keys(json_array_get(value, i), path + "/*", keys);
}

std::set<std::string> shown_keys(const Resource &resource, const Registration &translators, const Node &node)
{
    std::set<std::string> keys;
    for (const Node &each : {node, Node("", blank_record(resource)), Node("", poisoned_record(resource))}) {
        std::vector<Node> nodes{each};
        const Json text(json_loads(to_json(translators.to, nodes, false).text.c_str(), 0, nullptr));
        add_keys(json_is_array(text.get()) ? json_array_get(text.get(), 0) : text.get(), "", keys);
    }
    return keys;
}

} // namespace

KnownKeys known_keys(const Resource &resource, const Registration &translators, const Node &node)
{
    KnownKeys keys;
    if (resource.directions != Directions::to_only) {
        for (const InputKey &key : learned_input(resource, translators).keys)
            keys.taken.insert(key.path);
    }
    if (resource.directions != Directions::from_only)
        keys.shown = shown_keys(resource, translators, node);
    return keys;
}

} // namespace kelmora_host
