#include "harness/mutate.h"

#include "host/json.h"

#include <array>
#include <cstdint>
#include <limits>
#include <stdexcept>
#include <string_view>
#include <vector>

namespace kelmora_harness {

using kelmora_host::Json;

namespace {

/// Where a value hangs in a document.
struct Slot {
    json_t *parent;
    std::string key;   ///< in an object
    std::size_t index; ///< in an array
};

/// What there is of a document to change.
struct Parts {
    std::vector<json_t *> containers;
    std::vector<Slot> slots;

    explicit Parts(json_t *root) { collect(root); }

    void collect(json_t *value)
    {
        if (!json_is_object(value) && !json_is_array(value))
            return;
        containers.push_back(value);
        const char *key = nullptr;
        std::size_t index = 0;
        json_t *member = nullptr;
        json_object_foreach(value, key, member)
        {
            slots.push_back({value, key, 0});
            collect(member);
        }
        json_array_foreach(value, index, member)
        {
            slots.push_back({value, "", index});
            collect(member);
        }
    }
};

json_t *at(const Slot &slot)
{
    return json_is_object(slot.parent) ? json_object_get(slot.parent, slot.key.c_str())
                                       : json_array_get(slot.parent, slot.index);
}

void put(const Slot &slot, json_t *value)
{
    if (json_is_object(slot.parent))
        json_object_set_new(slot.parent, slot.key.c_str(), value);
    else
        json_array_set_new(slot.parent, slot.index, value);
}

void take_out(const Slot &slot)
{
    if (json_is_object(slot.parent))
        json_object_del(slot.parent, slot.key.c_str());
    else
        json_array_remove(slot.parent, slot.index);
}

void put_in(json_t *container, Random &random)
{
    if (json_is_object(container))
        json_object_set_new(container, "enabled", random_value(random));
    else
        json_array_insert_new(container, below(json_array_size(container) + 1, random), random_value(random));
}

void lengthen(json_t *array, Random &random)
{
    const json_t *element = json_array_get(array, below(json_array_size(array), random));
    for (std::size_t copies = 1 + below(40, random); copies > 0; --copies)
        json_array_append_new(array, json_deep_copy(element));
}

json_t *random_string(Random &random)
{
    static constexpr std::array<std::size_t, 17> lengths{0,  1,  2,   4,   16,  17,  18,   20,  33,
                                                         46, 47, 120, 128, 256, 257, 4097, 5999};
    static constexpr std::array<std::string_view, 6> texts{"",       "12", "true", "192.168.1.1", "Gäste \U0001F511",
                                                           "\"\\/\n"};
    if (below(3, random) == 0)
        return kelmora_host::json_text(texts[below(texts.size(), random)]);
    const std::size_t length = below(4, random) == 0 ? below(6000, random) : lengths[below(lengths.size(), random)];
    const std::string_view character = below(4, random) == 0 ? "\u00e9" : "x";
    std::string text;
    while (text.size() < length)
        text += character;
    return kelmora_host::json_text(text);
}

char random_byte(Random &random) { return static_cast<char>(1 + below(255, random)); } // a NUL would end the text

} // namespace

json_t *random_value(Random &random)
{
    static constexpr std::array<json_int_t, 22> integers{0,
                                                         1,
                                                         2,
                                                         7,
                                                         -1,
                                                         127,
                                                         128,
                                                         255,
                                                         256,
                                                         300,
                                                         32767,
                                                         65535,
                                                         65536,
                                                         70000,
                                                         2147483647,
                                                         2147483648LL,
                                                         4294967295LL,
                                                         4294967296LL,
                                                         -2147483648LL,
                                                         -2147483649LL,
                                                         std::numeric_limits<json_int_t>::min(),
                                                         std::numeric_limits<json_int_t>::max()};
    static constexpr std::array<double, 11> reals{0.0,          1.5,  -0.25,  -0.5,  3600.9, 2147483648.0,
                                                  4294967295.0, 1e20, -1e300, 1e300, 1e-300};
    switch (below(12, random)) {
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
        return json_integer(static_cast<json_int_t>(static_cast<std::int32_t>(random())));
    case 7:
        return json_object();
    case 8:
        return json_array();
    case 9:
        return json_pack("[i, s, {s: n}]", 1, "one", "name");
    default:
        return random_string(random);
    }
}

void mutate(json_t *root, Random &random)
{
    const Parts parts(root);
    json_t *container = parts.containers[below(parts.containers.size(), random)];
    if (parts.slots.empty()) {
        put_in(container, random);
        return;
    }
    const Slot &slot = parts.slots[below(parts.slots.size(), random)];
    switch (below(8, random)) {
    case 0:
    case 1:
        take_out(slot);
        break;
    case 2: // a copy of another
        put(slot, json_deep_copy(at(parts.slots[below(parts.slots.size(), random)])));
        break;
    case 3:
        put_in(container, random);
        break;
    case 4:
        if (json_array_size(container) != 0)
            lengthen(container, random);
        else
            put(slot, random_value(random));
        break;
    default:
        put(slot, random_value(random));
        break;
    }
}

std::string mutated(const std::string &document, Random &random)
{
    const Json root(json_loads(document.c_str(), 0, nullptr));
    if (!root)
        throw std::invalid_argument("not JSON: " + document);
    for (std::size_t changes = 1 + below(3, random); changes > 0; --changes)
        mutate(root.get(), random);
    return kelmora_host::to_text(root);
}

std::string broken(std::string text, Random &random)
{
    const std::size_t slot = below(text.size(), random);
    switch (below(5, random)) {
    case 0:
        return text.substr(0, slot);
    case 1:
        text[slot] = random_byte(random);
        return text;
    case 2:
        return text.insert(slot, 1, random_byte(random));
    case 3:
        return text.erase(slot, 1);
    default:
        return text + random_byte(random);
    }
}

std::string deep_document(Random &random)
{
    const std::size_t depth = 2040 + below(16, random);
    return R"({"enabled": )" + std::string(depth, '[') + std::string(depth, ']') + "}";
}

} // namespace kelmora_harness
