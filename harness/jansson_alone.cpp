#include "harness/jansson_alone.h"

#include "frame/encode.h"
#include "host/json.h"

#include <array>
#include <cstdlib>
#include <jansson.h>
#include <stdexcept>
#include <string_view>

namespace kelmora_harness {

using kelmora_host::Json;

namespace {

using Flags = kelmora::Flags;
constexpr std::array<Flags, 3> flag_words{Flags::plain, Flags::insertion_order, Flags::pretty};

/// The tree as text; none when it cannot be rendered.
std::optional<std::string> render(const json_t *tree, Flags flags)
{
    char *text = json_dumps(tree, static_cast<std::size_t>(flags) | JSON_ENCODE_ANY);
    if (text == nullptr)
        return std::nullopt;
    std::string copy = text;
    std::free(text);
    return copy;
}

/// Fails each allocation of the rendering in turn.
std::set<std::string> damaged_renderings(const json_t *tree, Flags flags, const std::string &right, Failing failing)
{
    std::set<std::string> damaged;
    bool reached = true;
    for (std::size_t n = 1; reached; ++n) {
        ledger::fail(n, failing);
        const std::optional<std::string> text = render(tree, flags);
        reached = ledger::asked_for() >= n;
        ledger::pass();
        if (text && *text != right)
            damaged.insert(*text);
    }
    return damaged;
}

/// Cuts each string at its first NUL, where it ends for all who read it as C does: a parsed one has a NUL only after
/// an allocation failed.
void cut_at_nul(json_t *value)
{
    if (json_is_string(value) && std::string_view(json_string_value(value)).size() != json_string_length(value))
        json_string_set(value, std::string(json_string_value(value)).c_str());
    const char *key = nullptr;
    std::size_t index = 0;
    json_t *member = nullptr;
    json_object_foreach(value, key, member) cut_at_nul(member);
    json_array_foreach(value, index, member) cut_at_nul(member);
}

std::string replaced(const std::string &text, std::size_t at, std::size_t size, const std::string &by)
{
    return text.substr(0, at) + by + text.substr(at + size);
}

void collect_damaged_images(const json_t *value, const std::string &image, Failing failing,
                            std::set<std::string> &images)
{
    for (const Flags flags : flag_words) {
        const std::string right = render(value, flags).value_or("");
        const std::size_t at = right.empty() ? std::string::npos : image.find(right);
        if (at == std::string::npos || (!json_is_object(value) && !json_is_array(value)))
            continue;
        for (const std::string &wrong : damaged_renderings(value, flags, right, failing))
            images.insert(replaced(image, at, right.size(), wrong));
    }
    const char *key = nullptr;
    std::size_t index = 0;
    json_t *member = nullptr;
    json_object_foreach(const_cast<json_t *>(value), key, member)
        collect_damaged_images(member, image, failing, images);
    json_array_foreach(const_cast<json_t *>(value), index, member)
        collect_damaged_images(member, image, failing, images);
}

} // namespace

std::set<std::string> damaged_renderings(const std::string &text, Failing failing)
{
    const Json tree(json_loads(text.c_str(), 0, nullptr));
    if (!tree)
        throw std::invalid_argument("not JSON: " + text);
    for (const Flags flags : flag_words) {
        if (render(tree.get(), flags) == text)
            return damaged_renderings(tree.get(), flags, text, failing);
    }
    return {};
}

Parsed parse_alone(const std::string &document, FailingAllocation memory)
{
    ledger::fail(memory);
    const Json tree(json_loads(document.c_str(), 0, nullptr));
    const std::size_t allocations = ledger::asked_for();
    ledger::pass();
    if (!tree)
        return {std::nullopt, allocations};
    cut_at_nul(tree.get());
    const std::optional<std::string> text = render(tree.get(), Flags::plain);
    if (!text)
        throw std::runtime_error("what was parsed cannot be rendered: " + document);
    return {text, allocations};
}

std::set<std::string> damaged_images(const std::string &document, const std::string &image, Failing failing)
{
    const Json tree(json_loads(document.c_str(), 0, nullptr));
    if (!tree)
        throw std::invalid_argument("not JSON: " + document);
    std::set<std::string> images;
    collect_damaged_images(tree.get(), image, failing, images);
    return images;
}

} // namespace kelmora_harness
