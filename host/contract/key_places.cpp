#include "host/contract/key_places.h"

#include "host/contract/pointer.h"
#include "host/contract/wording.h"
#include "host/json.h"

namespace kelmora_host {

namespace {

/// Where there are keys of which matches(name) holds.
template <class Matches> std::vector<KeyPlace> places_of(const std::vector<Contract> &contracts, Matches matches)
{
    std::vector<KeyPlace> places;
    for (const Contract &contract : contracts) {
        if (contract.output) {
            for (const OutputKey &key : contract.output->keys) {
                if (matches(last_token(key.path)))
                    places.push_back({&contract, "output", key.path, types_of(key), range_of(key), meaning_of(key)});
            }
        }
        if (contract.input) {
            for (const InputKey &key : contract.input->keys) {
                if (matches(last_token(key.path)))
                    places.push_back(
                        {&contract, "input", key.path, std::string(type_of(key)), range_of(key), meaning_of(key)});
            }
        }
    }
    return places;
}

} // namespace

std::vector<KeyPlace> key_places(const std::vector<Contract> &contracts, std::string_view name)
{
    std::vector<KeyPlace> places = places_of(contracts, [&](std::string_view key) { return key == name; });
    if (places.empty())
        places = places_of(contracts, [&](std::string_view key) { return key.find(name) != std::string_view::npos; });
    return places;
}

std::string key_places_as_json(const std::vector<Contract> &contracts, std::string_view name)
{
    const Json list(json_array());
    for (const KeyPlace &place : key_places(contracts, name)) {
        Json object(json_object());
        const auto set = [&object](const char *key, std::string_view text) {
            if (!text.empty())
                json_object_set_new(object.get(), key, json_text(text));
        };
        set("resource", place.contract->resource->name);
        set("direction", place.direction);
        set("path", place.path);
        set("type", place.type);
        set("range", place.range);
        set("meaning", place.meaning);
        json_array_append_new(list.get(), object.release());
    }
    return json_array_size(list.get()) == 0 ? "" : to_text(list) + "\n";
}

} // namespace kelmora_host
