#include "tests/support/from_test.h"
#include "tests/support/to_test.h"

#include "kelmora_json.h"
#include "records/ipv6.h"

namespace kelmora_test::ipv6_dhcp_relay_test {

namespace {

class Ipv6DhcpRelayTo : public ToTest<kelmora_ipv6_dhcp_relay> {
protected:
    Ipv6DhcpRelayTo() : ToTest(ipv6_dhcp_relay_to_translator) {}
};

TEST_F(Ipv6DhcpRelayTo, WritesTheInterfaceAndNoId)
{
    add("the id", {.interfaceID = "wan0"});
    EXPECT_EQ(object(), R"({"interfaceID": "wan0"})");
    EXPECT_EQ(list(), R"([{"interfaceID": "wan0"}])");
}

TEST_F(Ipv6DhcpRelayTo, CutsTheInterfaceToOneByteLessThanItsField)
{
    fill_whole(add("0").interfaceID, 'i');
    EXPECT_EQ(object(), R"({"interfaceID": "iiiiiiiiiiiiiiiiiii"})");
}

TEST_F(Ipv6DhcpRelayTo, LeavesOutATextWhoseCutSplitsACharacter)
{
    kelmora_ipv6_dhcp_relay &relay = add("0");
    fill_whole(relay.interfaceID, 'i');
    relay.interfaceID[18] = '\xC3'; // the first byte of a two-byte character: the last that is written
    relay.interfaceID[19] = '\xA4';
    EXPECT_EQ(object(), "{}");
    EXPECT_EQ(list(), "[{}]");
}

TEST_F(Ipv6DhcpRelayTo, WritesOtherScriptsAndSlashesAsTheyAre)
{
    set(add("0").interfaceID, "Büro/\"2\" 北");
    EXPECT_EQ(object(), "{\"interfaceID\": \"Büro/\\\"2\\\" 北\"}");
}

constexpr char document[] = R"({"interfaceID": "wan5", "id": "never read"})";

class Ipv6DhcpRelayFrom : public FromTest<kelmora_ipv6_dhcp_relay> {
protected:
    Ipv6DhcpRelayFrom() : FromTest(ipv6_dhcp_relay_from_translator, document) {}
};

TEST_F(Ipv6DhcpRelayFrom, StoresTheInterface)
{
    EXPECT_TRUE(accepts(document));
    EXPECT_STREQ(record().interfaceID, "wan5");
}

TEST_F(Ipv6DhcpRelayFrom, AsksForTheInterface)
{
    expect_required_in_order({{"interfaceID", "interfaceID", "field not found"}});
    poison();
    EXPECT_TRUE(rejects("{}", "interfaceID", "field not found"));
    EXPECT_TRUE(untouched(record()));
}

TEST_F(Ipv6DhcpRelayFrom, CutsTheInterfaceToItsField) { expect_string("interfaceID", record().interfaceID); }

} // namespace

} // namespace kelmora_test::ipv6_dhcp_relay_test
