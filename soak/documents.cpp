#include "soak/documents.h"

#include "host/json.h"
#include "host/plugin/registry.h"
#include "host/plugin/translate.h"

#include <array>
#include <cstdint>
#include <fstream>
#include <iterator>
#include <limits>
#include <stdexcept>
#include <string_view>

namespace kelmora_soak {

using kelmora_host::Directions;
using kelmora_host::Json;
using kelmora_host::Node;
using kelmora_host::Registry;
using kelmora_host::Resource;

namespace {

Json parse(const std::string &text)
{
    Json json(json_loads(text.c_str(), 0, nullptr));
    if (!json)
        throw std::runtime_error("not JSON: " + text);
    return json;
}

char random_byte(Random &random) { return static_cast<char>(1 + below(255, random)); } // a NUL would end the text

json_t *random_value(Random &random)
{
    static constexpr std::array<json_int_t, 9> integers{0,
                                                        1,
                                                        -1,
                                                        7,
                                                        65536,
                                                        -2147483648LL,
                                                        4294967295LL,
                                                        std::numeric_limits<json_int_t>::min(),
                                                        std::numeric_limits<json_int_t>::max()};
    static constexpr std::array<double, 5> reals{0.0, 1.5, -0.25, 1e300, -1e300};
    static constexpr std::array<std::string_view, 6> texts{"",       "12", "true", "192.168.1.1", "Gäste \U0001F511",
                                                           "\"\\/\n"};
    switch (below(10, random)) {
    case 0:
        return json_null();
    case 1:
        return json_true();
    case 2:
        return json_false();
    case 3:
        return json_real(reals[below(reals.size(), random)]);
    case 4:
    case 5:
        return json_integer(integers[below(integers.size(), random)]);
    case 6:
        return kelmora_host::json_text(texts[below(texts.size(), random)]);
    case 7:
        return kelmora_host::json_text(std::string(below(6000, random), 'x'));
    case 8:
        return json_object();
    default:
        return json_pack("[i, s, {s: n}]", 1, "one", "name");
    }
}

void collect_containers(json_t *value, std::vector<json_t *> &containers)
{
    if (!json_is_object(value) && !json_is_array(value))
        return;
    containers.push_back(value);
    const char *key = nullptr;
    std::size_t index = 0;
    json_t *member = nullptr;
    json_object_foreach(value, key, member) collect_containers(member, containers);
    json_array_foreach(value, index, member) collect_containers(member, containers);
}

void change_object(json_t *object, Random &random)
{
    void *member = json_object_iter(object);
    if (member == nullptr) {
        json_object_set_new(object, "enabled", random_value(random));
        return;
    }
    for (std::size_t skipped = below(json_object_size(object), random); skipped > 0; --skipped)
        member = json_object_iter_next(object, member);
    const std::string key = json_object_iter_key(member);
    if (below(2, random) == 0)
        json_object_del(object, key.c_str());
    else
        json_object_set_new(object, key.c_str(), random_value(random));
}

void change_array(json_t *array, Random &random)
{
    const std::size_t size = json_array_size(array);
    if (size == 0) {
        json_array_append_new(array, random_value(random));
        return;
    }
    const std::size_t index = below(size, random);
    switch (below(4, random)) {
    case 0:
        json_array_remove(array, index);
        break;
    case 1:
        json_array_set_new(array, index, random_value(random));
        break;
    case 2:
        json_array_insert_new(array, index, random_value(random));
        break;
    default:
        for (std::size_t copies = 1 + below(40, random); copies > 0; --copies)
            json_array_append_new(array, json_deep_copy(json_array_get(array, index)));
        break;
    }
}

/// Still JSON, but with members gone, of another kind, or more of them.
std::string changed(const std::string &text, Random &random)
{
    const Json root = parse(text);
    for (std::size_t changes = 1 + below(3, random); changes > 0; --changes) {
        std::vector<json_t *> containers;
        collect_containers(root.get(), containers);
        json_t *container = containers[below(containers.size(), random)];
        if (json_is_object(container))
            change_object(container, random);
        else
            change_array(container, random);
    }
    return kelmora_host::to_text(root);
}

/// Most likely no JSON any more.
std::string broken(std::string text, Random &random)
{
    const std::size_t place = below(text.size(), random);
    switch (below(5, random)) {
    case 0:
        return text.substr(0, place);
    case 1:
        text[place] = random_byte(random);
        return text;
    case 2:
        return text.insert(place, 1, random_byte(random));
    case 3:
        return text.erase(place, 1);
    default:
        return text + random_byte(random);
    }
}

/// Nested about as deep as jansson goes, and at times deeper.
std::string deep(Random &random)
{
    const std::size_t depth = 2040 + below(16, random);
    return R"({"enabled": )" + std::string(depth, '[') + std::string(depth, ']') + "}";
}

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
    for (const std::string &text : texts_)
        parse(text);
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
        return {changed(text, random), false};
    if (kind < 95)
        return {broken(text, random), false};
    return kind < 97 ? Document{deep(random), false} : Document{"", true};
}

} // namespace kelmora_soak
