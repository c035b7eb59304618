#include "host/gateway/gateway.h"

#include "host/gateway/resources.h"
#include "records/wireless.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <set>
#include <string>
#include <string_view>

namespace kelmora_host::gateway_test {

namespace {

struct Port {
    int number;
};

TEST(Gateway, HasNoNodesOfAResourceThatNobodyAdded)
{
    const Gateway gateway;
    EXPECT_TRUE(gateway.nodes("port").empty());
}

TEST(Gateway, KeepsNodesInTheOrderInWhichTheyWereAdded)
{
    Gateway gateway;
    gateway.add("port", "lan2", Port{2});
    gateway.add("port", "lan1", Port{1});
    gateway.add("plug", "front", Port{3});
    const std::vector<Node> &nodes = gateway.nodes("port");
    ASSERT_EQ(nodes.size(), 2U);
    EXPECT_EQ(nodes[0].id(), "lan2");
    EXPECT_EQ(nodes[0].record().as<Port>().number, 2);
    EXPECT_EQ(nodes[1].id(), "lan1");
    EXPECT_EQ(nodes[1].record().as<Port>().number, 1);
}

TEST(Gateway, KeepsTheHeadersOfItsNodesWhenTheyMove)
{
    Gateway gateway;
    for (int number = 0; number < 100; ++number)
        gateway.add("port", "lan", Port{number});
    for (const Node &node : gateway.nodes("port"))
        EXPECT_EQ(&Node::of(node.resource()), &node);
}

TEST(SampleGateway, HasTheNetworksOfAHousehold)
{
    const Gateway gateway = sample_gateway();
    const std::vector<Node> &networks = gateway.nodes("wireless");
    ASSERT_EQ(networks.size(), 3U);
    EXPECT_EQ(networks[0].id(), "wlan0");
    EXPECT_EQ(networks[1].id(), "wlan1");
    EXPECT_EQ(networks[2].id(), "wlan0.1");
    EXPECT_STREQ(networks[0].record().as<kelmora_wireless>().ssid, "Nordlicht");
    EXPECT_NE(networks[2].record().as<kelmora_wireless>().guest_network, 0);
}

TEST(SampleGateway, HasTheRadiosThatItsNetworksName)
{
    const Gateway gateway = sample_gateway();
    std::set<std::string> radios;
    for (const Node &radio : gateway.nodes("radio"))
        radios.emplace(radio.id());
    for (const Node &network : gateway.nodes("wireless"))
        EXPECT_THAT(radios, ::testing::Contains(network.record().as<kelmora_wireless>().radioID));
}

TEST(SampleGateway, HasIdsThatAreUniqueInTheirResource)
{
    const Gateway gateway = sample_gateway();
    for (const Resource &resource : resources()) {
        std::set<std::string_view> ids;
        for (const Node &node : gateway.nodes(resource.name))
            EXPECT_TRUE(ids.insert(node.id()).second) << resource.name << " " << node.id();
    }
}

TEST(SampleGateway, HasARecordOfEveryResource)
{
    const Gateway gateway = sample_gateway();
    for (const Resource &resource : resources())
        EXPECT_FALSE(gateway.nodes(resource.name).empty()) << resource.name;
}

TEST(SampleGateway, IsMadeAnewAtEveryCall)
{
    Gateway changed = sample_gateway();
    changed.add("radio", "radio9", kelmora_radio{});
    const Gateway fresh = sample_gateway();
    EXPECT_EQ(changed.nodes("radio").size(), 3U);
    EXPECT_EQ(fresh.nodes("radio").size(), 2U);
}

} // namespace

} // namespace kelmora_host::gateway_test
