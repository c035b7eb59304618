#include "tests/support/from_test.h"
#include "tests/support/to_test.h"

#include "kelmora_json.h"
#include "records/routing.h"

namespace kelmora_test::static_routing_test {

namespace {

using testing::HasSubstr;

constexpr kelmora_static_routing sample{
    .state = 1,
    .route = {.destination = "192.168.40.0",
              .net_mask = "255.255.255.0",
              .next_hop = "192.168.1.2",
              .metric = 10,
              .interfaceID = "br0"},
};

constexpr char sample_text[] =
    R"({"id": "0", "state": true, "route": {"destination": "192.168.40.0", "net_mask": "255.255.255.0", )"
    R"("next_hop": "192.168.1.2", "metric": 10, "interfaceID": "br0"}})";

class StaticRoutingTo : public ToTest<kelmora_static_routing> {
protected:
    StaticRoutingTo() : ToTest(static_routing_to_translator) {}
};

TEST_F(StaticRoutingTo, WritesTheKeysInOrder)
{
    add("0", sample);
    EXPECT_EQ(object(), sample_text);
    EXPECT_EQ(list(), "[" + std::string(sample_text) + "]");
}

TEST_F(StaticRoutingTo, WritesTheMetricAsUnsigned)
{
    for (const std::uint16_t metric : {std::uint16_t{32768}, std::uint16_t{65535}}) {
        nodes_.clear();
        add("0").route.metric = metric;
        EXPECT_THAT(object(), HasSubstr("\"metric\": " + std::to_string(metric) + ","));
    }
}

TEST_F(StaticRoutingTo, WritesAnyStateButZeroAsTrue)
{
    for (const int state : {2, 128, 255}) {
        nodes_.clear();
        add("0", sample).state = static_cast<std::uint8_t>(state);
        EXPECT_EQ(object(), sample_text);
    }
}

TEST_F(StaticRoutingTo, CutsTextsToOneByteLessThanTheirField)
{
    kelmora_static_routing &routing = add("", sample);
    fill_whole(routing.route.destination, 'd');
    fill_whole(routing.route.net_mask, 'm');
    fill_whole(routing.route.next_hop, 'h');
    fill_whole(routing.route.interfaceID, 'i');
    fill_whole(nodes_.front().resource()->id, 'n');
    EXPECT_EQ(object(), R"({"id": ")" + std::string(128, 'n') +
                            R"(", "state": true, "route": {"destination": "dddddddddddddddd", )"
                            R"("net_mask": "mmmmmmmmmmmmmmmm", "next_hop": "hhhhhhhhhhhhhhhh", "metric": 10, )"
                            R"("interfaceID": "iiiiiiiiiiiiiiiiiii"}})");
}

TEST_F(StaticRoutingTo, LeavesOutATextWhoseCutSplitsACharacter)
{
    kelmora_static_routing &routing = add("0", sample);
    fill_whole(routing.route.destination, 'd');
    routing.route.destination[15] = '\xC3'; // the first byte of a two-byte character: the last that is written
    routing.route.destination[16] = '\xA4';
    fill_whole(routing.route.interfaceID, 'i');
    routing.route.interfaceID[18] = '\xC3';
    routing.route.interfaceID[19] = '\xA4';
    EXPECT_EQ(object(), R"({"id": "0", "state": true, "route": {"net_mask": "255.255.255.0", )"
                        R"("next_hop": "192.168.1.2", "metric": 10}})");
}

TEST_F(StaticRoutingTo, LeavesOutTextsThatAreNotUtf8)
{
    kelmora_static_routing &routing = add("caf\xE9", sample);
    set(routing.route.destination, "\xFF");
    set(routing.route.net_mask, "\xC0\x80");
    set(routing.route.next_hop, "\xED\xA0\x80");
    set(routing.route.interfaceID, "br\xE4");
    EXPECT_EQ(object(), R"({"state": true, "route": {"metric": 10}})");
}

TEST_F(StaticRoutingTo, WritesOtherScriptsAndSlashesAsTheyAre)
{
    set(add("0", sample).route.interfaceID, "Büro/\"2\"");
    EXPECT_THAT(object(), HasSubstr("\"interfaceID\": \"Büro/\\\"2\\\"\""));
}

TEST_F(StaticRoutingTo, WritesManyRoutesIntoALargerBuffer)
{
    std::string expected;
    for (int i = 0; i < 40; ++i) {
        add("0", sample);
        expected += (i == 0 ? "[" : ", ") + std::string(sample_text);
    }
    EXPECT_EQ(list(), expected + "]");
    EXPECT_EQ(reallocations_, 1U);
}

constexpr char document[] = R"({
    "id": "never read", "state": true, "route": {
        "destination": "10.40.0.0", "net_mask": "255.255.0.0", "next_hop": "192.168.1.3", "metric": 5,
        "interfaceID": "br1", "state": false
    },
    "destination": "never read", "net_mask": "never read", "next_hop": "never read", "metric": 77,
    "interfaceID": "never read"
})";

class StaticRoutingFrom : public FromTest<kelmora_static_routing> {
protected:
    StaticRoutingFrom() : FromTest(static_routing_from_translator, document) {}

    [[nodiscard]] const kelmora_route &route() { return record().route; }
};

TEST_F(StaticRoutingFrom, StoresEveryKey)
{
    EXPECT_TRUE(accepts(document));
    EXPECT_EQ(record().state, 1);
    EXPECT_STREQ(route().destination, "10.40.0.0");
    EXPECT_STREQ(route().net_mask, "255.255.0.0");
    EXPECT_STREQ(route().next_hop, "192.168.1.3");
    EXPECT_EQ(route().metric, 5);
    EXPECT_STREQ(route().interfaceID, "br1");
}

TEST_F(StaticRoutingFrom, AsksForTheRequiredKeysInOrder)
{
    expect_required_in_order({
        {"state", "state", "state field not found"},
        {"route.destination", "route.destination", "destination field not found"},
        {"route.net_mask", "route.net_mask", "net_mask field not found"},
        {"route.next_hop", "route.next_hop", "next_hop field not found"},
        {"route.metric", "route.metric", "metric field not found"},
        {"route.interfaceID", "route.interfaceID", "interfaceID field not found"},
    });
}

TEST_F(StaticRoutingFrom, MissingStateStoresNothing)
{
    EXPECT_TRUE(rejects(without(document, "state"), "state", "state field not found"));
    EXPECT_TRUE(untouched(record()));
}

TEST_F(StaticRoutingFrom, MissingRouteIsReportedInThePlural)
{
    EXPECT_TRUE(rejects(without(document, "route"), "route", "route fields not found"));
    EXPECT_EQ(record().state, 1);
    EXPECT_TRUE(untouched(record().route));
}

TEST_F(StaticRoutingFrom, TakesARouteThatIsNoObjectForAnEmptyOne)
{
    for (const char *other : {"{}", "null", "true", "1", "1.5", "\"10.40.0.0\"", "[]",
                              R"([{"destination": "10.40.0.0", "net_mask": "255.255.0.0"}])"}) {
        poison();
        EXPECT_TRUE(rejects(with(document, "route", other), "route.destination", "destination field not found"))
            << other;
        EXPECT_EQ(record().state, 1);
        EXPECT_TRUE(untouched(record().route));
    }
}

TEST_F(StaticRoutingFrom, MissingDestinationStoresNothingOfTheRoute)
{
    EXPECT_TRUE(rejects(without(document, "route.destination"), "route.destination", "destination field not found"));
    EXPECT_EQ(record().state, 1);
    EXPECT_TRUE(untouched(record().route));
}

TEST_F(StaticRoutingFrom, MissingNextHopKeepsDestinationAndMask)
{
    EXPECT_TRUE(rejects(without(document, "route.next_hop"), "route.next_hop", "next_hop field not found"));
    EXPECT_STREQ(route().destination, "10.40.0.0");
    EXPECT_STREQ(route().net_mask, "255.255.0.0");
    EXPECT_TRUE(untouched(route().next_hop));
    EXPECT_TRUE(untouched(route().metric));
    EXPECT_TRUE(untouched(route().interfaceID));
}

TEST_F(StaticRoutingFrom, MissingMetricKeepsTheAddressesStoredBefore)
{
    EXPECT_TRUE(rejects(without(document, "route.metric"), "route.metric", "metric field not found"));
    EXPECT_EQ(record().state, 1);
    EXPECT_STREQ(route().destination, "10.40.0.0");
    EXPECT_STREQ(route().net_mask, "255.255.0.0");
    EXPECT_STREQ(route().next_hop, "192.168.1.3");
    EXPECT_TRUE(untouched(route().metric));
    EXPECT_TRUE(untouched(route().interfaceID));
}

TEST_F(StaticRoutingFrom, MissingInterfaceKeepsEverythingElse)
{
    EXPECT_TRUE(rejects(without(document, "route.interfaceID"), "route.interfaceID", "interfaceID field not found"));
    EXPECT_STREQ(route().next_hop, "192.168.1.3");
    EXPECT_EQ(route().metric, 5);
    EXPECT_TRUE(untouched(route().interfaceID));
}

TEST_F(StaticRoutingFrom, StoresTheLowSixteenBitsOfTheMetric)
{
    EXPECT_TRUE(accepts(with(document, "route.metric", "70000")));
    EXPECT_EQ(route().metric, 4464);
    expect_integer("route.metric", route().metric);
}

TEST_F(StaticRoutingFrom, CutsADestinationOfTwentyCharactersToSixteen)
{
    EXPECT_TRUE(accepts(with(document, "route.destination", R"("192.168.100.200/24-x")")));
    EXPECT_STREQ(route().destination, "192.168.100.200/");
    EXPECT_STREQ(route().net_mask, "255.255.0.0");
}

TEST_F(StaticRoutingFrom, TakesOnlyTrueForTrue) { expect_boolean("state", record().state); }

TEST_F(StaticRoutingFrom, CutsTextsToTheirField)
{
    expect_string("route.destination", route().destination);
    expect_string("route.net_mask", route().net_mask);
    expect_string("route.next_hop", route().next_hop);
    expect_string("route.interfaceID", route().interfaceID);
}

} // namespace

} // namespace kelmora_test::static_routing_test
