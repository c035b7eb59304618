#include "frame/direct/escape.h"

#include <cstring>
#include <gtest/gtest.h>
#include <string>
#include <string_view>

namespace kelmora::escape_test {

namespace {

std::string escaped(std::string_view string, Escapes escapes)
{
    std::string text(escape(nullptr, string.data(), string.size(), escapes), '?');
    EXPECT_EQ(escape(text.data(), string.data(), string.size(), escapes), text.size());
    return text;
}

TEST(Escape, LeavesWhatNeedsNoneAsItIs)
{
    EXPECT_EQ(escaped(" az~\x7F/ß世𝄞", Escapes::necessary), " az~\x7F/ß世𝄞");
    EXPECT_EQ(escaped(" az~\x7F", Escapes::ascii_and_slash), " az~\x7F");
}

TEST(Escape, HasLettersForSomeCharactersAndDigitsForTheOthers)
{
    const std::string_view controls("\"\\\b\f\n\r\t\0\x01\x0B\x0E\x1F", 12);
    const std::string expected = R"(\"\\\b\f\n\r\t\u0000\u0001\u000B\u000E\u001F)";
    EXPECT_EQ(escaped(controls, Escapes::necessary), expected);
    EXPECT_EQ(escaped(controls, Escapes::ascii_and_slash), expected);
}

TEST(Escape, MakesAsciiOfAllOthers)
{
    EXPECT_EQ(escaped("/\xC2\x80\xDF\xBF", Escapes::ascii_and_slash), R"(\/\u0080\u07FF)");
    EXPECT_EQ(escaped("\xE0\xA0\x80\xED\x9F\xBF\xEE\x80\x80\xEF\xBF\xBF", Escapes::ascii_and_slash),
              R"(\u0800\uD7FF\uE000\uFFFF)");
    EXPECT_EQ(escaped("\xF0\x90\x80\x80\xF0\x9D\x84\x9E\xF4\x8F\xBF\xBF", Escapes::ascii_and_slash),
              R"(\uD800\uDC00\uD834\uDD1E\uDBFF\uDFFF)");
}

TEST(LengthWithoutEscapes, EndsAtTheFirstByteThatNeedsOne)
{
    for (const Escapes escapes : {Escapes::necessary, Escapes::ascii_and_slash}) {
        for (unsigned c = 0; c < 256; ++c) {
            const bool slash = c == '/' && escapes == Escapes::ascii_and_slash;
            const bool plain = c >= 0x20 && c < 0x80 && c != '"' && c != '\\' && !slash;
            for (std::size_t place = 0; place < 20; ++place) { // in a word, and behind the last whole one
                char string[20];
                std::memset(string, 'a', sizeof string);
                string[place] = static_cast<char>(c);
                EXPECT_EQ(length_without_escapes(string, sizeof string, escapes), plain ? sizeof string : place) << c;
            }
        }
    }
}

TEST(LengthWithoutEscapes, EndsAtTheFirstOfSeveralBytesThatNeedOne)
{
    const char around[] = {'\0', '\x1F', ' ',  '!', '"', '#',    '.',    '/',
                           '0',  '[',    '\\', ']', '~', '\x7F', '\x80', '\xFF'};
    const auto is_plain = [](char character) {
        const auto c = static_cast<unsigned char>(character);
        return c >= ' ' && c < 0x80 && c != '"' && c != '\\' && c != '/';
    };
    for (const char first : around) {
        for (const char second : around) {
            char string[16];
            std::memset(string, 'a', sizeof string);
            string[1] = first;
            string[2] = second;
            const std::size_t expected = !is_plain(first) ? 1 : !is_plain(second) ? 2 : sizeof string;
            EXPECT_EQ(length_without_escapes(string, sizeof string, Escapes::ascii_and_slash), expected)
                << int{first} << " " << int{second};
        }
    }
}

TEST(Escape, RefusesWhatIsNotUtf8)
{
    for (const std::string_view string :
         {"\x80", "a\xBF", "\xC0\x80", "\xC1\xBF", "\xC3", "\xC3(", "\xE0\x9F\xBF", "\xE2\x82", "\xED\xA0\x80",
          "\xED\xBF\xBF", "\xF0\x8F\xBF\xBF", "\xF0\x9D\x84", "\xF4\x90\x80\x80", "\xF5\x80\x80\x80", "\xFF",
          "\n\xC3\xA4\xE4"}) {
        EXPECT_EQ(escape(nullptr, string.data(), string.size(), Escapes::necessary), 0U) << string;
        EXPECT_EQ(escape(nullptr, string.data(), string.size(), Escapes::ascii_and_slash), 0U) << string;
    }
}

} // namespace

} // namespace kelmora::escape_test
