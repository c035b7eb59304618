#include "frame/encoder.h"

#include "frame/encode.h"
#include "tests/support/to_test.h"

#include <cmath>
#include <cstdlib>
#include <functional>
#include <limits>
#include <string>
#include <vector>

namespace kelmora::encoder_test {

namespace {

using kelmora_test::ToTest;
using Fill = std::function<void(Encoder &)>;

/// A record that is written by a function of the test's.
struct Filled {
    const Fill *fill;
};

void to_json(Encoder &out, const Filled &filled) { (*filled.fill)(out); }

class EncoderTest : public ToTest<Filled> {
protected:
    EncoderTest()
        : EncoderTest([](kelmora_resource *head, char **out) {
              return encode<to_json>(head, out, Nodes::counting, Flags::plain);
          })
    {
    }

    explicit EncoderTest(kelmora_to_translator to) : ToTest(to) {}

    /// The text of an object that this fills, or one node after the other.
    std::string written(const Fill &fill) { return merged({fill}); }
    std::string merged(const std::vector<Fill> &fills)
    {
        nodes_.clear();
        fills_ = fills;
        for (const Fill &fill : fills_)
            add("", {&fill});
        return object();
    }

    /// The text of a list of objects.
    std::string listed(const std::vector<Fill> &fills)
    {
        merged(fills);
        return list();
    }

private:
    std::vector<Fill> fills_;
};

class PrettyEncoderTest : public EncoderTest {
protected:
    PrettyEncoderTest()
        : EncoderTest([](kelmora_resource *head, char **out) {
              return encode<to_json>(head, out, Nodes::counting, Flags::pretty);
          })
    {
    }
};

TEST_F(EncoderTest, StartsAsAnEmptyObject)
{
    EXPECT_EQ(written([](Encoder & /*out*/) {}), "{}");
}

TEST_F(EncoderTest, AddsKeysInTheOrderOfTheCalls)
{
    const std::string text = written([&](Encoder &out) {
        out.integer("z", 1U);
        out.boolean("a", 1);
        out.integer("m", -1);
    });
    EXPECT_EQ(text, R"({"z": 1, "a": true, "m": -1})");
}

TEST_F(EncoderTest, WidensIntegersByTheirSign)
{
    const std::string text = written([&](Encoder &out) {
        out.integer("u32", std::uint32_t{4294967295});
        out.integer("i32", std::int32_t{-1});
        out.integer("least", std::numeric_limits<std::int32_t>::min());
        out.integer("u16", std::uint16_t{65535});
        out.integer("u8", std::uint8_t{255});
        out.integer("none", 0);
        out.integer("tens", -100);
    });
    EXPECT_EQ(
        text,
        R"({"u32": 4294967295, "i32": -1, "least": -2147483648, "u16": 65535, "u8": 255, "none": 0, "tens": -100})");
}

TEST_F(EncoderTest, TakesAnyValueButZeroForTrue)
{
    const std::string text = written([&](Encoder &out) {
        out.boolean("zero", 0);
        out.boolean("one", 1);
        out.boolean("byte", std::uint8_t{128});
        out.boolean("word", 0x80000000);
    });
    EXPECT_EQ(text, R"({"zero": false, "one": true, "byte": true, "word": true})");
}

TEST_F(EncoderTest, CutsTextsToTheirField)
{
    const char fits[4] = "abc";
    const char whole[3] = {'a', 'b', 'c'};
    const std::string text = written([&](Encoder &out) {
        out.string("fits", fits);
        out.string("whole", whole);
    });
    EXPECT_EQ(text, R"({"fits": "abc", "whole": "ab"})");
}

TEST_F(EncoderTest, LeavesOutTextsThatAreNotUtf8AndStaysComplete)
{
    const char split[3] = {'a', '\xC3', '\xA4'};
    const char latin1[5] = "a\xE4";
    const std::string text = written([&](Encoder &out) {
        out.string("split", split);
        out.string("latin1", latin1);
        out.whole_string("whole", "a\xE4");
        out.whole_string("none", nullptr);
    });
    EXPECT_EQ(text, "{}");
}

TEST_F(EncoderTest, TakesAWholeTextUncut)
{
    const std::string text = written([&](Encoder &out) { out.whole_string("text", std::string(300, 'x').c_str()); });
    EXPECT_EQ(text, "{\"text\": \"" + std::string(300, 'x') + "\"}");
}

TEST_F(EncoderTest, LeavesOutRealsThatAreNotFinite)
{
    const std::string text = written([&](Encoder &out) {
        out.real("half", -3.5);
        out.real("nan", std::nan(""));
        out.real("infinite", std::numeric_limits<double>::infinity());
        out.real("less", -std::numeric_limits<double>::infinity());
        out.real("zero", -0.0);
    });
    EXPECT_EQ(text, R"({"half": -3.5, "zero": -0.0})");
}

TEST_F(EncoderTest, NestsObjectsAndArraysInTheirPlace)
{
    const char name[5] = "port";
    const std::string text = written([&](Encoder &out) {
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
    });
    EXPECT_EQ(text, R"({"before": 1, "object": {"name": "port", "deeper": {"yes": true}}, )"
                    R"("array": [7, "port", {"n": 1}], "empty": [], "after": 2})");
}

TEST_F(EncoderTest, LeavesOutElementsThatAreNotUtf8)
{
    const char latin1[5] = "a\xE4";
    const std::string text = written([&](Encoder &out) {
        out.array("list", [&](ArrayEncoder &list) {
            list.string(latin1);
            list.integer(1);
            list.string(latin1);
        });
    });
    EXPECT_EQ(text, R"({"list": [1]})");
}

TEST_F(EncoderTest, EscapesAsLittleAsItMust)
{
    const std::string text =
        written([](Encoder &out) { out.whole_string("text", "\"\\/\b\f\n\r\t\x01\x1F\x7F\xC3\xA4\xF0\x9D\x84\x9E"); });
    EXPECT_EQ(text, "{\"text\": \"\\\"\\\\/\\b\\f\\n\\r\\t\\u0001\\u001F\x7F\xC3\xA4\xF0\x9D\x84\x9E\"}");
}

TEST_F(PrettyEncoderTest, EscapesSlashesAndAllThatIsNotAscii)
{
    const std::string text =
        written([](Encoder &out) { out.whole_string("text", "/\x7F\xC3\xA4\xE2\x82\xAC\xF0\x9D\x84\x9E"); });
    EXPECT_EQ(text, "{\n                \"text\": \"\\/\x7F\\u00E4\\u20AC\\uD834\\uDD1E\"\n}");
}

TEST_F(EncoderTest, NestsDeep)
{
    std::string expected;
    for (int level = 0; level < 30; ++level)
        expected += R"({"before": 1, "deeper": )";
    expected += "{}";
    for (int level = 0; level < 30; ++level)
        expected += R"(, "after": 2})";
    const std::function<void(Encoder &, int)> nest = [&](Encoder &out, int levels) {
        if (levels == 0)
            return;
        out.integer("before", 1U);
        out.object("deeper", [&](Encoder &deeper) { nest(deeper, levels - 1); });
        out.integer("after", 2U);
    };
    EXPECT_EQ(written([&](Encoder &out) { nest(out, 30); }), expected);
}

TEST_F(EncoderTest, KeepsTheFirstPlaceAndTheLastValueOfAKeyInSeveralNodes)
{
    const Fill first = [](Encoder &out) {
        out.whole_string("text", "first");
        out.object("object", [](Encoder &nested) { nested.integer("n", 1U); });
        out.integer("only", 1U);
        out.array("array", [](ArrayEncoder &list) { list.integer(1); });
    };
    const Fill second = [](Encoder &out) {
        out.array("array", [](ArrayEncoder &list) { list.object([](Encoder &element) { element.integer("n", 2U); }); });
        out.boolean("new", 1);
        out.object("object", [](Encoder & /*nested*/) {});
        out.whole_string("text", "a longer one");
    };
    EXPECT_EQ(merged({first, second}),
              R"({"text": "a longer one", "object": {}, "only": 1, "array": [{"n": 2}], "new": true})");
    EXPECT_EQ(merged({second, first}),
              R"({"array": [1], "new": true, "object": {"n": 1}, "text": "first", "only": 1})");
    EXPECT_EQ(merged({first, second, second, first}),
              R"({"text": "first", "object": {"n": 1}, "only": 1, "array": [1], "new": true})");
}

TEST_F(EncoderTest, KeepsTheValueThatALaterNodeLeavesOut)
{
    const Fill good = [](Encoder &out) { out.whole_string("text", "good"); };
    const Fill bad = [](Encoder &out) {
        out.whole_string("text", "b\xE4"
                                 "d");
    };
    EXPECT_EQ(merged({good, bad}), R"({"text": "good"})");
}

TEST_F(EncoderTest, NeedsNoLargerBufferForValuesThatALaterNodeReplaces)
{
    const std::string long_one(5000, 'x');
    const Fill first = [&](Encoder &out) { out.whole_string("text", long_one.c_str()); };
    const Fill second = [](Encoder &out) { out.whole_string("text", "short"); };
    EXPECT_EQ(merged({first, second}), R"({"text": "short"})");
    EXPECT_EQ(reallocations_, 0U);
    EXPECT_EQ(merged({second, first}), "{\"text\": \"" + long_one + "\"}");
    EXPECT_EQ(reallocations_, 1U);
}

/// What the lines of a pretty text hold, without their indent.
std::string words(const std::string &text)
{
    std::string kept;
    for (std::size_t i = 0; i < text.size(); ++i) {
        kept += text[i];
        if (text[i] == '\n')
            i = text.find_first_not_of(' ', i + 1) - 1;
    }
    return kept;
}

TEST_F(PrettyEncoderTest, SortsTheMembersOfEachObject)
{
    const std::string text = written([](Encoder &out) {
        out.integer("c", 1U);
        out.object("a", [](Encoder &nested) {
            nested.integer("ab", 2U);
            nested.integer("a", 3U);
            nested.integer("B", 4U);
        });
        out.array("b", [](ArrayEncoder &list) {
            list.object([](Encoder &element) {
                element.integer("y", 5U);
                element.integer("x", 6U);
            });
        });
    });
    EXPECT_EQ(words(text), "{\n\"a\": {\n\"B\": 4,\n\"a\": 3,\n\"ab\": 2\n},\n\"b\": [\n{\n\"x\": 6,\n\"y\": 5\n}\n],\n"
                           "\"c\": 1\n}");
}

TEST_F(PrettyEncoderTest, SortsElementsWhoseKeysDiffer)
{
    const auto keys = [](const std::vector<const char *> &names) {
        return [=](Encoder &out) {
            for (const char *name : names)
                out.boolean(name, 1);
        };
    };
    EXPECT_EQ(
        words(listed({keys({"c", "b", "a"}), keys({"c", "b"}), keys({"c", "b", "d"}), keys({}), keys({"a", "b", "c"}),
                      keys({"c", "b", "a"})})),
        "[\n{\n\"a\": true,\n\"b\": true,\n\"c\": true\n},\n{\n\"b\": true,\n\"c\": true\n},\n{\n\"b\": true,\n\"c\": "
        "true,\n\"d\": true\n},\n{},\n{\n\"a\": true,\n\"b\": true,\n\"c\": true\n},\n{\n\"a\": true,\n\"b\": "
        "true,\n\"c\": "
        "true\n}\n]");
}

TEST_F(PrettyEncoderTest, SortsWhatSeveralNodesWrite)
{
    const Fill first = [](Encoder &out) {
        out.whole_string("b", "first");
        out.integer("c", 1U);
        out.integer("a", 1U);
    };
    const Fill second = [](Encoder &out) {
        out.integer("a", 22U);
        out.object("b", [](Encoder &nested) {
            nested.integer("z", 1U);
            nested.integer("y", 1U);
        });
        out.integer("0", 2U);
    };
    EXPECT_EQ(words(merged({first, second})),
              "{\n\"0\": 2,\n\"a\": 22,\n\"b\": {\n\"y\": 1,\n\"z\": 1\n},\n\"c\": 1\n}");
}

/// Values of every kind.
void everything(Encoder &out)
{
    const char text[8] = "fits";
    const char cut[3] = {'a', 'b', 'c'};
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
    out.whole_string("long", std::string(5000, 'x').c_str());
}

TEST_F(EncoderTest, SurvivesFailingMemory)
{
    const Fill fill = everything;
    merged({fill});
    expect_survives_failing_memory();
    merged({fill, fill});
    expect_survives_failing_memory();
}

TEST_F(PrettyEncoderTest, SurvivesFailingMemory)
{
    const Fill fill = everything;
    merged({fill});
    expect_survives_failing_memory();
    merged({fill, fill});
    expect_survives_failing_memory();
}

/// The text of an array, which is released; "(none)" for what is none.
std::string rendered(json_t *array)
{
    char *text = json_dumps(array, 0);
    std::string copy = text != nullptr ? text : "(none)";
    std::free(text);
    json_decref(array);
    return copy;
}

TEST(Extend, AddsToAnArrayThatIsThereAlready)
{
    json_t *array = json_loads("[1]", 0, nullptr);
    EXPECT_TRUE(extend(array, [](ArrayEncoder &list) {
        list.integer(2);
        list.object([](Encoder &element) { element.whole_string("text", "/\n\xC3\xA4"); });
    }));
    EXPECT_EQ(rendered(array), "[1, 2, {\"text\": \"/\\n\xC3\xA4\"}]");
}

TEST(Extend, FailsWhereElementsHaveNoArray)
{
    for (json_t *other : {static_cast<json_t *>(nullptr), json_null(), json_object()}) {
        EXPECT_FALSE(extend(other, [](ArrayEncoder &list) { list.integer(2); }));
        EXPECT_EQ(extend(other, [](ArrayEncoder & /*list*/) {}), other != nullptr);
        json_decref(other);
    }
}

} // namespace

} // namespace kelmora::encoder_test
