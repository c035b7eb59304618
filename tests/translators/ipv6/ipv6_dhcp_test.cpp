#include "tests/support/from_test.h"
#include "tests/support/to_test.h"

#include "kelmora_json.h"
#include "records/ipv6.h"

namespace kelmora_test::ipv6_dhcp_test {

namespace {

class Ipv6DhcpTo : public ToTest<kelmora_ipv6_dhcp> {
protected:
    Ipv6DhcpTo() : ToTest(ipv6_dhcp_to_translator) {}
};

TEST_F(Ipv6DhcpTo, WritesTheKeysInOrderAndNoId)
{
    add("the id", {.enabled = 1, .mode = 2});
    EXPECT_EQ(object(), R"({"enabled": true, "mode": 2})");
    EXPECT_EQ(list(), R"([{"enabled": true, "mode": 2}])");
}

TEST_F(Ipv6DhcpTo, WritesAnySwitchButZeroAsTrue)
{
    for (const int on : {1, 2, 128, 255}) {
        nodes_.clear();
        add("0").enabled = static_cast<std::uint8_t>(on);
        EXPECT_EQ(object(), R"({"enabled": true, "mode": 0})");
    }
}

TEST_F(Ipv6DhcpTo, WritesTheModeAsUnsigned)
{
    add("0", {.mode = 4294967295});
    EXPECT_EQ(object(), R"({"enabled": false, "mode": 4294967295})");
}

constexpr char document[] = R"({"enabled": true, "mode": 3, "id": "never read"})";

class Ipv6DhcpFrom : public FromTest<kelmora_ipv6_dhcp> {
protected:
    Ipv6DhcpFrom() : FromTest(ipv6_dhcp_from_translator, document) {}
};

TEST_F(Ipv6DhcpFrom, StoresEveryKey)
{
    EXPECT_TRUE(accepts(document));
    EXPECT_EQ(record().enabled, 1);
    EXPECT_EQ(record().mode, 3U);
}

TEST_F(Ipv6DhcpFrom, AsksForTheRequiredKeysInOrder)
{
    expect_required_in_order({{"enabled", "enabled", "field not found"}, {"mode", "mode", "field not found"}});
}

TEST_F(Ipv6DhcpFrom, MissingSwitchStoresNothing)
{
    EXPECT_TRUE(rejects(without(document, "enabled"), "enabled", "field not found"));
    EXPECT_TRUE(untouched(record()));
}

TEST_F(Ipv6DhcpFrom, MissingModeKeepsTheSwitchStoredBefore)
{
    EXPECT_TRUE(rejects(without(document, "mode"), "mode", "field not found"));
    EXPECT_EQ(record().enabled, 1);
    EXPECT_TRUE(untouched(record().mode));
}

TEST_F(Ipv6DhcpFrom, TakesOnlyTrueForTrue) { expect_boolean("enabled", record().enabled); }

TEST_F(Ipv6DhcpFrom, CutsIntegersToTheirWidth) { expect_integer("mode", record().mode); }

} // namespace

} // namespace kelmora_test::ipv6_dhcp_test
