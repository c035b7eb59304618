#include "host/contract/pointer.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace kelmora_host::pointer_test {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(EscapedToken, HasNoSlashAndNoTildeOfItsOwn)
{
    EXPECT_EQ(escaped_token("lan_id"), "lan_id");
    EXPECT_EQ(escaped_token("a/b~c"), "a~1b~0c");
    EXPECT_EQ(escaped_token(""), "");
}

TEST(TokensOf, AreUnescaped)
{
    EXPECT_THAT(tokens_of(""), IsEmpty());
    EXPECT_THAT(tokens_of("/lan_list/*/lan_id"), ElementsAre("lan_list", "*", "lan_id"));
    EXPECT_THAT(tokens_of("/a~1b/c~0d/~01"), ElementsAre("a/b", "c~d", "~1"));
    EXPECT_THAT(tokens_of("/"), ElementsAre(""));
}

TEST(ParentOf, IsWhatAKeyOrAnElementIsIn)
{
    EXPECT_EQ(parent_of("/lan_list/*/lan_id"), "/lan_list/*");
    EXPECT_EQ(parent_of("/lan_list"), "");
}

TEST(IsElement, IsSoOfTheElementAndNotOfItsMembers)
{
    EXPECT_TRUE(is_element("/lan_list/*"));
    EXPECT_FALSE(is_element("/lan_list/*/lan_id"));
    EXPECT_FALSE(is_element("/lan_list"));
}

TEST(IsWithin, IsSoOfWhatIsDeeperAlone)
{
    EXPECT_TRUE(is_within("/lan_list/*/lan_id", "/lan_list"));
    EXPECT_FALSE(is_within("/lan_list", "/lan_list"));
    EXPECT_FALSE(is_within("/lan_list_2/*", "/lan_list"));
    EXPECT_FALSE(is_within("/lan", "/lan_list"));
}

} // namespace

} // namespace kelmora_host::pointer_test
