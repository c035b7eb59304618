#include "harness/jansson_alone.h"

#include <gtest/gtest.h>
#include <stdexcept>
#include <string>

namespace kelmora_harness::jansson_alone_test {

namespace {

TEST(ParsedAlone, IsTheDocumentWhileNoAllocationFails)
{
    const Parsed parsed = parse_alone(R"({ "a": ["b", 1, null] })");
    EXPECT_EQ(parsed.text, R"({"a": ["b", 1, null]})");
    EXPECT_GT(parsed.allocations, 3U);
}

TEST(ParsedAlone, IsNothingWithoutMemory)
{
    EXPECT_EQ(parse_alone("{}", {1, Failing::from_then_on}).text, std::nullopt);
}

TEST(ParsedAlone, IsTheDocumentWhenTheFailingAllocationIsBehindItsLast)
{
    const std::size_t all = parse_alone(R"({"a": 1})").allocations;
    EXPECT_EQ(parse_alone(R"({"a": 1})", {all + 1, Failing::once}).text, R"({"a": 1})");
    EXPECT_EQ(parse_alone(R"({"a": 1})", {all + 1, Failing::once}).allocations, all);
}

TEST(ParsedAlone, LacksAtMostOneCharacterOfAStringWhicheverAllocationFails)
{
    for (std::size_t length = 1; length < 100; ++length) {
        const std::string document = "[\"" + std::string(length, 'a') + "\"]";
        const std::string lacking = "[\"" + std::string(length - 1, 'a') + "\"]";
        for (std::size_t n = 1;; ++n) {
            const Parsed parsed = parse_alone(document, {n, Failing::once});
            EXPECT_TRUE(!parsed.text || parsed.text == document || parsed.text == lacking) << *parsed.text;
            if (parsed.allocations < n)
                break;
        }
    }
}

TEST(DamagedRenderings, DoNotHoldTheRightTextNorMoreThanItLoses)
{
    const std::string right = R"({"a key of some length": ["a string", 1, {"another key, a longer one": true}]})";
    for (const std::string &wrong : damaged_renderings(right, Failing::once)) {
        EXPECT_NE(wrong, right);
        EXPECT_LT(wrong.size(), right.size());
    }
}

TEST(DamagedRenderings, AreNoneOfATextThatIsRenderedOtherwise)
{
    EXPECT_TRUE(damaged_renderings("{\"a\":1}", Failing::once).empty());
    EXPECT_THROW(static_cast<void>(damaged_renderings("{", Failing::once)), std::invalid_argument);
}

TEST(DamagedImages, AreNoneWhereNoPartOfTheDocumentStandsAsText)
{
    EXPECT_TRUE(damaged_images(R"({"a": {"b": 1}})", "an image", Failing::once).empty());
}

TEST(DamagedImages, KeepWhatStandsAroundThePart)
{
    const std::string part = R"({"a key of some length": "a string", "another key of some length": 1})";
    for (const std::string &image : damaged_images("{\"body\": " + part + "}", "<" + part + ">", Failing::once)) {
        EXPECT_TRUE(image.starts_with("<{"));
        EXPECT_TRUE(image.ends_with("}>"));
        EXPECT_LT(image.size(), part.size() + 2);
    }
}

} // namespace

} // namespace kelmora_harness::jansson_alone_test
