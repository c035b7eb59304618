#include "frame/string.h"

#include "tests/support/allocations.h"

#include "kelmora_json.h"

#include <cstring>
#include <gtest/gtest.h>
#include <string>
#include <utility>
#include <vector>

namespace kelmora::string_test {

namespace {

using kelmora_test::Failing;
namespace allocations = kelmora_test::allocations;

/// The text of a JSON string, which is released; "(none)" for NULL.
std::string taken(json_t *value)
{
    std::string text = value != nullptr ? json_string_value(value) : "(none)";
    json_decref(value);
    return text;
}

TEST(JsonString, TakesATextThatFitsWhole)
{
    EXPECT_EQ(taken(libkelmora_json_string("Nordlicht", 33)), "Nordlicht");
    EXPECT_EQ(taken(libkelmora_json_string("", 1)), "");
    EXPECT_EQ(taken(libkelmora_json_string("abc", 4)), "abc");
}

TEST(JsonString, CutsATextToItsWidthLessOne)
{
    const std::string text(200, 'x');
    EXPECT_EQ(taken(libkelmora_json_string(text.c_str(), 129)), std::string(128, 'x'));
    EXPECT_EQ(taken(libkelmora_json_string("abc", 3)), "ab");
    EXPECT_EQ(taken(libkelmora_json_string("abc", 1)), "");
    EXPECT_EQ(taken(libkelmora_json_string("abc", 0)), "");
}

TEST(JsonString, IsNullWhenTheCutSplitsACharacter)
{
    // The 128th and 129th bytes are one character.
    const std::string text = std::string(127, 'x') + "\xC3\xA4" + "rest";
    EXPECT_EQ(taken(libkelmora_json_string(text.c_str(), 129)), "(none)");
    EXPECT_EQ(taken(libkelmora_json_string(text.c_str(), 130)), std::string(127, 'x') + "\xC3\xA4");
    EXPECT_EQ(taken(libkelmora_json_string(text.c_str(), 128)), std::string(127, 'x'));
    for (const std::string character : {"\xC3\xA4", "\xE5\x8C\x97", "\xF0\x9F\x8F\xA0"}) {
        for (std::size_t width = 2; width <= character.size(); ++width)
            EXPECT_EQ(taken(libkelmora_json_string(character.c_str(), width)), "(none)");
        EXPECT_EQ(taken(libkelmora_json_string(character.c_str(), character.size() + 1)), character);
    }
}

TEST(JsonString, IsNullForWhatIsNotUtf8)
{
    EXPECT_EQ(taken(libkelmora_json_string("caf\xE9", 33)), "(none)");
    EXPECT_EQ(taken(libkelmora_json_string(nullptr, 33)), "(none)");
}

TEST(JsonString, ReadsNoFurtherThanTheWidth)
{
    // Exactly the field on the heap: reading behind it is an error that the sanitizers see.
    const std::vector<char> field(17, 'x');
    EXPECT_EQ(taken(libkelmora_json_string(field.data(), field.size())), std::string(16, 'x'));
}

TEST(JsonString, ReadsNoFurtherThanTheTextsNulHoweverWideTheFieldIsSaidToBe)
{
    const std::vector<char> text{'a', 'b', '\0'};
    EXPECT_EQ(taken(libkelmora_json_string(text.data(), 129)), "ab");
}

TEST(JsonString, AllocatesACopyOnlyForATextThatIsCut)
{
    allocations::pass();
    json_decref(json_string("abc"));
    const std::size_t of_jansson = allocations::asked_for();
    allocations::pass();
    json_decref(libkelmora_json_string("abc", 4));
    EXPECT_EQ(allocations::asked_for(), of_jansson);
    allocations::pass();
    json_decref(libkelmora_json_string("abcd", 4));
    EXPECT_EQ(allocations::asked_for(), of_jansson + 1);
}

TEST(JsonString, IsNullAndLeaksNothingWhenMemoryRunsOut)
{
    const std::size_t alive = allocations::alive();
    for (const char *text : {"fits", "is cut to its width"}) {
        for (std::size_t n = 1; n <= 2; ++n) {
            allocations::fail(n, Failing::once);
            EXPECT_EQ(libkelmora_json_string(text, 8), nullptr);
            allocations::pass();
            EXPECT_EQ(allocations::alive(), alive);
        }
    }
}

TEST(FieldLength, EndsAtTheNulOrAtTheWidth)
{
    EXPECT_EQ(field_length("abc", 4), 3U);
    EXPECT_EQ(field_length("abc", 3), 3U);
    EXPECT_EQ(field_length("", 1), 0U);
    EXPECT_EQ(field_length("ab\0cd", 6), 2U);
}

TEST(IsUtf8, AgreesWithJanssonOnEveryShortText)
{
    // All texts of one and two bytes, and all of three and four whose bytes are edges of the encoding.
    const auto agrees = [](const std::string &text) {
        json_t *value = json_stringn(text.data(), text.size());
        const bool taken = value != nullptr;
        json_decref(value);
        if (is_utf8(text.data(), text.size()) != taken) {
            ADD_FAILURE() << testing::PrintToString(text) << (taken ? " is taken" : " is refused");
        }
    };
    for (unsigned first = 0; first < 256; ++first) {
        agrees({static_cast<char>(first)});
        for (unsigned second = 0; second < 256; ++second)
            agrees({static_cast<char>(first), static_cast<char>(second)});
    }
    const char edges[] = {'\x00', '\x41', '\x7F', '\x80', '\x8F', '\x90', '\x9F', '\xA0', '\xBF', '\xC0',
                          '\xC1', '\xC2', '\xDF', '\xE0', '\xE1', '\xEC', '\xED', '\xEE', '\xEF', '\xF0',
                          '\xF1', '\xF3', '\xF4', '\xF5', '\xF7', '\xF8', '\xFE', '\xFF'};
    for (const char first : edges) {
        for (const char second : edges) {
            for (const char third : edges) {
                agrees({first, second, third});
                for (const char fourth : edges)
                    agrees({first, second, third, fourth});
            }
        }
    }
}

TEST(Strncpy, StoresATextThatFitsAndFillsTheRest)
{
    char field[34];
    std::memset(field, 'x', sizeof field);
    EXPECT_EQ(kelmora_strncpy(field, "0123456789", sizeof field), 1);
    EXPECT_EQ(std::string(field, sizeof field), std::string("0123456789") + std::string(24, '\0'));
}

TEST(Strncpy, CutsATextThatDoesNotFit)
{
    char field[34];
    EXPECT_EQ(kelmora_strncpy(field, std::string(40, 'x').c_str(), sizeof field), 0);
    EXPECT_EQ(std::string(field, sizeof field), std::string(33, 'x') + '\0');
}

TEST(Strncpy, CutsAtTheWidthExactly)
{
    char field[4];
    EXPECT_EQ(kelmora_strncpy(field, "abc", sizeof field), 1);
    EXPECT_STREQ(field, "abc");
    EXPECT_EQ(kelmora_strncpy(field, "abcd", sizeof field), 0);
    EXPECT_STREQ(field, "abc");
}

TEST(Strncpy, WritesNothingOutsideTheField)
{
    char around[6] = {'<', 'a', 'a', 'a', 'a', '>'};
    EXPECT_EQ(kelmora_strncpy(around + 1, "too long", 4), 0);
    EXPECT_EQ(std::string(around, sizeof around), std::string("<too\0>", 6));
    EXPECT_EQ(kelmora_strncpy(around + 1, "x", 0), 0);
    EXPECT_EQ(std::string(around, sizeof around), std::string("<too\0>", 6));
    EXPECT_EQ(kelmora_strncpy(around + 1, "x", 1), 0);
    EXPECT_EQ(std::string(around, sizeof around), std::string("<\0oo\0>", 6));
    EXPECT_EQ(kelmora_strncpy(around + 1, "", 1), 1);
}

TEST(Strncpy, StoresNothingForNull)
{
    char field[4] = {'a', 'a', 'a', 'a'};
    EXPECT_EQ(kelmora_strncpy(field, nullptr, sizeof field), 1);
    EXPECT_EQ(std::string(field, sizeof field), std::string(4, '\0'));
}

} // namespace

} // namespace kelmora::string_test
