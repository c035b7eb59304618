#include "tests/support/from_test.h"
#include "tests/support/to_test.h"

#include "host/plugin/translate.h"

#include "kelmora_json.h"
#include "records/ipv6.h"

namespace kelmora_test::ipv6_static_route_test {

namespace {

using testing::HasSubstr;

constexpr kelmora_ipv6_static_route sample{
    .enable = 1,
    .destination = "2001:db8:4c:1800::/64",
    .next_hop = "fe80::9209:d0ff:fe1f:82b6",
    .metric = 256,
    .interface = "br0",
};

constexpr char sample_text[] = R"({"id": "0", "enable": true, "destination": "2001:db8:4c:1800::/64", )"
                               R"("next_hop": "fe80::9209:d0ff:fe1f:82b6", "metric": 256, "interface": "br0"})";

constexpr char empty_text[] =
    R"({"id": "1", "enable": false, "destination": "", "next_hop": "", "metric": 0, "interface": ""})";

class Ipv6StaticRouteTo : public ToTest<kelmora_ipv6_static_route> {
protected:
    Ipv6StaticRouteTo() : ToTest(ipv6_static_route_to_translator) {}
};

TEST_F(Ipv6StaticRouteTo, WritesTheKeysInOrder)
{
    add("0", sample);
    EXPECT_EQ(object(), sample_text);
    EXPECT_EQ(list(), "[" + std::string(sample_text) + "]");
}

TEST_F(Ipv6StaticRouteTo, WritesTheMetricAsUnsigned)
{
    add("0", {.metric = 4294967295});
    EXPECT_THAT(object(), HasSubstr(R"("metric": 4294967295,)"));
}

TEST_F(Ipv6StaticRouteTo, WritesAnySwitchButZeroAsTrue)
{
    expect_switches({{"enable", &kelmora_ipv6_static_route::enable}});
    add("1");
    EXPECT_EQ(object(), empty_text);
}

TEST_F(Ipv6StaticRouteTo, CutsTextsToOneByteLessThanTheirField)
{
    kelmora_ipv6_static_route &route = add("0", sample);
    fill_whole(route.destination, 'd');
    fill_whole(route.next_hop, 'h');
    fill_whole(route.interface, 'f');
    fill_whole(nodes_.front().resource()->id, 'n');
    EXPECT_EQ(object(), R"({"id": ")" + std::string(128, 'n') + R"(", "enable": true, "destination": ")" +
                            std::string(45, 'd') + R"(", "next_hop": ")" + std::string(45, 'h') +
                            R"(", "metric": 256, "interface": "fffffffffffffffffff"})");
}

TEST_F(Ipv6StaticRouteTo, LeavesOutTextsThatAreNotUtf8OrWhoseCutSplitsACharacter)
{
    kelmora_ipv6_static_route &route = add("0", sample);
    fill_whole(route.destination, 'd');
    route.destination[44] = '\xC3'; // the last byte that is written
    route.destination[45] = '\xA4';
    set(route.interface, "caf\xE9");
    EXPECT_EQ(object(), R"({"id": "0", "enable": true, "next_hop": "fe80::9209:d0ff:fe1f:82b6", "metric": 256})");
}

TEST_F(Ipv6StaticRouteTo, WritesOtherScriptsAndSlashesAsTheyAre)
{
    set(add("0", sample).interface, "ä/\"北");
    EXPECT_THAT(object(), HasSubstr("\"interface\": \"ä/\\\"北\""));
}

TEST_F(Ipv6StaticRouteTo, GrowsTheBufferForManyRoutes)
{
    std::string expected = "[";
    for (int i = 0; i < 64; ++i) {
        add("0", sample);
        expected += std::string(sample_text) + (i < 63 ? ", " : "]");
    }
    EXPECT_EQ(list(), expected);
    EXPECT_EQ(reallocations_, 1U);
}

constexpr char document[] = R"({
    "id": "never read", "enable": true, "metric": 512, "destination": "2001:db8:4c:1900::/56",
    "next_hop": "2001:db8:4c:1700::fe", "interface": "br1"
})";

class Ipv6StaticRouteFrom : public FromTest<kelmora_ipv6_static_route> {
protected:
    Ipv6StaticRouteFrom() : FromTest(ipv6_static_route_from_translator, document) {}
};

TEST_F(Ipv6StaticRouteFrom, StoresEveryKey)
{
    EXPECT_TRUE(accepts(document));
    EXPECT_EQ(record().enable, 1);
    EXPECT_EQ(record().metric, 512U);
    EXPECT_STREQ(record().destination, "2001:db8:4c:1900::/56");
    EXPECT_STREQ(record().next_hop, "2001:db8:4c:1700::fe");
    EXPECT_STREQ(record().interface, "br1");
}

TEST_F(Ipv6StaticRouteFrom, AsksForTheRequiredKeysInOrder)
{
    expect_required_in_order({
        {"enable", "enable", "field not found"},
        {"metric", "metric", "field not found"},
        {"destination", "destination", "field not found"},
        {"next_hop", "next_hop", "field not found"},
        {"interface", "interface", "field not found"},
    });
}

TEST_F(Ipv6StaticRouteFrom, MissingEnableStoresNothing)
{
    EXPECT_TRUE(rejects(without(document, "enable"), "enable", "field not found"));
    EXPECT_TRUE(untouched(record()));
}

TEST_F(Ipv6StaticRouteFrom, MissingMetricStoresTheSwitchAlone)
{
    EXPECT_TRUE(rejects(without(document, "metric"), "metric", "field not found"));
    EXPECT_EQ(record().enable, 1);
    EXPECT_TRUE(untouched(record().destination));
    EXPECT_TRUE(untouched(record().next_hop));
    EXPECT_TRUE(untouched(record().metric));
    EXPECT_TRUE(untouched(record().interface));
}

TEST_F(Ipv6StaticRouteFrom, MissingDestinationKeepsTheMetricStoredBefore)
{
    EXPECT_TRUE(rejects(without(document, "destination"), "destination", "field not found"));
    EXPECT_EQ(record().enable, 1);
    EXPECT_EQ(record().metric, 512U);
    EXPECT_TRUE(untouched(record().destination));
    EXPECT_TRUE(untouched(record().next_hop));
    EXPECT_TRUE(untouched(record().interface));
}

TEST_F(Ipv6StaticRouteFrom, MissingNextHopKeepsWhatWasStoredBefore)
{
    EXPECT_TRUE(rejects(without(document, "next_hop"), "next_hop", "field not found"));
    EXPECT_EQ(record().metric, 512U);
    EXPECT_STREQ(record().destination, "2001:db8:4c:1900::/56");
    EXPECT_TRUE(untouched(record().next_hop));
    EXPECT_TRUE(untouched(record().interface));
}

TEST_F(Ipv6StaticRouteFrom, MissingInterfaceKeepsEverythingStoredBefore)
{
    EXPECT_TRUE(rejects(without(document, "interface"), "interface", "field not found"));
    EXPECT_EQ(record().enable, 1);
    EXPECT_EQ(record().metric, 512U);
    EXPECT_STREQ(record().destination, "2001:db8:4c:1900::/56");
    EXPECT_STREQ(record().next_hop, "2001:db8:4c:1700::fe");
    EXPECT_TRUE(untouched(record().interface));
}

TEST_F(Ipv6StaticRouteFrom, TakesNullForAKeyThatIsThere)
{
    EXPECT_TRUE(
        accepts(R"({"enable": null, "metric": null, "destination": null, "next_hop": null, "interface": null})"));
    EXPECT_EQ(record().enable, 0);
    EXPECT_EQ(record().metric, 0U);
    EXPECT_STREQ(record().destination, "");
    EXPECT_STREQ(record().next_hop, "");
    EXPECT_STREQ(record().interface, "");
}

TEST_F(Ipv6StaticRouteFrom, TakesOnlyTrueForTrue) { expect_boolean("enable", record().enable); }

TEST_F(Ipv6StaticRouteFrom, CutsTheMetricToItsWidth) { expect_integer("metric", record().metric); }

TEST_F(Ipv6StaticRouteFrom, CutsTextsToTheirField)
{
    expect_string("destination", record().destination);
    expect_string("next_hop", record().next_hop);
    expect_string("interface", record().interface);
}

TEST_F(Ipv6StaticRouteFrom, StoresTheFirst45And19Characters)
{
    const std::string digits = R"("01234567890123456789012345678901234567890123456789")";
    EXPECT_TRUE(accepts(with(with(with(document, "destination", digits), "next_hop", digits), "interface", digits)));
    EXPECT_STREQ(record().destination, "012345678901234567890123456789012345678901234");
    EXPECT_STREQ(record().next_hop, "012345678901234567890123456789012345678901234");
    EXPECT_STREQ(record().interface, "0123456789012345678");
}

TEST(Ipv6StaticRoute, WritesBackTheRouteThatWasStored)
{
    kelmora_host::Node node("7", kelmora_host::Record(kelmora_ipv6_static_route{}));
    EXPECT_EQ(kelmora_host::from_json(ipv6_static_route_from_translator, node, document).result, 1);
    std::vector<kelmora_host::Node> nodes{node};
    EXPECT_EQ(kelmora_host::to_json(ipv6_static_route_to_translator, nodes, false).text,
              R"({"id": "7", "enable": true, "destination": "2001:db8:4c:1900::/56", )"
              R"("next_hop": "2001:db8:4c:1700::fe", "metric": 512, "interface": "br1"})");
}

} // namespace

} // namespace kelmora_test::ipv6_static_route_test
