#include "frame/key.h"

#include <gtest/gtest.h>

namespace kelmora {

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

TEST(Key, TakesAnotherFieldAndKeepsItsMessage)
{
    constexpr Key nested = key<"acs_url", "acs.acs_url">();
    EXPECT_STREQ(nested.name(), "acs_url");
    EXPECT_STREQ(nested.field(), "acs.acs_url");
    EXPECT_STREQ(nested.message(), "acs_url field not found");
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

} // namespace kelmora
