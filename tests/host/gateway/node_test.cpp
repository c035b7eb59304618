#include "host/gateway/node.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <string>
#include <utility>

namespace kelmora_host::node_test {

namespace {

struct Port {
    int number;
};

Node port(std::string_view id, int number) { return {id, Record(Port{number})}; }

/// The record as the plug-in gets at it.
Port &seen_by_plugin(kelmora_resource *node) { return *static_cast<Port *>(kelmora_resource_get_data(node)); }

TEST(Node, ShowsThePlugInItsIdAndItsRecord)
{
    Node node = port("lan1", 1);
    EXPECT_STREQ(node.resource()->id, "lan1");
    EXPECT_EQ(seen_by_plugin(node.resource()).number, 1);
    EXPECT_EQ(kelmora_resource_get_data(node.resource()), node.record().data());
    EXPECT_EQ(kelmora_resource_get_next(node.resource()), nullptr);
}

TEST(Node, CutsAnIdThatIsTooLong)
{
    const Node longest = port(std::string(128, 'x'), 1);
    EXPECT_EQ(longest.id(), std::string(128, 'x'));
    const Node longer = port(std::string(129, 'x'), 1);
    EXPECT_EQ(longer.id(), std::string(128, 'x'));
}

TEST(Node, CopiesItsRecordWithItself)
{
    Node original = port("lan1", 1);
    Node copy(original);
    seen_by_plugin(copy.resource()).number = 2;
    EXPECT_EQ(copy.id(), "lan1");
    EXPECT_EQ(seen_by_plugin(copy.resource()).number, 2);
    EXPECT_EQ(seen_by_plugin(original.resource()).number, 1);
}

TEST(Node, CopiesAreLinkedToNothing)
{
    Node second = port("lan2", 2);
    Node first = port("lan1", 1);
    first.link(&second);
    Node copy(first);
    EXPECT_EQ(kelmora_resource_get_next(copy.resource()), nullptr);
    EXPECT_EQ(kelmora_resource_get_next(first.resource()), second.resource());
}

TEST(Node, KeepsItsRecordWhenItMoves)
{
    Node from = port("lan1", 1);
    Node to(std::move(from));
    EXPECT_EQ(to.id(), "lan1");
    EXPECT_EQ(seen_by_plugin(to.resource()).number, 1);
}

TEST(Node, TakesIdAndRecordOfTheNodeThatIsAssigned)
{
    Node node = port("lan1", 1);
    Node other = port("lan2", 2);
    node = other;
    seen_by_plugin(other.resource()).number = 3;
    EXPECT_EQ(node.id(), "lan2");
    EXPECT_EQ(seen_by_plugin(node.resource()).number, 2);
    EXPECT_EQ(node.record().as<Port>().number, 2);
}

TEST(Node, CanBeUnlinkedAgain)
{
    Node second = port("lan2", 2);
    Node first = port("lan1", 1);
    first.link(&second);
    first.link(nullptr);
    EXPECT_EQ(kelmora_resource_get_next(first.resource()), nullptr);
}

TEST(Node, CountsHowOftenItsRecordIsFetched)
{
    Node node("id", Record(7));
    EXPECT_EQ(node.fetches(), 0U);
    kelmora_resource_get_data(node.resource());
    EXPECT_EQ(*static_cast<int *>(kelmora_resource_get_data(node.resource())), 7);
    EXPECT_EQ(node.fetches(), 2U);
    EXPECT_EQ(Node(node).fetches(), 0U);
}

TEST(EmptyNode, HasARecordOfZeros)
{
    Node node = empty_node("nobody");
    EXPECT_EQ(node.id(), "nobody");
    EXPECT_EQ(node.resource()->count, 0U);
    const auto *bytes = static_cast<const unsigned char *>(kelmora_resource_get_data(node.resource()));
    EXPECT_GE(node.record().size(), 4096U);
    EXPECT_TRUE(std::all_of(bytes, bytes + node.record().size(), [](unsigned char byte) { return byte == 0; }));
}

TEST(Node, RemembersTheFieldsThatAreMissing)
{
    Node node("id", Record(0));
    kelmora_set_missing(node.resource(), 4);
    kelmora_set_missing(node.resource(), 3);
    EXPECT_EQ(node.missing(), (std::vector<int>{4, 3}));
    EXPECT_TRUE(Node(node).missing().empty());
    node = Node("another", Record(1));
    EXPECT_TRUE(node.missing().empty());
}

TEST(LinkRequest, HangsTheNodesBehindEachOther)
{
    std::vector<Node> nodes{port("lan1", 1), port("lan2", 2), port("lan3", 3)};
    kelmora_resource *head = link_request(nodes, true);
    EXPECT_STREQ(head->id, "lan1");
    kelmora_resource *second = kelmora_resource_get_next(head);
    ASSERT_NE(second, nullptr);
    EXPECT_STREQ(second->id, "lan2");
    kelmora_resource *third = kelmora_resource_get_next(second);
    ASSERT_NE(third, nullptr);
    EXPECT_STREQ(third->id, "lan3");
    EXPECT_EQ(seen_by_plugin(third).number, 3);
    EXPECT_EQ(kelmora_resource_get_next(third), nullptr);
}

TEST(LinkRequest, CountsTheNodesInTheHead)
{
    std::vector<Node> nodes{port("lan1", 1), port("lan2", 2), port("lan3", 3)};
    EXPECT_EQ(link_request(nodes, false)->count, 3U);
    nodes.pop_back();
    EXPECT_EQ(link_request(nodes, false)->count, 2U);
}

TEST(LinkRequest, SaysInTheHeadWhetherAListIsWanted)
{
    std::vector<Node> nodes{port("lan1", 1)};
    EXPECT_NE(link_request(nodes, true)->is_list, 0);
    EXPECT_EQ(link_request(nodes, false)->is_list, 0);
}

TEST(LinkRequest, LetsGoOfNodesThatAreGone)
{
    std::vector<Node> nodes{port("lan1", 1), port("lan2", 2)};
    link_request(nodes, true);
    nodes.pop_back();
    EXPECT_EQ(kelmora_resource_get_next(link_request(nodes, true)), nullptr);
}

} // namespace

} // namespace kelmora_host::node_test
