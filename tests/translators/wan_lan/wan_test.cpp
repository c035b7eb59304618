#include "tests/support/from_test.h"
#include "tests/support/to_test.h"

#include "host/plugin/translate.h"

#include "kelmora_json.h"
#include "records/wan_lan.h"

namespace kelmora_test::wan_test {

namespace {

using testing::AllOf;
using testing::HasSubstr;

constexpr kelmora_wan sample{
    .interfaceID = "wan0",
    .mode = 2,
    .address_mode_v6 = 1,
    .gateway = "203.0.113.1",
    .gateway_v6 = "fe80::1",
    .dns_v4_automatic = 1,
    .dns_v4_dns1 = "203.0.113.53",
    .dns_v4_dns2 = "203.0.113.54",
    .dns_v4_dns3 = "203.0.113.55",
    .dns_v6_automatic = 0,
    .dns_v6_dns1 = "2001:db8::1",
    .dns_v6_dns2 = "2001:db8::2",
    .dns_v6_dns3 = "2001:db8::3",
    .clonedMac = "02:1a:11:f0:3c:77",
    .napt_enable = 1,
    .vlan_enable = 1,
    .prefix_enable = 0,
    .omci_configured = 1,
    .vlanID = 7,
    .multicast_vlanID = 8,
    .protocol = 3,
};

constexpr char sample_text[] =
    R"({"id": "wan0", "interfaceID": "wan0", "mode": 2, "address_mode_v6": 1, "gateway": "203.0.113.1", )"
    R"("gateway_v6": "fe80::1", )"
    R"("dns_v4": {"automatic": true, "dns1": "203.0.113.53", "dns2": "203.0.113.54", "dns3": "203.0.113.55"}, )"
    R"("dns_v6": {"automatic": false, "dns1": "2001:db8::1", "dns2": "2001:db8::2", "dns3": "2001:db8::3"}, )"
    R"("clonedMac": "02:1a:11:f0:3c:77", "napt_enable": true, "vlan_enable": true, "prefix_enable": false, )"
    R"("vlanID": 7, "multicast_vlanID": 8, "omci_configured": true, "protocol": 3})";

class WanTo : public ToTest<kelmora_wan> {
protected:
    WanTo() : ToTest(wan_to_translator) {}
};

TEST_F(WanTo, WritesTheKeysInOrder)
{
    add("wan0", sample);
    EXPECT_EQ(object(), sample_text);
    EXPECT_EQ(list(), "[" + std::string(sample_text) + "]");
}

TEST_F(WanTo, WritesAnEmptyTextForTheVlanOfAnUntaggedConnection)
{
    kelmora_wan &wan = add("wan0", sample);
    wan.vlan_enable = 0;
    EXPECT_THAT(object(),
                HasSubstr(R"("vlan_enable": false, "prefix_enable": false, "vlanID": "", "multicast_vlanID")"));
    wan.vlan_enable = 255;
    EXPECT_THAT(object(), HasSubstr(R"("vlan_enable": true, "prefix_enable": false, "vlanID": 7, "multicast_vlanID")"));
}

TEST_F(WanTo, WritesTheVlanZeroOfATaggedConnectionAsANumber)
{
    add("wan0", sample).vlanID = 0;
    EXPECT_THAT(object(), HasSubstr(R"("vlanID": 0,)"));
}

TEST_F(WanTo, WritesEmptyRecords)
{
    add("");
    EXPECT_EQ(object(), R"({"id": "", "interfaceID": "", "mode": 0, "address_mode_v6": 0, "gateway": "", )"
                        R"("gateway_v6": "", "dns_v4": {"automatic": false, "dns1": "", "dns2": "", "dns3": ""}, )"
                        R"("dns_v6": {"automatic": false, "dns1": "", "dns2": "", "dns3": ""}, "clonedMac": "", )"
                        R"("napt_enable": false, "vlan_enable": false, "prefix_enable": false, "vlanID": "", )"
                        R"("multicast_vlanID": 0, "omci_configured": false, "protocol": 0})");
}

TEST_F(WanTo, WritesIntegersAsUnsigned)
{
    constexpr std::uint32_t most = 4294967295;
    add("", {.mode = most,
             .address_mode_v6 = most,
             .vlan_enable = 1,
             .vlanID = 65535,
             .multicast_vlanID = 65534,
             .protocol = most});
    EXPECT_THAT(object(), AllOf(HasSubstr(R"("mode": 4294967295, "address_mode_v6": 4294967295,)"),
                                HasSubstr(R"("vlanID": 65535, "multicast_vlanID": 65534,)"),
                                HasSubstr(R"("protocol": 4294967295})")));
}

TEST_F(WanTo, WritesAnySwitchButZeroAsTrue)
{
    add("", {.dns_v4_automatic = 2,
             .dns_v6_automatic = 4,
             .napt_enable = 8,
             .vlan_enable = 16,
             .prefix_enable = 128,
             .omci_configured = 255});
    EXPECT_THAT(object(),
                AllOf(HasSubstr(R"("dns_v4": {"automatic": true,)"), HasSubstr(R"("dns_v6": {"automatic": true,)"),
                      HasSubstr(R"("napt_enable": true, "vlan_enable": true, "prefix_enable": true,)"),
                      HasSubstr(R"("omci_configured": true)")));
}

TEST_F(WanTo, WritesEachSwitchFromItsOwnField)
{
    for (int on = 0; on < 6; ++on) {
        nodes_.clear();
        kelmora_wan &wan = add("");
        std::uint8_t *const fields[] = {&wan.dns_v4_automatic, &wan.dns_v6_automatic, &wan.napt_enable,
                                        &wan.vlan_enable,      &wan.prefix_enable,    &wan.omci_configured};
        *fields[on] = 1;
        const std::string names[] = {
            "\"dns_v4\": {\"automatic\"", "\"dns_v6\": {\"automatic\"", "\"napt_enable\"", "\"vlan_enable\"",
            "\"prefix_enable\"",          "\"omci_configured\""};
        for (int i = 0; i < 6; ++i)
            EXPECT_THAT(object(), HasSubstr(names[i] + (i == on ? ": true" : ": false")));
    }
}

TEST_F(WanTo, CutsTextsToOneByteLessThanTheirField)
{
    kelmora_wan &wan = add("");
    fill_whole(wan.interfaceID, 'i');
    fill_whole(wan.gateway, 'g');
    fill_whole(wan.gateway_v6, 'G');
    fill_whole(wan.dns_v4_dns1, 'a');
    fill_whole(wan.dns_v4_dns2, 'b');
    fill_whole(wan.dns_v4_dns3, 'c');
    fill_whole(wan.dns_v6_dns1, 'A');
    fill_whole(wan.dns_v6_dns2, 'B');
    fill_whole(wan.dns_v6_dns3, 'C');
    fill_whole(wan.clonedMac, 'm');
    fill_whole(nodes_.front().resource()->id, 'n');
    const auto dns = [](const std::string &key, char first) {
        const auto text = [](char character) { return '"' + std::string(45, character) + '"'; };
        return '"' + key + R"(": {"automatic": false, "dns1": )" + text(first) + R"(, "dns2": )" +
               text(static_cast<char>(first + 1)) + R"(, "dns3": )" + text(static_cast<char>(first + 2)) + "}";
    };
    EXPECT_THAT(object(),
                AllOf(HasSubstr(R"("interfaceID": ")" + std::string(19, 'i') + '"'),
                      HasSubstr(R"("gateway": ")" + std::string(16, 'g') + '"'),
                      HasSubstr(R"("gateway_v6": ")" + std::string(45, 'G') + '"'), HasSubstr(dns("dns_v4", 'a')),
                      HasSubstr(dns("dns_v6", 'A')), HasSubstr(R"("clonedMac": ")" + std::string(17, 'm') + '"'),
                      HasSubstr(R"("id": ")" + std::string(128, 'n') + '"')));
}

TEST_F(WanTo, LeavesOutTextsThatAreNotUtf8)
{
    kelmora_wan &wan = add("wan0", sample);
    set(wan.dns_v4_dns2, "\xE9");
    fill_whole(wan.interfaceID, 'i');
    wan.interfaceID[18] = '\xC3'; // the first byte of a two-byte character: the last that is written
    wan.interfaceID[19] = '\xA4';
    EXPECT_THAT(object(), AllOf(HasSubstr(R"({"id": "wan0", "mode": 2,)"),
                                HasSubstr(R"("dns1": "203.0.113.53", "dns3": "203.0.113.55"})")));
}

constexpr char document[] = R"({
    "interfaceID": "wan5", "mode": 11, "address_mode_v6": 12, "gateway": "198.51.100.1", "gateway_v6": "2001:db8:99::1",
    "dns_v4": {"automatic": true, "dns1": "198.51.100.53", "dns2": "198.51.100.54", "dns3": "198.51.100.55"},
    "dns_v6": {"automatic": true, "dns1": "2001:db8:99::53", "dns2": "2001:db8:99::54", "dns3": "2001:db8:99::55"},
    "clonedMac": "02:00:5e:10:00:05", "napt_enable": true, "vlan_enable": true, "prefix_enable": true,
    "vlanID": 132, "multicast_vlanID": 133, "omci_configured": true, "protocol": 13, "id": "never read"
})";

class WanFrom : public FromTest<kelmora_wan> {
protected:
    WanFrom() : FromTest(wan_from_translator, document) {}

    /// Nothing behind the IPv4 DNS settings is stored.
    void expect_rest_untouched()
    {
        EXPECT_TRUE(untouched(record().dns_v6_automatic));
        EXPECT_TRUE(untouched(record().dns_v6_dns1));
        EXPECT_TRUE(untouched(record().dns_v6_dns2));
        EXPECT_TRUE(untouched(record().dns_v6_dns3));
        EXPECT_TRUE(untouched(record().clonedMac));
        EXPECT_TRUE(untouched(record().napt_enable));
        EXPECT_TRUE(untouched(record().vlan_enable));
        EXPECT_TRUE(untouched(record().prefix_enable));
        EXPECT_TRUE(untouched(record().omci_configured));
        EXPECT_TRUE(untouched(record().vlanID));
        EXPECT_TRUE(untouched(record().multicast_vlanID));
        EXPECT_TRUE(untouched(record().protocol));
    }
};

TEST_F(WanFrom, StoresEveryKey)
{
    EXPECT_TRUE(accepts(document));
    EXPECT_STREQ(record().interfaceID, "wan5");
    EXPECT_EQ(record().mode, 11U);
    EXPECT_EQ(record().address_mode_v6, 12U);
    EXPECT_STREQ(record().gateway, "198.51.100.1");
    EXPECT_STREQ(record().gateway_v6, "2001:db8:99::1");
    EXPECT_EQ(record().dns_v4_automatic, 1);
    EXPECT_STREQ(record().dns_v4_dns1, "198.51.100.53");
    EXPECT_STREQ(record().dns_v4_dns2, "198.51.100.54");
    EXPECT_STREQ(record().dns_v4_dns3, "198.51.100.55");
    EXPECT_EQ(record().dns_v6_automatic, 1);
    EXPECT_STREQ(record().dns_v6_dns1, "2001:db8:99::53");
    EXPECT_STREQ(record().dns_v6_dns2, "2001:db8:99::54");
    EXPECT_STREQ(record().dns_v6_dns3, "2001:db8:99::55");
    EXPECT_STREQ(record().clonedMac, "02:00:5e:10:00:05");
    EXPECT_EQ(record().napt_enable, 1);
    EXPECT_EQ(record().vlan_enable, 1);
    EXPECT_EQ(record().prefix_enable, 1);
    EXPECT_EQ(record().omci_configured, 1);
    EXPECT_EQ(record().vlanID, 132);
    EXPECT_EQ(record().multicast_vlanID, 133);
    EXPECT_EQ(record().protocol, 13U);
    EXPECT_EQ(fetches_, 1U);
}

TEST_F(WanFrom, AsksForTheRequiredKeysInOrder)
{
    expect_required_in_order({
        {"interfaceID", "interfaceID", "interfaceID field not found"},
        {"mode", "mode", "mode field not found"},
        {"dns_v4.automatic", "dns_v4.automatic", "automatic field not found"},
        {"dns_v6.automatic", "dns_v6.automatic", "automatic field not found"},
    });
}

TEST_F(WanFrom, MissingInterfaceFetchesNothing)
{
    for (const std::string &text : {without(document, "interfaceID"), std::string("{}"), std::string("[]")}) {
        EXPECT_TRUE(rejects(text, "interfaceID", "interfaceID field not found"));
        EXPECT_EQ(fetches_, 0U);
        EXPECT_TRUE(untouched(record()));
    }
    EXPECT_TRUE(rejects("{", "", "invalid json data"));
    EXPECT_EQ(fetches_, 0U);
    EXPECT_TRUE(accepts(""));
    EXPECT_EQ(fetches_, 0U);
}

TEST_F(WanFrom, MissingModeStoresTheInterfaceAlone)
{
    EXPECT_TRUE(rejects(without(document, "mode"), "mode", "mode field not found"));
    EXPECT_EQ(fetches_, 1U);
    EXPECT_STREQ(record().interfaceID, "wan5");
    EXPECT_TRUE(untouched(record().mode));
    EXPECT_TRUE(untouched(record().address_mode_v6));
    EXPECT_TRUE(untouched(record().gateway));
    EXPECT_TRUE(untouched(record().gateway_v6));
}

TEST_F(WanFrom, MissingIpv4DnsKeepsWhatWasStoredBefore)
{
    EXPECT_TRUE(rejects(without(document, "dns_v4"), "dns_v4", "dns_v4 fields not found"));
    EXPECT_STREQ(record().interfaceID, "wan5");
    EXPECT_EQ(record().mode, 11U);
    EXPECT_EQ(record().address_mode_v6, 12U);
    EXPECT_STREQ(record().gateway, "198.51.100.1");
    EXPECT_STREQ(record().gateway_v6, "2001:db8:99::1");
    EXPECT_TRUE(untouched(record().dns_v4_automatic));
    EXPECT_TRUE(untouched(record().dns_v4_dns1));
    expect_rest_untouched();
}

TEST_F(WanFrom, AsksForIpv4DnsBeforeIpv6Dns)
{
    EXPECT_TRUE(rejects(without(without(document, "dns_v4"), "dns_v6.automatic"), "dns_v4", "dns_v4 fields not found"));
}

TEST_F(WanFrom, AsksForTheAutomaticSwitchOfAnyIpv4Dns)
{
    for (const char *other :
         {"{}", R"({"dns1": "192.0.2.1"})", "null", "1", "\"text\"", "true", "[]", R"([{"automatic": true}])"}) {
        poison();
        EXPECT_TRUE(rejects(with(document, "dns_v4", other), "dns_v4.automatic", "automatic field not found"));
        EXPECT_STREQ(record().gateway_v6, "2001:db8:99::1");
        EXPECT_TRUE(untouched(record().dns_v4_automatic));
        EXPECT_TRUE(untouched(record().dns_v4_dns1));
        expect_rest_untouched();
    }
}

TEST_F(WanFrom, AsksForTheAutomaticSwitchOfAnyIpv6Dns)
{
    for (const char *other :
         {"{}", R"({"dns1": "2001:db8::1"})", "null", "1", "\"text\"", "true", "[]", R"([{"automatic": true}])"}) {
        poison();
        EXPECT_TRUE(rejects(with(document, "dns_v6", other), "dns_v6.automatic", "automatic field not found"));
        EXPECT_EQ(record().dns_v4_automatic, 1);
        EXPECT_STREQ(record().dns_v4_dns3, "198.51.100.55");
        expect_rest_untouched();
    }
}

TEST_F(WanFrom, SucceedsWithoutIpv6DnsAndKeepsIt)
{
    EXPECT_TRUE(accepts(without(document, "dns_v6")));
    EXPECT_TRUE(untouched(record().dns_v6_automatic));
    EXPECT_TRUE(untouched(record().dns_v6_dns1));
    EXPECT_TRUE(untouched(record().dns_v6_dns2));
    EXPECT_TRUE(untouched(record().dns_v6_dns3));
    EXPECT_EQ(record().protocol, 13U);
}

TEST_F(WanFrom, SucceedsWithTheRequiredKeysAlone)
{
    EXPECT_TRUE(accepts(R"({"interfaceID": "wan1", "mode": 1, "dns_v4": {"automatic": false}})"));
    EXPECT_STREQ(record().interfaceID, "wan1");
    EXPECT_EQ(record().mode, 1U);
    EXPECT_EQ(record().dns_v4_automatic, 0);
    EXPECT_TRUE(untouched(record().address_mode_v6));
    EXPECT_TRUE(untouched(record().gateway));
    EXPECT_TRUE(untouched(record().gateway_v6));
    EXPECT_TRUE(untouched(record().dns_v4_dns1));
    EXPECT_TRUE(untouched(record().dns_v4_dns2));
    EXPECT_TRUE(untouched(record().dns_v4_dns3));
    expect_rest_untouched();
}

TEST_F(WanFrom, KeepsTheOptionalKeysThatAreAbsent)
{
    expect_optional("address_mode_v6", record().address_mode_v6);
    expect_optional("gateway", record().gateway);
    expect_optional("gateway_v6", record().gateway_v6);
    expect_optional("dns_v4.dns1", record().dns_v4_dns1);
    expect_optional("dns_v4.dns2", record().dns_v4_dns2);
    expect_optional("dns_v4.dns3", record().dns_v4_dns3);
    expect_optional("dns_v6", record().dns_v6_automatic);
    expect_optional("dns_v6.dns1", record().dns_v6_dns1);
    expect_optional("dns_v6.dns2", record().dns_v6_dns2);
    expect_optional("dns_v6.dns3", record().dns_v6_dns3);
    expect_optional("clonedMac", record().clonedMac);
    expect_optional("napt_enable", record().napt_enable);
    expect_optional("vlan_enable", record().vlan_enable);
    expect_optional("prefix_enable", record().prefix_enable);
    expect_optional("vlanID", record().vlanID);
    expect_optional("multicast_vlanID", record().multicast_vlanID);
    expect_optional("omci_configured", record().omci_configured);
    expect_optional("protocol", record().protocol);
}

TEST_F(WanFrom, ReadsTheDnsServersInsideTheirObjectsAlone)
{
    const std::string text = with(without(without(document, "dns_v4.dns1"), "dns_v6.dns1"), "dns1", "\"192.0.2.1\"");
    EXPECT_TRUE(accepts(text));
    EXPECT_TRUE(untouched(record().dns_v4_dns1));
    EXPECT_TRUE(untouched(record().dns_v6_dns1));
}

TEST_F(WanFrom, TakesOnlyTrueForTrue)
{
    expect_boolean("dns_v4.automatic", record().dns_v4_automatic);
    expect_boolean("dns_v6.automatic", record().dns_v6_automatic);
    expect_boolean("napt_enable", record().napt_enable);
    expect_boolean("vlan_enable", record().vlan_enable);
    expect_boolean("prefix_enable", record().prefix_enable);
    expect_boolean("omci_configured", record().omci_configured);
}

TEST_F(WanFrom, CutsIntegersToTheirWidth)
{
    expect_integer("mode", record().mode);
    expect_integer("address_mode_v6", record().address_mode_v6);
    expect_integer("vlanID", record().vlanID);
    expect_integer("multicast_vlanID", record().multicast_vlanID);
    expect_integer("protocol", record().protocol);
}

TEST_F(WanFrom, KeepsTheLow16BitsOfAVlan)
{
    EXPECT_TRUE(accepts(with(with(document, "vlanID", "70000"), "multicast_vlanID", "-2")));
    EXPECT_EQ(record().vlanID, 4464);
    EXPECT_EQ(record().multicast_vlanID, 65534);
    EXPECT_EQ(record().omci_configured, 1);
}

TEST_F(WanFrom, ReadsTheEmptyVlanOfAnUntaggedConnectionAsZero)
{
    EXPECT_TRUE(accepts(with(document, "vlanID", "\"\"")));
    EXPECT_EQ(record().vlanID, 0);
}

TEST_F(WanFrom, StoresAVlanThoughTheConnectionIsUntagged)
{
    EXPECT_TRUE(accepts(with(document, "vlan_enable", "false")));
    EXPECT_EQ(record().vlan_enable, 0);
    EXPECT_EQ(record().vlanID, 132);
}

TEST_F(WanFrom, CutsTextsToTheirField)
{
    expect_string("interfaceID", record().interfaceID);
    expect_string("gateway", record().gateway);
    expect_string("gateway_v6", record().gateway_v6);
    expect_string("dns_v4.dns1", record().dns_v4_dns1);
    expect_string("dns_v4.dns2", record().dns_v4_dns2);
    expect_string("dns_v4.dns3", record().dns_v4_dns3);
    expect_string("dns_v6.dns1", record().dns_v6_dns1);
    expect_string("dns_v6.dns2", record().dns_v6_dns2);
    expect_string("dns_v6.dns3", record().dns_v6_dns3);
    expect_string("clonedMac", record().clonedMac);
}

TEST(Wan, TakesBackWhatItWrote)
{
    std::vector<kelmora_host::Node> nodes;
    nodes.emplace_back("wan0", kelmora_host::Record(kelmora_wan{}));
    EXPECT_EQ(kelmora_host::from_json(wan_from_translator, nodes.front(), sample_text).result, 1);
    EXPECT_EQ(kelmora_host::to_json(wan_to_translator, nodes, false).text, sample_text);
}

} // namespace

} // namespace kelmora_test::wan_test
