#include "host/contract/learn_condition.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace kelmora_host::learn_condition_test {

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

const Given absent;
const Given yes{.kind = Given::Kind::yes};
const Given no{.kind = Given::Kind::no};
const Given other = given_integer(1000);

TEST(ConditionValue, IsJson)
{
    EXPECT_EQ(condition_value(given_integer(-7)), "-7");
    EXPECT_EQ(condition_value(yes), "true");
    EXPECT_EQ(condition_value(no), "false");
}

TEST(Split, IsNoConditionWhereTheValueDoesNotMatter)
{
    EXPECT_FALSE((Split{{yes, no, absent}, {}}).condition("/a", no));
    EXPECT_FALSE((Split{{}, {yes, no, absent}}).condition("/a", no));
    EXPECT_FALSE((Split{}).condition("/a", no));
}

TEST(Split, NamesTheValuesWithWhichItIsSo)
{
    const auto condition = Split{{yes}, {no, absent}}.condition("/a", no);
    ASSERT_TRUE(condition);
    EXPECT_EQ(condition->path, "/a");
    EXPECT_THAT(condition->values, ElementsAre("true"));
    EXPECT_FALSE(condition->except);
}

TEST(Split, NamesTheValuesWithWhichItIsNotSoWhereItIsWithAllOthers)
{
    const auto condition =
        Split{{other, given_integer(3), absent}, {given_integer(1), given_integer(2)}}.condition("/a", other);
    ASSERT_TRUE(condition);
    EXPECT_THAT(condition->values, ElementsAre("1", "2"));
    EXPECT_TRUE(condition->except);
}

TEST(Split, HasNoValuesWhereThePresenceIsEnough)
{
    const auto condition = Split{{yes, no}, {absent}}.condition("/a", no);
    ASSERT_TRUE(condition);
    EXPECT_THAT(condition->values, IsEmpty());
    EXPECT_FALSE(condition->except);
}

TEST(Split, IsNoConditionWhereItIsSoWithoutTheKeyAlone)
{
    EXPECT_FALSE((Split{{absent}, {yes, no}}).condition("/a", no));
}

} // namespace

} // namespace kelmora_host::learn_condition_test
