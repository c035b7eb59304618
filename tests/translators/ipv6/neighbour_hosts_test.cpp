#include "tests/support/from_test.h"
#include "tests/support/to_test.h"

#include "kelmora_json.h"
#include "records/ipv6.h"

namespace kelmora_test::neighbour_hosts_test {

namespace {

using testing::HasSubstr;

constexpr kelmora_neighbour_hosts sample{
    .ip_addr = "2001:db8:4c:1700::64",
    .mac_addr = "5c:e9:31:0a:77:d2",
    .interfaceID = "br0",
    .nud = 2,
};

constexpr char sample_text[] = R"([{"ip_addr": "2001:db8:4c:1700::64", "mac_addr": "5c:e9:31:0a:77:d2", )"
                               R"("interfaceID": "br0", "nud": 2}])";

class NeighbourHostsTo : public ToTest<kelmora_neighbour_hosts> {
protected:
    NeighbourHostsTo() : ToTest(neighbour_hosts_to_translator) {}
};

TEST_F(NeighbourHostsTo, WritesAnArrayWithTheKeysInOrderWhetherOrNotAListIsAskedFor)
{
    add("0", sample);
    EXPECT_EQ(list(), sample_text);
    EXPECT_EQ(object(), sample_text);
}

TEST_F(NeighbourHostsTo, WritesTheStateAsUnsigned)
{
    add("0", {.nud = 4294967295});
    EXPECT_EQ(object(), R"([{"ip_addr": "", "mac_addr": "", "interfaceID": "", "nud": 4294967295}])");
}

TEST_F(NeighbourHostsTo, CutsTextsToOneByteLessThanTheirField)
{
    kelmora_neighbour_hosts &neighbour = add("0", sample);
    fill_whole(neighbour.ip_addr, 'p');
    fill_whole(neighbour.mac_addr, 'm');
    fill_whole(neighbour.interfaceID, 'i');
    EXPECT_EQ(list(), R"([{"ip_addr": ")" + std::string(46, 'p') +
                          R"(", "mac_addr": "mmmmmmmmmmmmmmmmm", "interfaceID": "iiiiiiiiiiiiiiiiiii", "nud": 2}])");
}

TEST_F(NeighbourHostsTo, LeavesOutTextsThatAreNotUtf8OrWhoseCutSplitsACharacter)
{
    kelmora_neighbour_hosts &neighbour = add("0", sample);
    fill_whole(neighbour.ip_addr, 'p');
    neighbour.ip_addr[45] = '\xC3'; // the last byte that is written
    neighbour.ip_addr[46] = '\xA4';
    set(neighbour.interfaceID, "caf\xE9");
    EXPECT_EQ(list(), R"([{"mac_addr": "5c:e9:31:0a:77:d2", "nud": 2}])");
}

TEST_F(NeighbourHostsTo, WritesOtherScriptsAndSlashesAsTheyAre)
{
    set(add("0", sample).interfaceID, "ä/\"北");
    EXPECT_THAT(list(), HasSubstr("\"interfaceID\": \"ä/\\\"北\""));
}

TEST_F(NeighbourHostsTo, GrowsTheBufferForManyNeighbours)
{
    std::string expected = "[";
    for (std::uint32_t i = 0; i < 70; ++i) {
        add("", {.nud = i});
        expected += R"({"ip_addr": "", "mac_addr": "", "interfaceID": "", "nud": )" + std::to_string(i) +
                    (i < 69 ? "}, " : "}]");
    }
    EXPECT_EQ(object(), expected);
    EXPECT_EQ(reallocations_, 1U);
}

constexpr char document[] = R"({
    "ip_addr": "2001:db8:4c:1700::77", "mac_addr": "00:1b:a9:6d:e3:0f", "interfaceID": "br1", "nud": 128,
    "id": "never read"
})";

class NeighbourHostsFrom : public FromTest<kelmora_neighbour_hosts> {
protected:
    NeighbourHostsFrom() : FromTest(neighbour_hosts_from_translator, document) {}
};

TEST_F(NeighbourHostsFrom, StoresEveryKey)
{
    EXPECT_TRUE(accepts(document));
    EXPECT_STREQ(record().ip_addr, "2001:db8:4c:1700::77");
    EXPECT_STREQ(record().mac_addr, "00:1b:a9:6d:e3:0f");
    EXPECT_STREQ(record().interfaceID, "br1");
    EXPECT_EQ(record().nud, 128U);
}

TEST_F(NeighbourHostsFrom, AsksForTheRequiredKeysInOrder)
{
    expect_required_in_order({
        {"ip_addr", "ip_addr", "ip field not found"},
        {"mac_addr", "mac_addr", "mac field not found"},
        {"interfaceID", "interfaceID", "interfaceID field not found"},
        {"nud", "nud", "nud field not found"},
    });
}

TEST_F(NeighbourHostsFrom, DoesNotReadTheArrayThatItWrites)
{
    EXPECT_TRUE(rejects(sample_text, "ip_addr", "ip field not found"));
    EXPECT_TRUE(untouched(record()));
}

TEST_F(NeighbourHostsFrom, MissingAddressStoresNothing)
{
    EXPECT_TRUE(rejects(without(document, "ip_addr"), "ip_addr", "ip field not found"));
    EXPECT_TRUE(untouched(record()));
}

TEST_F(NeighbourHostsFrom, MissingMacStoresTheAddressAlone)
{
    EXPECT_TRUE(rejects(without(document, "mac_addr"), "mac_addr", "mac field not found"));
    EXPECT_STREQ(record().ip_addr, "2001:db8:4c:1700::77");
    EXPECT_TRUE(untouched(record().mac_addr));
    EXPECT_TRUE(untouched(record().interfaceID));
    EXPECT_TRUE(untouched(record().nud));
}

TEST_F(NeighbourHostsFrom, MissingInterfaceStoresTheAddressesAlone)
{
    EXPECT_TRUE(rejects(without(document, "interfaceID"), "interfaceID", "interfaceID field not found"));
    EXPECT_STREQ(record().ip_addr, "2001:db8:4c:1700::77");
    EXPECT_STREQ(record().mac_addr, "00:1b:a9:6d:e3:0f");
    EXPECT_TRUE(untouched(record().interfaceID));
    EXPECT_TRUE(untouched(record().nud));
}

TEST_F(NeighbourHostsFrom, MissingStateKeepsEverythingStoredBefore)
{
    EXPECT_TRUE(rejects(without(document, "nud"), "nud", "nud field not found"));
    EXPECT_STREQ(record().ip_addr, "2001:db8:4c:1700::77");
    EXPECT_STREQ(record().mac_addr, "00:1b:a9:6d:e3:0f");
    EXPECT_STREQ(record().interfaceID, "br1");
    EXPECT_TRUE(untouched(record().nud));
}

TEST_F(NeighbourHostsFrom, TakesNullForAKeyThatIsThere)
{
    EXPECT_TRUE(accepts(R"({"ip_addr": null, "mac_addr": null, "interfaceID": null, "nud": null})"));
    EXPECT_STREQ(record().ip_addr, "");
    EXPECT_STREQ(record().mac_addr, "");
    EXPECT_STREQ(record().interfaceID, "");
    EXPECT_EQ(record().nud, 0U);
}

TEST_F(NeighbourHostsFrom, CutsTheStateToItsWidth) { expect_integer("nud", record().nud); }

TEST_F(NeighbourHostsFrom, CutsTextsToTheirField)
{
    expect_string("ip_addr", record().ip_addr);
    expect_string("mac_addr", record().mac_addr);
    expect_string("interfaceID", record().interfaceID);
}

TEST_F(NeighbourHostsFrom, StoresTheFirst46And17And19Characters)
{
    const std::string digits = R"("01234567890123456789012345678901234567890123456789")";
    EXPECT_TRUE(accepts(with(with(with(document, "ip_addr", digits), "mac_addr", digits), "interfaceID", digits)));
    EXPECT_STREQ(record().ip_addr, "0123456789012345678901234567890123456789012345");
    EXPECT_STREQ(record().mac_addr, "01234567890123456");
    EXPECT_STREQ(record().interfaceID, "0123456789012345678");
}

} // namespace

} // namespace kelmora_test::neighbour_hosts_test
