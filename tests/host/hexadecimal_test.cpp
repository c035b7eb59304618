#include "host/hexadecimal.h"

#include <gtest/gtest.h>

namespace kelmora_host::hexadecimal_test {

namespace {

TEST(Hexadecimal, HasTwoDigitsForEachByte)
{
    EXPECT_EQ(hexadecimal(std::string_view("\x00\x7F\x80\xFF", 4)), "007f80ff");
    EXPECT_EQ(hexadecimal(""), "");
}

TEST(Hexadecimal, StandsApartWhereThatIsAskedFor)
{
    EXPECT_EQ(hexadecimal("a\n", " "), "61 0a");
    EXPECT_EQ(hexadecimal("a", " "), "61");
}

} // namespace

} // namespace kelmora_host::hexadecimal_test
