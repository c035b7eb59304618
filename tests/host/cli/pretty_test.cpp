#include "host/cli/pretty.h"

#include <gtest/gtest.h>

namespace kelmora_host::pretty_test {

namespace {

TEST(Pretty, HasALineForEachValue)
{
    EXPECT_EQ(pretty(R"([{"a": 1.50, "b": [true, null]}, {}, []])", Style(false)),
              "[\n  {\n    \"a\": 1.50,\n    \"b\": [\n      true,\n      null\n    ]\n  },\n  {},\n  []\n]");
}

TEST(Pretty, ColoursKeysAndValuesWhereTheStyleHasColours)
{
    EXPECT_EQ(pretty(R"({"a": 1})", Style(true)), "{\n  \x1b[34m\"a\"\x1b[0m: \x1b[33m1\x1b[0m\n}");
}

TEST(Pretty, LeavesWhatIsNoDocumentAsItIs) { EXPECT_EQ(pretty("00 7f", Style(true)), "00 7f"); }

} // namespace

} // namespace kelmora_host::pretty_test
