#include "tests/support/allocations.h"
#include "tests/support/from_test.h"
#include "tests/support/to_test.h"

#include "kelmora_json.h"
#include "records/wan_lan.h"

#include <algorithm>

namespace kelmora_test::wan_lan_interface_test {

namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

using Address = kelmora_ip6_address;

/// A new record each time, as each node owns its chain.
kelmora_interface sample()
{
    return {
        .mac = "02:1a:11:f0:3c:10",
        .ip4 = "203.0.113.84",
        .netmask = "255.255.255.0",
        .ip6_list = kelmora_host::make_chain<Address>({{.address = "2001:db8::84"}, {.address = "fe80::1/64"}}),
        .ip6_count = 2,
        .mtu = 1492,
        .running = 1,
    };
}

constexpr char sample_text[] = "{\n"
                               "                \"id\": \"wan0\",\n"
                               "                \"ip4\": \"203.0.113.84\",\n"
                               "                \"ip6_count\": 2,\n"
                               "                \"ip6_list\": [\n"
                               "                                \"2001:db8::84\",\n"
                               "                                \"fe80::1\\/64\"\n"
                               "                ],\n"
                               "                \"mac\": \"02:1a:11:f0:3c:10\",\n"
                               "                \"mtu\": 1492,\n"
                               "                \"netmask\": \"255.255.255.0\",\n"
                               "                \"running\": true\n"
                               "}";

class InterfaceTo : public ToTest<kelmora_interface> {
protected:
    InterfaceTo() : ToTest(interface_to_translator) {}
};

TEST_F(InterfaceTo, WritesSortedKeysIndentedAndEscaped)
{
    add("wan0", sample());
    EXPECT_EQ(object(), sample_text);
}

TEST_F(InterfaceTo, WritesOneObjectANodeIntoAList)
{
    add("br0", {.ip4 = "192.168.1.1"});
    add("br1", {.mtu = 9000});
    EXPECT_EQ(list(), "[\n"
                      "                {\n"
                      "                                \"id\": \"br0\",\n"
                      "                                \"ip4\": \"192.168.1.1\",\n"
                      "                                \"ip6_count\": 0,\n"
                      "                                \"ip6_list\": [],\n"
                      "                                \"mac\": \"\",\n"
                      "                                \"mtu\": 0,\n"
                      "                                \"netmask\": \"\",\n"
                      "                                \"running\": false\n"
                      "                },\n"
                      "                {\n"
                      "                                \"id\": \"br1\",\n"
                      "                                \"ip4\": \"\",\n"
                      "                                \"ip6_count\": 0,\n"
                      "                                \"ip6_list\": [],\n"
                      "                                \"mac\": \"\",\n"
                      "                                \"mtu\": 9000,\n"
                      "                                \"netmask\": \"\",\n"
                      "                                \"running\": false\n"
                      "                }\n"
                      "]");
}

TEST_F(InterfaceTo, WritesAnEmptyListBesideACountThatIsNotZero)
{
    add("wan0", {.ip6_list = nullptr, .ip6_count = 3});
    EXPECT_THAT(object(), AllOf(HasSubstr("\"ip6_count\": 3,"), HasSubstr("\"ip6_list\": [],")));
}

TEST_F(InterfaceTo, WritesTheWholeChainWhateverItsCountSays)
{
    add("wan0", sample()).ip6_count = 0;
    EXPECT_THAT(object(), AllOf(HasSubstr("\"ip6_count\": 0,"), HasSubstr("2001:db8::84"), HasSubstr("fe80::1")));
}

TEST_F(InterfaceTo, WritesAddressesThatAreEmpty)
{
    add("wan0", {.ip6_list = kelmora_host::make_chain<Address>({{.address = ""}})});
    EXPECT_THAT(object(), HasSubstr("\"ip6_list\": [\n                                \"\"\n                ]"));
}

TEST_F(InterfaceTo, WritesTheMtuAsUnsignedAndTheCountAsSigned)
{
    add("", {.ip6_count = -1, .mtu = 4294967295});
    EXPECT_THAT(object(), AllOf(HasSubstr("\"mtu\": 4294967295,"), HasSubstr("\"ip6_count\": -1,")));
}

TEST_F(InterfaceTo, WritesAnySwitchButZeroAsTrue)
{
    for (const int on : {1, 2, 128, 255}) {
        nodes_.clear();
        add("").running = static_cast<std::uint8_t>(on);
        EXPECT_THAT(object(), HasSubstr("\"running\": true"));
    }
}

TEST_F(InterfaceTo, CutsTextsToOneByteLessThanTheirField)
{
    kelmora_interface &interface = add("", sample());
    fill_whole(interface.ip4, '4');
    fill_whole(interface.netmask, 'n');
    fill_whole(interface.mac, 'm');
    fill_whole(interface.ip6_list->next->address, '6');
    fill_whole(nodes_.front().resource()->id, 'i');
    EXPECT_THAT(object(), AllOf(HasSubstr("\"ip4\": \"" + std::string(16, '4') + "\""),
                                HasSubstr("\"netmask\": \"" + std::string(16, 'n') + "\""),
                                HasSubstr("\"mac\": \"" + std::string(17, 'm') + "\""),
                                HasSubstr("\"2001:db8::84\",\n                                \"" +
                                          std::string(45, '6') + "\"\n"),
                                HasSubstr("\"id\": \"" + std::string(128, 'i') + "\"")));
}

TEST_F(InterfaceTo, LeavesOutTextsThatAreNotUtf8)
{
    kelmora_interface &interface = add("wan0", sample());
    set(interface.mac, "\xE9");
    set(interface.ip6_list->address, "\xFF");
    EXPECT_THAT(
        object(),
        AllOf(Not(HasSubstr("\"mac\"")),
              HasSubstr("\"ip6_list\": [\n                                \"fe80::1\\/64\"\n                ]")));
}

TEST_F(InterfaceTo, WritesChainsThatOutgrowTheBuffer)
{
    kelmora_interface &interface = add("wan0");
    for (int i = 0; i < 200; ++i) {
        auto *longer = kelmora_host::make_chain<Address>({{.address = "2001:db8::1"}});
        longer->next = interface.ip6_list;
        interface.ip6_list = longer;
    }
    EXPECT_THAT(object(), EndsWith("\"running\": false\n}"));
    EXPECT_EQ(reallocations_, 1U);
}

constexpr char document[] = R"({
    "ip4": "192.168.7.1", "mac": "02:00:5e:10:00:07", "netmask": "255.255.0.0", "mtu": 1400,
    "ip6_list": ["2001:db8::7", "fe80::7", "fd00::7"],
    "ip6_count": 77, "running": true, "id": "never read"
})";

class InterfaceFrom : public FromTest<kelmora_interface> {
protected:
    InterfaceFrom() : FromTest(interface_from_translator, document) {}

    std::vector<std::string> addresses()
    {
        std::vector<std::string> addresses;
        for (const Address *node = record().ip6_list; node != nullptr; node = node->next)
            addresses.emplace_back(node->address);
        return addresses;
    }
};

TEST_F(InterfaceFrom, StoresEveryKey)
{
    EXPECT_TRUE(accepts(document));
    EXPECT_STREQ(record().ip4, "192.168.7.1");
    EXPECT_STREQ(record().mac, "02:00:5e:10:00:07");
    EXPECT_STREQ(record().netmask, "255.255.0.0");
    EXPECT_EQ(record().mtu, 1400U);
    EXPECT_THAT(addresses(), ElementsAre("2001:db8::7", "fe80::7", "fd00::7"));
}

TEST_F(InterfaceFrom, NeverStoresTheCountOrTheState)
{
    EXPECT_TRUE(accepts(document));
    EXPECT_TRUE(untouched(record().ip6_count));
    EXPECT_TRUE(untouched(record().running));
}

TEST_F(InterfaceFrom, AsksForTheRequiredKeysInOrder)
{
    expect_required_in_order({
        {"ip4", "ip4", "ip4 field not found"},
        {"mac", "mac", "mac field not found"},
        {"netmask", "netmask", "netmask field not found"},
        {"mtu", "mtu", "mtu field not found"},
    });
}

TEST_F(InterfaceFrom, MissingMtuKeepsTheTextsStoredBeforeAndBuildsNoNode)
{
    EXPECT_TRUE(rejects(without(document, "mtu"), "mtu", "mtu field not found"));
    EXPECT_STREQ(record().ip4, "192.168.7.1");
    EXPECT_STREQ(record().mac, "02:00:5e:10:00:07");
    EXPECT_STREQ(record().netmask, "255.255.0.0");
    EXPECT_TRUE(untouched(record().mtu));
    EXPECT_THAT(addresses(), IsEmpty());
}

TEST_F(InterfaceFrom, MissingMacStoresNothingBehindIt)
{
    EXPECT_TRUE(rejects(without(document, "mac"), "mac", "mac field not found"));
    EXPECT_STREQ(record().ip4, "192.168.7.1");
    EXPECT_TRUE(untouched(record().mac));
    EXPECT_TRUE(untouched(record().netmask));
    EXPECT_TRUE(untouched(record().mtu));
}

TEST_F(InterfaceFrom, SucceedsWithoutAddressesAndBuildsNoNode)
{
    EXPECT_TRUE(accepts(without(document, "ip6_list")));
    EXPECT_EQ(record().ip6_list, nullptr);
    EXPECT_EQ(record().mtu, 1400U);
}

TEST_F(InterfaceFrom, BuildsNoNodeFromAnythingButAnArray)
{
    for (const char *other : {"[]", "{}", R"({"0": "2001:db8::7"})", R"("2001:db8::7")", "null", "3", "true", "1.5"}) {
        EXPECT_TRUE(accepts(with(document, "ip6_list", other)));
        EXPECT_EQ(record().ip6_list, nullptr) << other;
    }
}

TEST_F(InterfaceFrom, SkipsEmptyAddressesAndLeavesTheCount)
{
    record().ip6_count = 9;
    EXPECT_TRUE(accepts(with(document, "ip6_list", R"(["", "2001:db8::7", ""])")));
    EXPECT_THAT(addresses(), ElementsAre("2001:db8::7"));
    EXPECT_EQ(record().ip6_count, 9);
}

TEST_F(InterfaceFrom, SkipsAddressesThatAreNoText)
{
    EXPECT_TRUE(accepts(with(document, "ip6_list", R"([1, null, "::1", true, 1.5, {}, ["::2"], "::3"])")));
    EXPECT_THAT(addresses(), ElementsAre("::1", "::3"));
}

TEST_F(InterfaceFrom, BuildsAsManyNodesAsThereAreAddresses)
{
    std::string json = R"("::0")";
    for (std::size_t count = 1; count <= 20; ++count) {
        poison();
        EXPECT_TRUE(accepts(with(document, "ip6_list", "[" + json + "]")));
        EXPECT_EQ(addresses().size(), count);
        EXPECT_EQ(addresses().back(), "::" + std::to_string(count - 1));
        json += ", \"::" + std::to_string(count) + "\"";
    }
}

TEST_F(InterfaceFrom, HangsNewAddressesBehindTheFirstThatIsThere)
{
    record().ip6_list = kelmora_host::make_chain<Address>({{.address = "first"}, {.address = "second"}});
    const Address *first = record().ip6_list;
    EXPECT_TRUE(accepts(document)); // what was let go of is freed by the caller
    EXPECT_EQ(record().ip6_list, first);
    EXPECT_THAT(addresses(), ElementsAre("first", "2001:db8::7", "fe80::7", "fd00::7"));
}

TEST_F(InterfaceFrom, LeavesTheChainAloneWhenThereIsNothingToAdd)
{
    record().ip6_list = kelmora_host::make_chain<Address>({{.address = "first"}, {.address = "second"}});
    EXPECT_TRUE(accepts(with(document, "ip6_list", R"(["", 1])")));
    EXPECT_THAT(addresses(), ElementsAre("first", "second"));
    EXPECT_TRUE(accepts(without(document, "ip6_list")));
    EXPECT_THAT(addresses(), ElementsAre("first", "second"));
}

TEST_F(InterfaceFrom, CutsAddressesToTheirField)
{
    for (const std::size_t length : {44U, 45U, 46U, 47U, 5000U}) {
        poison();
        const std::string text = quoted(length);
        EXPECT_TRUE(accepts(with(document, "ip6_list", "[" + text + "]")));
        ASSERT_EQ(addresses().size(), 1U);
        EXPECT_EQ(addresses().front(), text.substr(1, std::min<std::size_t>(length, 45)));
    }
}

TEST_F(InterfaceFrom, FillsTheRestOfAnAddressWithNuls)
{
    EXPECT_TRUE(accepts(with(document, "ip6_list", R"(["::1"])")));
    ASSERT_NE(record().ip6_list, nullptr);
    EXPECT_EQ(std::string(record().ip6_list->address, 46), std::string("::1") + std::string(43, '\0'));
}

TEST_F(InterfaceFrom, CutsIntegersToTheirWidth) { expect_integer("mtu", record().mtu); }

TEST_F(InterfaceFrom, CutsTextsToTheirField)
{
    expect_string("ip4", record().ip4);
    expect_string("mac", record().mac);
    expect_string("netmask", record().netmask);
}

TEST_F(InterfaceFrom, ReportsTheListThatNoMemoryIsLeftFor)
{
    allocations::pass();
    kelmora_errorlist errors;
    EXPECT_EQ(interface_from_translator(node_.resource(), document, &errors), 1);
    const std::size_t last = allocations::asked_for(); // the third address
    poison();
    allocations::fail(last, Failing::once);
    EXPECT_TRUE(rejects(document, "ip6_list", "out of memory"));
    EXPECT_THAT(addresses(), ElementsAre("2001:db8::7", "fe80::7"));
    EXPECT_EQ(record().mtu, 1400U);
}

} // namespace

} // namespace kelmora_test::wan_lan_interface_test
