#include "tests/support/from_test.h"
#include "tests/support/to_test.h"

#include "kelmora_json.h"
#include "records/wan_lan.h"

namespace kelmora_test::wan_detect_test {

namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

constexpr kelmora_wan_detect sample{
    .hasDHCP = 1,
    .hasPPPoE = 2,
    .hasStatic = 0,
};

constexpr char sample_text[] = "{\n"
                               "                \"hasDHCP\": 1,\n"
                               "                \"hasPPPoE\": 2,\n"
                               "                \"hasStatic\": 0\n"
                               "}";

class WanDetectTo : public ToTest<kelmora_wan_detect> {
protected:
    WanDetectTo() : ToTest(wan_detect_to_translator) {}
};

TEST_F(WanDetectTo, WritesNumbersAndNoId)
{
    add("0", sample);
    EXPECT_EQ(object(), sample_text);
    EXPECT_EQ(list(), "[\n"
                      "                {\n"
                      "                                \"hasDHCP\": 1,\n"
                      "                                \"hasPPPoE\": 2,\n"
                      "                                \"hasStatic\": 0\n"
                      "                }\n"
                      "]");
}

TEST_F(WanDetectTo, WritesIntegersAsUnsigned)
{
    add("", {.hasDHCP = 4294967295, .hasPPPoE = 4294967294, .hasStatic = 2147483648});
    EXPECT_THAT(object(), AllOf(HasSubstr("\"hasDHCP\": 4294967295,"), HasSubstr("\"hasPPPoE\": 4294967294,"),
                                HasSubstr("\"hasStatic\": 2147483648\n"), Not(HasSubstr("-"))));
}

constexpr char document[] = R"({"hasDHCP": 3, "hasPPPoE": 4, "hasStatic": 5})";

class WanDetectFrom : public FromTest<kelmora_wan_detect> {
protected:
    WanDetectFrom() : FromTest(wan_detect_from_translator, document) {}
};

TEST_F(WanDetectFrom, StoresEveryKey)
{
    EXPECT_TRUE(accepts(document));
    EXPECT_EQ(record().hasDHCP, 3U);
    EXPECT_EQ(record().hasPPPoE, 4U);
    EXPECT_EQ(record().hasStatic, 5U);
}

TEST_F(WanDetectFrom, KeepsTheKeysThatAreAbsent)
{
    expect_optional("hasDHCP", record().hasDHCP);
    expect_optional("hasPPPoE", record().hasPPPoE);
    expect_optional("hasStatic", record().hasStatic);
}

TEST_F(WanDetectFrom, SucceedsWithNoneOfTheKeys)
{
    for (const char *text : {"{}", "[]", R"([{"hasDHCP": 3, "hasPPPoE": 4, "hasStatic": 5}])", R"({"hasdhcp": 3})"}) {
        EXPECT_TRUE(accepts(text));
        EXPECT_TRUE(untouched(record()));
    }
}

TEST_F(WanDetectFrom, CutsIntegersToTheirWidth)
{
    expect_integer("hasDHCP", record().hasDHCP);
    expect_integer("hasPPPoE", record().hasPPPoE);
    expect_integer("hasStatic", record().hasStatic);
}

} // namespace

} // namespace kelmora_test::wan_detect_test
