#include "frame/encoder.h"

#include "tests/support/allocations.h"

#include <array>
#include <cstdlib>
#include <cstring>
#include <gtest/gtest.h>
#include <jansson.h>
#include <memory>
#include <random>
#include <set>
#include <string>
#include <vector>

namespace kelmora::direct_encoder_test {

namespace {

/// Members of objects, by their places in these names, and what is inside of those that are objects or lists.
struct Shape {
    std::vector<unsigned> members;
    std::vector<Shape> inside;
};

constexpr std::array names = {"b",  "a",   "ssid", "d",  "name", "zone", "c0",       "c",   "c1", "list",
                              "id", "ids", "x",    "x1", "x-1",  "X",    "a_longer", "one", "y",  "of"};

/// The same value given to both: to the encoder, and to jansson, which says what the text is to be.
class Twins {
public:
    explicit Twins(unsigned seed) : random_(seed) {}

    unsigned below(unsigned end) { return static_cast<unsigned>(random_()) % end; }

    Shape shape(unsigned depth)
    {
        Shape made;
        std::set<unsigned> used;
        for (unsigned left = below(12); left != 0; --left) {
            const unsigned name = below(names.size());
            if (used.insert(name).second) {
                made.members.push_back(name);
                made.inside.push_back(depth != 0 && below(4) == 0 ? shape(depth - 1) : Shape());
            }
        }
        return made;
    }

    void object(Encoder &out, json_t *expected, const Shape &shape)
    {
        for (std::size_t i = 0; i < shape.members.size(); ++i) {
            const char *name = names.at(shape.members[i]);
            if (!shape.inside[i].members.empty()) {
                inside(out, expected, name, shape.inside[i]);
            } else if (below(4) == 0) {
                const auto number = static_cast<std::int32_t>(random_());
                out.integer(name, number);
                json_object_set_new(expected, name, json_integer(number));
            } else {
                const std::string string = some_string();
                out.whole_string(name, string.c_str());
                if (json_t *value = json_string(string.c_str()); value != nullptr)
                    json_object_set_new(expected, name, value);
            }
        }
    }

    /// As a rule all elements of a list are alike.
    void elements(ArrayEncoder &out, json_t *expected, const std::vector<Shape> &shapes, unsigned count)
    {
        for (unsigned i = 0; i < count; ++i) {
            const Shape &shape = shapes.at(below(8) == 0 ? below(static_cast<unsigned>(shapes.size())) : 0);
            json_t *element = json_object();
            out.object([&](Encoder &nested) { object(nested, element, shape); });
            json_array_append_new(expected, element);
        }
    }

private:
    void inside(Encoder &out, json_t *expected, const char *name, const Shape &shape)
    {
        json_t *value = nullptr;
        if (below(2) == 0) {
            value = json_object();
            out.object(name, [&](Encoder &nested) { object(nested, value, shape); });
        } else {
            value = json_array();
            out.array(name, [&](ArrayEncoder &nested) { elements(nested, value, {shape}, below(4)); });
        }
        json_object_set_new(expected, name, value);
    }

    std::string some_string()
    {
        const unsigned length = below(50) == 0 ? below(3000) : below(30);
        std::string string;
        while (string.size() < length)
            string += below(20) != 0 ? std::string(1 + below(9), static_cast<char>('a' + below(26))) : odd();
        return string;
    }

    std::string odd()
    {
        const std::array<std::string, 8> strings = {"/", "\n", "\"", "\\", "ß", "世", "𝄞", "\xC3"};
        return strings.at(below(100) == 0 ? 7 : below(7));
    }

    std::mt19937 random_;
};

std::string dumped(const json_t *value, std::size_t flags)
{
    const std::unique_ptr<char, decltype(&std::free)> text(json_dumps(value, flags), &std::free);
    return text.get();
}

TEST(DirectEncoder, SaysWhatJanssonSaysOfListsOfObjects)
{
    for (unsigned seed = 0; seed < 100; ++seed) {
        Twins twins(seed);
        const bool pretty = twins.below(4) != 0;
        const std::vector<Shape> shapes = {twins.shape(2), twins.shape(2), twins.shape(1), Shape()};
        json_t *expected = json_array();
        auto *buffer = static_cast<char *>(std::malloc(smallest_buffer));
        {
            Text text(&buffer, pretty);
            ArrayEncoder list(text);
            twins.elements(list, expected, shapes, twins.below(80));
            list.close();
            EXPECT_EQ(text.finish(), dumped(expected, pretty ? 2000 : 0)) << seed;
        }
        std::free(buffer);
        json_decref(expected);
    }
}

TEST(DirectEncoder, HasNoTextWhenTheBufferCannotGrow)
{
    namespace allocations = kelmora_test::allocations;
    const std::string value(300, 'v');
    for (unsigned failing = 1; failing <= 4; ++failing) {
        auto *buffer = static_cast<char *>(std::malloc(smallest_buffer));
        {
            Text text(&buffer, true);
            ArrayEncoder list(text);
            allocations::fail(failing, kelmora_test::Failing::from_then_on);
            for (unsigned i = 0; i < 200; ++i) {
                list.object([&](Encoder &element) {
                    element.whole_string("b", value.c_str());
                    element.integer("a", i);
                });
            }
            list.close();
            allocations::pass();
            EXPECT_EQ(text.finish(), nullptr) << failing;
        }
        std::free(buffer);
    }
}

TEST(DirectEncoder, SaysWhatJanssonSaysOfAnObjectThatSeveralNodesWrite)
{
    for (unsigned seed = 0; seed < 100; ++seed) {
        Twins twins(seed);
        const bool pretty = twins.below(2) != 0;
        json_t *expected = json_object();
        Text text(nullptr, pretty);
        Encoder single(text);
        for (unsigned node = twins.below(8); node != 0; --node)
            twins.object(single, expected, twins.shape(2));
        single.close();
        EXPECT_EQ(text.finish(), dumped(expected, pretty ? 2000 : 0)) << seed;
        json_decref(expected);
    }
}

} // namespace

} // namespace kelmora::direct_encoder_test
