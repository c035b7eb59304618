// Mutates documents as JSON, so that most of them still parse and reach the translators. Every fourth mutation is the
// fuzzer's own, of bytes.

#include "fuzz/harness.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <cstring>
#include <jansson.h>
#include <random>
#include <string>
#include <vector>

// NOLINTNEXTLINE(readability-identifier-naming): libFuzzer's name
extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t *data, std::size_t size, std::size_t max_size);

namespace {

using Random = std::minstd_rand;

std::size_t below(Random &random, std::size_t limit) { return random() % limit; }

/// A value in a document, by where it hangs.
struct Place {
    json_t *parent;
    std::string key;   ///< in an object
    std::size_t index; ///< in an array
};

void collect(json_t *value, std::vector<Place> &places)
{
    const char *key;
    json_t *member;
    json_object_foreach(value, key, member)
    {
        places.push_back({value, key, 0});
        collect(member, places);
    }
    for (std::size_t i = 0; i < json_array_size(value); ++i) {
        places.push_back({value, "", i});
        collect(json_array_get(value, i), places);
    }
}

json_t *at(const Place &place)
{
    return json_is_object(place.parent) ? json_object_get(place.parent, place.key.c_str())
                                        : json_array_get(place.parent, place.index);
}

void put(const Place &place, json_t *value)
{
    if (json_is_object(place.parent))
        json_object_set_new(place.parent, place.key.c_str(), value);
    else
        json_array_set_new(place.parent, place.index, value);
}

/// A value of any kind, near where widths and rules change.
json_t *interesting_value(Random &random)
{
    static constexpr std::array<json_int_t, 20> integers{
        0,     1,     2,     7,     -1,         127,        128,        255,        256,         300,
        32767, 65535, 65536, 70000, 2147483647, 2147483648, 4294967295, 4294967296, -2147483648, INT64_MAX};
    static constexpr std::array<double, 8> reals{0.0, -0.5, 3600.9, 2147483648.0, 4294967295.0, 1e20, -1e300, 1e-300};
    static constexpr std::array<std::size_t, 16> lengths{0,  1,  2,  4,   16,  17,  18,  20,
                                                         33, 46, 47, 120, 128, 256, 257, 4097};
    switch (below(random, 9)) {
    case 0:
        return json_true();
    case 1:
        return json_false();
    case 2:
        return json_null();
    case 3:
        return json_object();
    case 4:
        return json_array();
    case 5:
        return json_real(reals[below(random, reals.size())]);
    case 6:
        return json_integer(static_cast<json_int_t>(random()) - 0x40000000);
    case 7:
        return json_integer(integers[below(random, integers.size())]);
    default:
        break;
    }
    const std::string character = below(random, 4) == 0 ? "\u00e9" : "x";
    std::string text;
    for (const std::size_t length = lengths[below(random, lengths.size())]; text.size() < length;)
        text += character;
    return json_string(text.c_str());
}

void mutate(json_t *root, Random &random)
{
    std::vector<Place> places;
    collect(root, places);
    if (places.empty())
        return;
    const Place place = places[below(random, places.size())];
    json_t *value = at(place);
    switch (below(random, 5)) {
    case 0: // taken out
        if (json_is_object(place.parent))
            json_object_del(place.parent, place.key.c_str());
        else
            json_array_remove(place.parent, place.index);
        break;
    case 1: // replaced by a copy of another
        put(place, json_deep_copy(at(places[below(random, places.size())])));
        break;
    case 2: // a list grown
        for (std::size_t copies = below(random, 20); copies > 0 && json_array_size(value) > 0; --copies)
            json_array_append_new(value, json_deep_copy(json_array_get(value, 0)));
        break;
    default:
        put(place, interesting_value(random));
        break;
    }
}

} // namespace

// NOLINTNEXTLINE(readability-identifier-naming): libFuzzer's name
extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t *data, std::size_t size, std::size_t max_size,
                                               unsigned int seed)
{
    using kelmora_fuzz::prefix_size;
    Random random(seed);
    if (size <= prefix_size || below(random, 4) == 0)
        return LLVMFuzzerMutate(data, size, max_size);

    json_t *root = json_loadb(reinterpret_cast<const char *>(data) + prefix_size, size - prefix_size, 0, nullptr);
    if (root == nullptr)
        return LLVMFuzzerMutate(data, size, max_size);
    for (std::size_t rounds = 1 + below(random, 3); rounds > 0; --rounds)
        mutate(root, random);
    char *text = json_dumps(root, JSON_COMPACT);
    json_decref(root);
    const std::size_t length = text != nullptr ? std::strlen(text) : 0;
    const bool fits = text != nullptr && prefix_size + length <= max_size;
    if (fits)
        std::copy_n(text, length, data + prefix_size);
    std::free(text);
    return fits ? prefix_size + length : LLVMFuzzerMutate(data, size, max_size);
}
