#include "frame/encoder.h"

#include "tests/support/allocations.h"

#include <cmath>
#include <cstdlib>
#include <cstring>
#include <gtest/gtest.h>
#include <limits>
#include <string>

namespace kelmora {

namespace {

using kelmora_test::Failing;
namespace allocations = kelmora_test::allocations;

/// The text of a finished value, which is released; "(none)" for NULL.
std::string rendered(json_t *value)
{
    char *text = json_dumps(value, JSON_ENCODE_ANY);
    std::string copy = text != nullptr ? text : "(none)";
    std::free(text);
    json_decref(value);
    return copy;
}

TEST(Encoder, StartsAsAnEmptyObject)
{
    Encoder out;
    EXPECT_EQ(rendered(out.take()), "{}");
}

TEST(ArrayEncoder, AddsToAnArrayThatIsThereAlready)
{
    json_t *array = json_loads("[1]", 0, nullptr);
    ArrayEncoder list(json_incref(array));
    list.integer(2);
    json_decref(list.take());
    EXPECT_EQ(rendered(array), "[1, 2]");
}

TEST(ArrayEncoder, CountsAsIncompleteWhenItAddsToNoArray)
{
    for (json_t *other : {static_cast<json_t *>(nullptr), json_null(), json_object()}) {
        ArrayEncoder list(other);
        list.integer(2);
        EXPECT_EQ(list.take(), nullptr);
    }
}

TEST(Encoder, AddsKeysInTheOrderOfTheCalls)
{
    Encoder out;
    out.integer("z", 1U);
    out.boolean("a", 1);
    out.integer("m", -1);
    EXPECT_EQ(rendered(out.take()), R"({"z": 1, "a": true, "m": -1})");
}

TEST(Encoder, KeepsTheFirstPlaceAndTheLastValueOfAKey)
{
    Encoder out;
    out.integer("first", 1U);
    out.integer("second", 2U);
    out.integer("first", 3U);
    EXPECT_EQ(rendered(out.take()), R"({"first": 3, "second": 2})");
}

TEST(Encoder, WidensIntegersByTheirSign)
{
    Encoder out;
    out.integer("u32", std::uint32_t{4294967295});
    out.integer("i32", std::int32_t{-1});
    out.integer("least", std::numeric_limits<std::int32_t>::min());
    out.integer("u16", std::uint16_t{65535});
    out.integer("u8", std::uint8_t{255});
    EXPECT_EQ(rendered(out.take()), R"({"u32": 4294967295, "i32": -1, "least": -2147483648, "u16": 65535, "u8": 255})");
}

TEST(Encoder, TakesAnyValueButZeroForTrue)
{
    Encoder out;
    out.boolean("zero", 0);
    out.boolean("one", 1);
    out.boolean("byte", std::uint8_t{128});
    out.boolean("word", 0x80000000);
    EXPECT_EQ(rendered(out.take()), R"({"zero": false, "one": true, "byte": true, "word": true})");
}

TEST(Encoder, CutsTextsToTheirField)
{
    const char fits[4] = "abc";
    const char whole[3] = {'a', 'b', 'c'};
    Encoder out;
    out.string("fits", fits);
    out.string("whole", whole);
    EXPECT_EQ(rendered(out.take()), R"({"fits": "abc", "whole": "ab"})");
}

TEST(Encoder, LeavesOutTextsThatAreNotUtf8AndStaysComplete)
{
    const char split[3] = {'a', '\xC3', '\xA4'};
    const char latin1[5] = "a\xE4";
    Encoder out;
    out.string("split", split);
    out.string("latin1", latin1);
    out.whole_string("whole", "a\xE4");
    out.whole_string("none", nullptr);
    EXPECT_EQ(rendered(out.take()), "{}");
}

TEST(Encoder, TakesAWholeTextUncut)
{
    Encoder out;
    out.whole_string("text", std::string(300, 'x').c_str());
    EXPECT_EQ(rendered(out.take()), "{\"text\": \"" + std::string(300, 'x') + "\"}");
}

TEST(Encoder, LeavesOutRealsThatAreNotFinite)
{
    Encoder out;
    out.real("half", -3.5);
    out.real("nan", std::nan(""));
    out.real("infinite", std::numeric_limits<double>::infinity());
    out.real("less", -std::numeric_limits<double>::infinity());
    out.real("zero", -0.0);
    EXPECT_EQ(rendered(out.take()), R"({"half": -3.5, "zero": -0.0})");
}

TEST(Encoder, NestsObjectsAndArraysInTheirPlace)
{
    const char name[5] = "port";
    Encoder out;
    out.integer("before", 1U);
    out.object("object", [&](Encoder &nested) {
        nested.string("name", name);
        nested.object("deeper", [](Encoder &deeper) { deeper.boolean("yes", 1); });
    });
    out.array("array", [&](ArrayEncoder &list) {
        list.integer(7);
        list.string(name);
        list.object([](Encoder &element) { element.integer("n", 1U); });
    });
    out.array("empty", [](ArrayEncoder & /*list*/) {});
    out.integer("after", 2U);
    EXPECT_EQ(rendered(out.take()), R"({"before": 1, "object": {"name": "port", "deeper": {"yes": true}}, )"
                                    R"("array": [7, "port", {"n": 1}], "empty": [], "after": 2})");
}

TEST(ArrayEncoder, LeavesOutTextsThatAreNotUtf8)
{
    const char latin1[5] = "a\xE4";
    ArrayEncoder list;
    list.string(latin1);
    EXPECT_EQ(rendered(list.take()), "[]");
}

TEST(Encoder, ReleasesWhatNobodyTook)
{
    const std::size_t alive = allocations::alive();
    {
        Encoder out;
        out.object("object", [](Encoder &nested) { nested.integer("n", 1U); });
        ArrayEncoder list;
        list.integer(1);
    }
    EXPECT_EQ(allocations::alive(), alive);
}

/// A document with a value of every kind.
json_t *everything()
{
    const char text[8] = "fits";
    const char cut[3] = {'a', 'b', 'c'};
    Encoder out;
    out.string("text", text);
    out.string("cut", cut);
    out.whole_string("whole", "text");
    out.integer("unsigned", 1U);
    out.integer("signed", -1);
    out.boolean("boolean", 1);
    out.real("real", 0.5);
    out.object("object", [&](Encoder &nested) {
        nested.object("deeper", [&](Encoder &deeper) { deeper.string("text", text); });
    });
    out.array("array", [&](ArrayEncoder &list) {
        list.string(text);
        list.string(cut);
        list.integer(1);
        list.object([](Encoder &element) { element.integer("n", 1U); });
    });
    return out.take();
}

TEST(Encoder, IsIncompleteWhicheverAllocationFails)
{
    allocations::pass();
    json_decref(everything());
    const std::size_t all = allocations::asked_for();
    EXPECT_GT(all, 20U);
    const std::size_t alive = allocations::alive();
    for (const Failing failing : {Failing::once, Failing::from_then_on}) {
        for (std::size_t n = 1; n <= all; ++n) {
            allocations::fail(n, failing);
            EXPECT_EQ(everything(), nullptr) << "with allocation " << n << " of " << all << " failing";
            allocations::pass();
            EXPECT_EQ(allocations::alive(), alive);
        }
    }
}

} // namespace

} // namespace kelmora
