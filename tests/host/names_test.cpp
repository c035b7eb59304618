#include "host/names.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace kelmora_host::names_test {

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST(Enumeration, JoinsTheLastNameByAWord)
{
    EXPECT_EQ(enumeration({}), "");
    EXPECT_EQ(enumeration({"lan"}), "lan");
    EXPECT_EQ(enumeration({"lan", "wan"}), "lan and wan");
    EXPECT_EQ(enumeration({"lan", "wan", "pon"}, "or"), "lan, wan or pon");
}

TEST(EditDistance, CountsLettersThatAreAddedTakenAwayReplacedOrExchanged)
{
    EXPECT_EQ(edit_distance("", ""), 0U);
    EXPECT_EQ(edit_distance("radio", "radio"), 0U);
    EXPECT_EQ(edit_distance("", "wan"), 3U);
    EXPECT_EQ(edit_distance("wan", ""), 3U);
    EXPECT_EQ(edit_distance("lst", "list"), 1U);
    EXPECT_EQ(edit_distance("list", "lst"), 1U);
    EXPECT_EQ(edit_distance("wan", "lan"), 1U);
    EXPECT_EQ(edit_distance("raido", "radio"), 1U);
    EXPECT_EQ(edit_distance("kitten", "sitting"), 3U);
}

TEST(SimilarNames, AreThoseOfWhichLessThanAThirdOfTheLettersDiffer)
{
    EXPECT_THAT(similar_names("raido", {"radio", "ping"}), ElementsAre("radio"));
    EXPECT_THAT(similar_names("lst", {"list", "show", "set"}), ElementsAre("list"));
    EXPECT_THAT(similar_names("get", {"list", "show", "set"}), IsEmpty());
    EXPECT_THAT(similar_names("trcaeroot", {"traceroute"}), ElementsAre("traceroute"));
    EXPECT_THAT(similar_names("trcaerot", {"traceroute"}), ElementsAre("traceroute"));
    EXPECT_THAT(similar_names("trcarot", {"traceroute"}), IsEmpty());
}

TEST(SimilarNames, AreThoseThatContainEachOther)
{
    EXPECT_THAT(similar_names("prefix", {"ipv6_prefix_delegation"}), ElementsAre("ipv6_prefix_delegation"));
    EXPECT_THAT(similar_names("all_radios", {"radio"}), ElementsAre("radio"));
    EXPECT_THAT(similar_names("v6", {"ipv6_prefix_delegation"}), IsEmpty());
    EXPECT_THAT(similar_names("", {"radio", "ping"}), IsEmpty());
}

TEST(SimilarNames, BeginWithTheNearest)
{
    EXPECT_THAT(similar_names("wlan1", {"wlan0.1", "wlan0", "wlan11", "lan"}),
                ElementsAre("wlan0", "wlan11", "wlan0.1", "lan"));
}

TEST(SimilarNames, MayBeInCapitals)
{
    EXPECT_THAT(similar_names("RADIO", {"radio"}), ElementsAre("radio"));
    EXPECT_THAT(similar_names("radio0", {"RADIO1"}), ElementsAre("RADIO1"));
}

} // namespace

} // namespace kelmora_host::names_test
