#include "frame/direct/quote.h"

#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <string_view>

namespace kelmora::quote_test {

namespace {

/// With room for it and more, and once more with no byte to spare.
std::string quoted(std::string_view string, Escapes escapes)
{
    std::string text(12 * string.size() + 64, '?');
    const std::size_t size = quote(text.data(), text.size(), string.data(), string.size(), escapes);
    text.resize(size);
    const auto exact = std::make_unique<char[]>(size);
    EXPECT_EQ(quote(exact.get(), size, string.data(), string.size(), escapes), size);
    EXPECT_EQ(std::string_view(exact.get(), size), text);
    return text;
}

TEST(Quote, LeavesWhatNeedsNoEscapeAsItIs)
{
    EXPECT_EQ(quoted("", Escapes::necessary), R"("")");
    EXPECT_EQ(quoted(" az~\x7F/ß世𝄞", Escapes::necessary), "\" az~\x7F/ß世𝄞\"");
    EXPECT_EQ(quoted(" az~\x7F", Escapes::ascii_and_slash), "\" az~\x7F\"");
}

TEST(Quote, HasLettersForSomeCharactersAndDigitsForTheOthers)
{
    const std::string_view controls = "\"\\\b\f\n\r\t\x01\x0B\x0E\x1F";
    const std::string expected = R"("\"\\\b\f\n\r\t\u0001\u000B\u000E\u001F")";
    EXPECT_EQ(quoted(controls, Escapes::necessary), expected);
    EXPECT_EQ(quoted(controls, Escapes::ascii_and_slash), expected);
}

TEST(Quote, MakesAsciiOfAllOthers)
{
    EXPECT_EQ(quoted("/\xC2\x80\xDF\xBF", Escapes::ascii_and_slash), R"("\/\u0080\u07FF")");
    EXPECT_EQ(quoted("\xE0\xA0\x80\xED\x9F\xBF\xEE\x80\x80\xEF\xBF\xBF", Escapes::ascii_and_slash),
              R"("\u0800\uD7FF\uE000\uFFFF")");
    EXPECT_EQ(quoted("\xF0\x90\x80\x80\xF0\x9D\x84\x9E\xF4\x8F\xBF\xBF", Escapes::ascii_and_slash),
              R"("\uD800\uDC00\uD834\uDD1E\uDBFF\uDFFF")");
}

TEST(Quote, EndsAtTheFirstNul)
{
    for (std::size_t length = 0; length < 20; ++length) { // in a word, and behind the last whole one
        std::string field(20, 'a');
        field[length] = '\0';
        EXPECT_EQ(quoted(field, Escapes::necessary), '"' + std::string(length, 'a') + '"');
    }
}

/// What a character becomes, as the standard says.
std::string one_escaped(unsigned char c, Escapes escapes)
{
    switch (c) {
    case '"':
        return R"(\")";
    case '\\':
        return R"(\\)";
    case '\b':
        return R"(\b)";
    case '\f':
        return R"(\f)";
    case '\n':
        return R"(\n)";
    case '\r':
        return R"(\r)";
    case '\t':
        return R"(\t)";
    case '/':
        return escapes == Escapes::ascii_and_slash ? R"(\/)" : "/";
    default:
        break;
    }
    if (c >= 0x20)
        return {static_cast<char>(c)};
    const std::string_view digits = "0123456789ABCDEF";
    return std::string("\\u00") + digits[c >> 4U] + digits[c & 0xFU];
}

TEST(Quote, EscapesACharacterAtAnyPlace)
{
    for (const Escapes escapes : {Escapes::necessary, Escapes::ascii_and_slash}) {
        for (unsigned char c = 1; c < 0x80; ++c) {
            for (std::size_t place = 0; place < 20; ++place) {
                std::string string(20, 'a');
                string[place] = static_cast<char>(c);
                std::string expected(20, 'a');
                expected.replace(place, 1, one_escaped(c, escapes));
                EXPECT_EQ(quoted(string, escapes), '"' + expected + '"');
            }
        }
    }
}

TEST(Quote, EscapesCharactersOneBehindAnother)
{
    const std::string_view around = "\x1F !\"#./0[\\]~\x7F";
    for (const char first : around) {
        for (const char second : around) {
            const std::string string = std::string("a") + first + second + "aaaaaaaaaaaaa";
            const auto escaped = [](char c) {
                return one_escaped(static_cast<unsigned char>(c), Escapes::ascii_and_slash);
            };
            EXPECT_EQ(quoted(string, Escapes::ascii_and_slash),
                      "\"a" + escaped(first) + escaped(second) + "aaaaaaaaaaaaa\"");
        }
    }
}

TEST(LengthWithoutEscapes, EndsAtTheFirstByteThatNeedsOne)
{
    for (const Escapes escapes : {Escapes::necessary, Escapes::ascii_and_slash}) {
        for (unsigned c = 0; c < 256; ++c) {
            const bool slash = c == '/' && escapes == Escapes::ascii_and_slash;
            const bool plain = c >= 0x20 && c < 0x80 && c != '"' && c != '\\' && !slash;
            for (std::size_t place = 0; place < 20; ++place) { // in a word, and behind the last whole one
                std::string string(20, 'a');
                string[place] = static_cast<char>(c);
                EXPECT_EQ(length_without_escapes(string.data(), string.size(), escapes), plain ? string.size() : place)
                    << c;
            }
        }
    }
}

TEST(IsAscii, LooksAtEachByteUpToTheNul)
{
    for (unsigned c = 1; c < 256; ++c) {
        for (std::size_t place = 0; place < 20; ++place) {
            std::string string(20, 'a');
            string[place] = static_cast<char>(c);
            EXPECT_EQ(is_ascii(string.data(), string.size()), c < 0x80) << c;
            for (std::size_t nul = 0; nul < place; ++nul) {
                std::string shorter = string;
                shorter[nul] = '\0';
                EXPECT_TRUE(is_ascii(shorter.data(), shorter.size())) << c;
            }
        }
    }
    EXPECT_TRUE(is_ascii("", 0));
}

TEST(Quote, WritesNothingBehindTheRoomAndCountsOn)
{
    const std::string_view string = "a long string with \"escapes\",\n letters ß世𝄞 and all";
    for (const Escapes escapes : {Escapes::necessary, Escapes::ascii_and_slash}) {
        const std::string whole = quoted(string, escapes);
        for (std::size_t room = 0; room <= whole.size(); ++room) {
            std::string text(whole.size() + 16, '?');
            EXPECT_EQ(quote(text.data(), room, string.data(), string.size(), escapes), whole.size());
            EXPECT_EQ(text.substr(room), std::string(text.size() - room, '?')) << room;
        }
        EXPECT_EQ(quote(nullptr, 0, string.data(), string.size(), escapes), whole.size());
    }
}

TEST(Quote, RefusesWhatIsNotUtf8)
{
    for (const std::string_view string :
         {"\x80", "a\xBF", "\xC0\x80", "\xC1\xBF", "\xC3", "\xC3(", "\xE0\x9F\xBF", "\xE2\x82", "\xED\xA0\x80",
          "\xED\xBF\xBF", "\xF0\x8F\xBF\xBF", "\xF0\x9D\x84", "\xF4\x90\x80\x80", "\xF5\x80\x80\x80", "\xFF",
          "\n\xC3\xA4\xE4"}) {
        char text[64];
        for (const std::size_t room : {std::size_t{0}, sizeof text}) {
            EXPECT_EQ(quote(text, room, string.data(), string.size(), Escapes::necessary), 0U) << string;
            EXPECT_EQ(quote(text, room, string.data(), string.size(), Escapes::ascii_and_slash), 0U) << string;
        }
    }
}

} // namespace

} // namespace kelmora::quote_test
