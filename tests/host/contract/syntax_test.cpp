#include "host/contract/syntax.h"

#include <gtest/gtest.h>

namespace kelmora_host::syntax_test {

namespace {

using namespace std::string_literals;

TEST(FindNulByte, FindsNoneWhereThereIsNone)
{
    EXPECT_EQ(find_nul_byte(""), std::nullopt);
    EXPECT_EQ(find_nul_byte("{\n}\n"), std::nullopt);
}

TEST(FindNulByte, CountsLinesAndColumnsFromOne)
{
    EXPECT_EQ(find_nul_byte("\0"s), (SyntaxError{{1, 1}, "NUL byte in the text"}));
    EXPECT_EQ(find_nul_byte("{}\0"s), (SyntaxError{{1, 3}, "NUL byte in the text"}));
    EXPECT_EQ(find_nul_byte("{\n\n\0"s), (SyntaxError{{3, 1}, "NUL byte in the text"}));
    EXPECT_EQ(find_nul_byte("{\n  \0\n}"s), (SyntaxError{{2, 3}, "NUL byte in the text"}));
}

TEST(FindNulByte, FindsTheFirstOfSeveral)
{
    EXPECT_EQ(find_nul_byte("a\0b\n\0"s), (SyntaxError{{1, 2}, "NUL byte in the text"}));
}

TEST(FindNulByte, CountsCharactersAndNotBytes)
{
    EXPECT_EQ(find_nul_byte("\"\xc3\xa4\xe2\x82\xac\0"s), (SyntaxError{{1, 4}, "NUL byte in the text"}));
}

TEST(FindSyntaxError, FindsNoneInADocument)
{
    EXPECT_EQ(find_syntax_error("{\"a\": 1}"), std::nullopt);
    EXPECT_EQ(find_syntax_error(" [] \n"), std::nullopt);
}

TEST(FindSyntaxError, SaysWhereAndWhyParsingStopped)
{
    const std::optional<SyntaxError> error = find_syntax_error("{\n  \"a\": 1\n  \"b\": 2\n}\n");
    EXPECT_EQ(error, (SyntaxError{{3, 5}, "'}' expected near '\"b\"'"}));
}

TEST(FindSyntaxError, CountsCharactersAndNotBytes)
{
    const std::optional<SyntaxError> error = find_syntax_error("[\"\xc3\xa4\xe2\x82\xac\" 1]");
    ASSERT_TRUE(error);
    EXPECT_EQ(error->position.line, 1U);
    EXPECT_EQ(error->position.column, 7U);
}

TEST(FindSyntaxError, FindsOneBehindADocument)
{
    const std::optional<SyntaxError> error = find_syntax_error("{}\n{}");
    ASSERT_TRUE(error);
    EXPECT_EQ(error->position.line, 2U);
    EXPECT_EQ(error->position.column, 1U);
}

TEST(FindSyntaxError, FindsOneAtTheEndOfATextThatBreaksOff)
{
    const std::optional<SyntaxError> error = find_syntax_error("{\"a\": 1,\n");
    ASSERT_TRUE(error);
    EXPECT_EQ(error->position.line, 2U);
    EXPECT_EQ(error->position.column, 1U);
}

TEST(FindSyntaxError, TakesNoValueButObjectAndArrayForADocument)
{
    EXPECT_NE(find_syntax_error("1"), std::nullopt);
    EXPECT_NE(find_syntax_error("\"radio\""), std::nullopt);
    EXPECT_NE(find_syntax_error("null"), std::nullopt);
    EXPECT_NE(find_syntax_error(""), std::nullopt);
}

TEST(FindSyntaxError, FindsBytesThatAreNoText) { EXPECT_NE(find_syntax_error("[\"\xff\"]"), std::nullopt); }

} // namespace

} // namespace kelmora_host::syntax_test
