#include "soak/documents.h"

#include "harness/mutate.h"
#include "host/json.h"
#include "host/plugin/registry.h"
#include "host/plugin/translate.h"

#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string_view>

namespace kelmora_soak {

using kelmora_host::Directions;
using kelmora_host::Json;
using kelmora_host::Node;
using kelmora_host::Registry;
using kelmora_host::Resource;

namespace {

std::string read_example(std::string_view resource)
{
    std::ifstream file(KELMORA_EXAMPLES "/" + std::string(resource) + ".json");
    return {std::istreambuf_iterator<char>(file), {}};
}

} // namespace

Documents::Documents(const Resource &resource, kelmora_host::Gateway &gateway)
    : raw_(is_raw(resource)), example_(read_example(resource.name))
{
    if (raw_)
        return;
    if (!example_.empty())
        texts_.push_back(example_);
    if (resource.directions != Directions::from_only) {
        for (const Node &node : gateway.nodes(resource.name)) {
            std::vector<Node> one{node};
            texts_.push_back(kelmora_host::to_json(Registry::instance().find(resource.number)->to, one, false).text);
        }
    }
    for (const std::string &text : texts_) {
        if (!Json(json_loads(text.c_str(), 0, nullptr)))
            throw std::runtime_error("not JSON: " + text);
    }
    if (texts_.empty())
        throw std::runtime_error("no document for " + std::string(resource.name));
}

Document Documents::pick(Random &random) const
{
    if (raw_) {
        std::string block(kelmora_host::raw_size, '\0');
        for (char &byte : block)
            byte = static_cast<char>(random());
        return {block, true};
    }
    const std::string &text = texts_[below(texts_.size(), random)];
    const std::size_t kind = below(100, random);
    if (kind < 20 && !example_.empty())
        return {example_, true};
    if (kind < 30)
        return {text, false};
    if (kind < 75)
        return {kelmora_harness::mutated(text, random), false};
    if (kind < 95)
        return {kelmora_harness::broken(text, random), false};
    return kind < 97 ? Document{kelmora_harness::deep_document(random), false} : Document{"", true};
}

} // namespace kelmora_soak
