#include "tests/support/document.h"

#include <cstdlib>
#include <jansson.h>
#include <memory>
#include <stdexcept>

namespace kelmora_test {

namespace {

struct Release {
    void operator()(json_t *json) const { json_decref(json); }
};
using Json = std::unique_ptr<json_t, Release>;

Json parse(const std::string &text)
{
    json_error_t error;
    Json json(json_loads(text.c_str(), JSON_DECODE_ANY, &error));
    if (!json)
        throw std::invalid_argument("not JSON: " + text + ": " + error.text);
    return json;
}

std::string render(const json_t *json)
{
    const std::unique_ptr<char, void (*)(void *)> text(json_dumps(json, JSON_ENCODE_ANY), [](void *block) {
        json_malloc_t allocate = nullptr;
        json_free_t release = nullptr;
        json_get_alloc_funcs(&allocate, &release);
        release(block);
    });
    if (!text)
        throw std::runtime_error("json_dumps failed");
    return text.get();
}

/// Where a path ends: the object, and the name in it.
struct Place {
    json_t *object;
    std::string name;
};

Place resolve(json_t *root, std::string_view path)
{
    json_t *json = root;
    for (std::size_t dot = path.find('.'); dot != std::string_view::npos; dot = path.find('.')) {
        const std::string step(path.substr(0, dot));
        json = json_is_array(json) ? json_array_get(json, std::stoul(step)) : json_object_get(json, step.c_str());
        if (json == nullptr)
            throw std::invalid_argument("no member " + step);
        path.remove_prefix(dot + 1);
    }
    if (!json_is_object(json))
        throw std::invalid_argument("no object around " + std::string(path));
    return {json, std::string(path)};
}

} // namespace

std::string with(const std::string &document, std::string_view path, const std::string &json)
{
    const Json root = parse(document);
    const Place place = resolve(root.get(), path);
    json_object_set_new(place.object, place.name.c_str(), parse(json).release());
    return render(root.get());
}

std::string without(const std::string &document, std::string_view path)
{
    const Json root = parse(document);
    const Place place = resolve(root.get(), path);
    if (json_object_del(place.object, place.name.c_str()) != 0)
        throw std::invalid_argument("no member " + place.name);
    return render(root.get());
}

std::string without_all(const std::string &document, const std::vector<std::string> &paths)
{
    std::string rest = document;
    for (const std::string &path : paths)
        rest = without(rest, path);
    return rest;
}

std::string with_id(const std::string &object, const std::string &id)
{
    constexpr std::string_view key = "\"id\": \"";
    const std::size_t at = object.find(key);
    if (at == std::string::npos)
        throw std::invalid_argument("no id in " + object);
    const std::size_t begin = at + key.size();
    return object.substr(0, begin) + id + object.substr(object.find('"', begin));
}

std::string pretty_array(const std::vector<std::string> &objects)
{
    const std::string indent(16, ' ');
    std::string array;
    for (const std::string &object : objects) {
        array += array.empty() ? "[\n" : ",\n";
        array += indent;
        for (const char character : object) {
            array += character;
            if (character == '\n')
                array += indent;
        }
    }
    return array + "\n]";
}

bool parses(const std::string &text) { return Json(json_loads(text.c_str(), 0, nullptr)) != nullptr; }

std::string quoted(std::size_t length)
{
    std::string text = "\"";
    for (std::size_t i = 0; i < length; ++i)
        text += static_cast<char>('a' + i % 26);
    return text + '"';
}

} // namespace kelmora_test
