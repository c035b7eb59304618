#include "frame/key.h"

#include <gtest/gtest.h>

namespace kelmora::key_test {

namespace {

TEST(Key, NamesItselfInFieldAndMessage)
{
    constexpr Key key = "opMode"_key;
    EXPECT_STREQ(key.name(), "opMode");
    EXPECT_STREQ(key.field(), "opMode");
    EXPECT_STREQ(key.message(), "opMode field not found");
}

TEST(Key, MayLeaveItsNameOutOfTheMessage)
{
    constexpr Key key = "enabled"_bare_key;
    EXPECT_STREQ(key.name(), "enabled");
    EXPECT_STREQ(key.field(), "enabled");
    EXPECT_STREQ(key.message(), "field not found");
}

TEST(Key, OfAPathIsItsLastStepReportedUnderThePath)
{
    constexpr Key nested = "acs.acs_url"_key;
    EXPECT_STREQ(nested.name(), "acs_url");
    EXPECT_STREQ(nested.field(), "acs.acs_url");
    EXPECT_STREQ(nested.message(), "acs_url field not found");
    constexpr Key bare = "lan_list.lan_id"_bare_key;
    EXPECT_STREQ(bare.name(), "lan_id");
    EXPECT_STREQ(bare.field(), "lan_list.lan_id");
    EXPECT_STREQ(bare.message(), "field not found");
}

TEST(Key, OfAPathMayHaveSeveralStepsDividedByDotsOrColons)
{
    constexpr Key deep = "mtp.websocket.port"_key;
    EXPECT_STREQ(deep.name(), "port");
    EXPECT_STREQ(deep.field(), "mtp.websocket.port");
    constexpr Key colon = "ipv6_prefix:rdnss1"_key;
    EXPECT_STREQ(colon.name(), "rdnss1");
    EXPECT_STREQ(colon.field(), "ipv6_prefix:rdnss1");
    EXPECT_STREQ(colon.message(), "rdnss1 field not found");
}

TEST(Key, TakesAnotherMessage)
{
    constexpr Key odd = key<"enable", "enable", "enable not found">();
    EXPECT_STREQ(odd.name(), "enable");
    EXPECT_STREQ(odd.field(), "enable");
    EXPECT_STREQ(odd.message(), "enable not found");
}

TEST(Key, IsOnePointer) { EXPECT_EQ(sizeof(Key), sizeof(const char *)); }

} // namespace

} // namespace kelmora::key_test
