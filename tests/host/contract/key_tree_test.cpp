#include "host/contract/key_tree.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace kelmora_host::key_tree_test {

namespace {

struct TestKey {
    std::string path;
};

TEST(KeyTree, HasMembersInTheirObjectAndTheElementInItsList)
{
    const std::vector<TestKey> keys{{"/b"}, {"/list"}, {"/list/*"}, {"/list/*/x"}, {"/a"}, {"/b/c"}};
    const KeyTree<TestKey> root = key_tree(keys);
    ASSERT_EQ(root.children.size(), 3U);
    EXPECT_EQ(root.children[0].name, "b");
    EXPECT_EQ(root.children[1].name, "list");
    EXPECT_EQ(root.children[2].name, "a");
    EXPECT_TRUE(root.has_members());
    EXPECT_EQ(root.find("b")->find("c")->key, &keys[5]);
    EXPECT_EQ(root.find("list")->element()->find("x")->path, "/list/*/x");
    EXPECT_FALSE(root.find("list")->has_members());
    EXPECT_EQ(root.find("nowhere"), nullptr);
}

TEST(KeyTree, TakesAnObjectWhoseMembersAloneAreKnown)
{
    const std::vector<TestKey> keys{{"/dmz/enabled"}};
    const KeyTree<TestKey> root = key_tree(keys);
    EXPECT_EQ(root.find("dmz")->key, nullptr);
    EXPECT_EQ(root.find("dmz")->path, "/dmz");
    EXPECT_EQ(root.find("dmz")->find("enabled")->key, &keys[0]);
}

} // namespace

} // namespace kelmora_host::key_tree_test
