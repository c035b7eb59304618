#include "tests/support/from_test.h"
#include "tests/support/to_test.h"

#include "host/plugin/translate.h"

#include "kelmora_json.h"
#include "records/firewall.h"

#include <cstddef>

namespace kelmora_test::iptables_test {

namespace {

using testing::AllOf;
using testing::HasSubstr;

constexpr kelmora_iptables sample{
    .ip_protocol = 4,
    .position = -1,
    .chain = 2,
    .protocol = 6,
    .source_ip = "198.51.100.0/24",
    .source_mac = "02:00:5e:10:00:01",
    .source_interface = "wan0",
    .source_port = 1024,
    .destination_ip = "192.168.17.20",
    .destination_mac = "02:00:5e:10:00:02",
    .destination_interface = "br0",
    .destination_port = 9100,
    .url = "https://druck.example/übersicht",
    .policy = 3,
};

constexpr char sample_text[] = "{\n"
                               "                \"chain\": 2,\n"
                               "                \"destination\": {\n"
                               "                                \"interface\": \"br0\",\n"
                               "                                \"ip\": \"192.168.17.20\",\n"
                               "                                \"mac\": \"02:00:5e:10:00:02\",\n"
                               "                                \"port\": 9100\n"
                               "                },\n"
                               "                \"id\": \"7\",\n"
                               "                \"ip_protocol\": 4,\n"
                               "                \"policy\": 3,\n"
                               "                \"position\": -1,\n"
                               "                \"protocol\": 6,\n"
                               "                \"source\": {\n"
                               "                                \"interface\": \"wan0\",\n"
                               "                                \"ip\": \"198.51.100.0\\/24\",\n"
                               "                                \"mac\": \"02:00:5e:10:00:01\",\n"
                               "                                \"port\": 1024\n"
                               "                },\n"
                               "                \"url\": \"https:\\/\\/druck.example\\/\\u00FCbersicht\"\n"
                               "}";

class IptablesTo : public ToTest<kelmora_iptables> {
protected:
    IptablesTo() : ToTest(iptables_to_translator) {}
};

TEST_F(IptablesTo, WritesSortedKeysIndentedAndEscaped)
{
    add("7", sample);
    EXPECT_EQ(object(), sample_text);
}

TEST_F(IptablesTo, WritesAListOfRules)
{
    add("a", {.position = 5, .source_ip = "192.0.2.1", .destination_interface = "br1"});
    add("b");
    EXPECT_EQ(list(), "[\n"
                      "                {\n"
                      "                                \"chain\": 0,\n"
                      "                                \"destination\": {\n"
                      "                                                \"interface\": \"br1\",\n"
                      "                                                \"ip\": \"\",\n"
                      "                                                \"mac\": \"\",\n"
                      "                                                \"port\": 0\n"
                      "                                },\n"
                      "                                \"id\": \"a\",\n"
                      "                                \"ip_protocol\": 0,\n"
                      "                                \"policy\": 0,\n"
                      "                                \"position\": 5,\n"
                      "                                \"protocol\": 0,\n"
                      "                                \"source\": {\n"
                      "                                                \"interface\": \"\",\n"
                      "                                                \"ip\": \"192.0.2.1\",\n"
                      "                                                \"mac\": \"\",\n"
                      "                                                \"port\": 0\n"
                      "                                },\n"
                      "                                \"url\": \"\"\n"
                      "                },\n"
                      "                {\n"
                      "                                \"chain\": 0,\n"
                      "                                \"destination\": {\n"
                      "                                                \"interface\": \"\",\n"
                      "                                                \"ip\": \"\",\n"
                      "                                                \"mac\": \"\",\n"
                      "                                                \"port\": 0\n"
                      "                                },\n"
                      "                                \"id\": \"b\",\n"
                      "                                \"ip_protocol\": 0,\n"
                      "                                \"policy\": 0,\n"
                      "                                \"position\": 0,\n"
                      "                                \"protocol\": 0,\n"
                      "                                \"source\": {\n"
                      "                                                \"interface\": \"\",\n"
                      "                                                \"ip\": \"\",\n"
                      "                                                \"mac\": \"\",\n"
                      "                                                \"port\": 0\n"
                      "                                },\n"
                      "                                \"url\": \"\"\n"
                      "                }\n"
                      "]");
}

TEST_F(IptablesTo, WritesCodesAsUnsignedAndPositionAndPortsAsSigned)
{
    constexpr std::uint32_t most = 4294967295;
    add("", {.ip_protocol = most,
             .position = -2147483647 - 1,
             .chain = most - 1,
             .protocol = most - 2,
             .source_port = -2,
             .destination_port = -3,
             .policy = most - 3});
    EXPECT_THAT(object(),
                AllOf(HasSubstr("\"ip_protocol\": 4294967295,"), HasSubstr("\"position\": -2147483648,"),
                      HasSubstr("\"chain\": 4294967294,"), HasSubstr("\"protocol\": 4294967293,"),
                      HasSubstr("\"policy\": 4294967292,"), HasSubstr("\"port\": -2\n"), HasSubstr("\"port\": -3\n")));
}

TEST_F(IptablesTo, CutsTextsToOneByteLessThanTheirField)
{
    kelmora_iptables &rule = add("");
    fill_whole(rule.source_ip, '1');
    fill_whole(rule.source_mac, '2');
    fill_whole(rule.source_interface, '3');
    fill_whole(rule.destination_ip, '4');
    fill_whole(rule.destination_mac, '5');
    fill_whole(rule.destination_interface, '6');
    fill_whole(rule.url, 'u');
    fill_whole(nodes_.front().resource()->id, 'i');
    EXPECT_THAT(object(), AllOf(HasSubstr("\"ip\": \"" + std::string(45, '1') + '"'),
                                HasSubstr("\"mac\": \"" + std::string(17, '2') + '"'),
                                HasSubstr("\"interface\": \"" + std::string(5, '3') + '"'),
                                HasSubstr("\"ip\": \"" + std::string(45, '4') + '"'),
                                HasSubstr("\"mac\": \"" + std::string(17, '5') + '"'),
                                HasSubstr("\"interface\": \"" + std::string(5, '6') + '"'),
                                HasSubstr("\"url\": \"" + std::string(128, 'u') + '"'),
                                HasSubstr("\"id\": \"" + std::string(128, 'i') + '"')));
}

TEST_F(IptablesTo, LeavesOutTextsThatAreNotUtf8ButKeepsTheirObject)
{
    kelmora_iptables &rule = add("7");
    fill_whole(rule.source_ip, '1');
    rule.source_ip[44] = '\xC3'; // the first byte of a two-byte character: the last that is written
    rule.source_ip[45] = '\xA4';
    set(rule.source_mac, "\xE9");
    set(rule.source_interface, "\xFF");
    set(rule.destination_interface, "\xC3");
    fill_whole(rule.url, 'u');
    rule.url[127] = '\xC3';
    rule.url[128] = '\xA4';
    EXPECT_EQ(object(), "{\n"
                        "                \"chain\": 0,\n"
                        "                \"destination\": {\n"
                        "                                \"ip\": \"\",\n"
                        "                                \"mac\": \"\",\n"
                        "                                \"port\": 0\n"
                        "                },\n"
                        "                \"id\": \"7\",\n"
                        "                \"ip_protocol\": 0,\n"
                        "                \"policy\": 0,\n"
                        "                \"position\": 0,\n"
                        "                \"protocol\": 0,\n"
                        "                \"source\": {\n"
                        "                                \"port\": 0\n"
                        "                }\n"
                        "}");
}

TEST_F(IptablesTo, GrowsTheBufferForALongList)
{
    std::vector<std::string> expected;
    for (int i = 0; i < 20; ++i) {
        add(std::to_string(i), sample);
        expected.push_back(with_id(sample_text, std::to_string(i)));
    }
    EXPECT_EQ(list(), pretty_array(expected));
    EXPECT_EQ(reallocations_, 1U);
}

constexpr char document[] = R"({
    "ip_protocol": 10, "position": -4, "chain": 5, "protocol": 17,
    "source": {"ip": "2001:db8:7::1/128", "mac": "02:00:5e:10:00:71", "interface": "wan3", "port": 5353},
    "destination": {"ip": "10.40.0.77", "mac": "02:00:5e:10:00:72", "interface": "br5", "port": -5354},
    "url": "http://tracker.example/", "policy": 9,
    "id": "never read", "ip": "never read", "mac": "never read", "interface": "no", "port": 77
})";

class IptablesFrom : public FromTest<kelmora_iptables> {
protected:
    IptablesFrom() : FromTest(iptables_from_translator, document) {}

    /// A byte behind a field, which belongs to no other one.
    unsigned char byte_at(std::size_t offset) { return reinterpret_cast<const unsigned char *>(&record())[offset]; }

    void expect_source_untouched()
    {
        EXPECT_TRUE(untouched(record().source_ip));
        EXPECT_TRUE(untouched(record().source_mac));
        EXPECT_TRUE(untouched(record().source_interface));
        EXPECT_TRUE(untouched(record().source_port));
    }

    void expect_destination_untouched()
    {
        EXPECT_TRUE(untouched(record().destination_ip));
        EXPECT_TRUE(untouched(record().destination_mac));
        EXPECT_TRUE(untouched(record().destination_interface));
        EXPECT_TRUE(untouched(record().destination_port));
    }

    /// The field holds poison behind an empty text.
    template <std::size_t width> static testing::AssertionResult is_cut_to_nothing(const char (&field)[width])
    {
        const std::string expected = '\0' + std::string(width - 1, static_cast<char>(poison_byte));
        return std::string(field, width) == expected ? testing::AssertionSuccess() : testing::AssertionFailure();
    }
};

TEST_F(IptablesFrom, StoresEveryKey)
{
    EXPECT_TRUE(accepts(document));
    EXPECT_EQ(record().ip_protocol, 10U);
    EXPECT_EQ(record().position, -4);
    EXPECT_EQ(record().chain, 5U);
    EXPECT_EQ(record().protocol, 17U);
    EXPECT_STREQ(record().source_ip, "2001:db8:7::1/128");
    EXPECT_STREQ(record().source_mac, "02:00:5e:10:00:71");
    EXPECT_STREQ(record().source_interface, "wan3");
    EXPECT_EQ(record().source_port, 5353);
    EXPECT_STREQ(record().destination_ip, "10.40.0.77");
    EXPECT_STREQ(record().destination_mac, "02:00:5e:10:00:72");
    EXPECT_STREQ(record().destination_interface, "br5");
    EXPECT_EQ(record().destination_port, -5354);
    EXPECT_STREQ(record().url, "http://tracker.example/");
    EXPECT_EQ(record().policy, 9U);
}

TEST_F(IptablesFrom, WritesNothingBetweenTheFields)
{
    EXPECT_TRUE(accepts(document));
    for (const std::size_t offset : {86U, 87U, 162U, 163U, 297U, 298U, 299U})
        EXPECT_EQ(byte_at(offset), poison_byte) << offset;
}

TEST_F(IptablesFrom, AsksForTheRequiredKeysInOrder)
{
    expect_required_in_order({
        {"chain", "chain", "chain field not found"},
        {"policy", "policy", "policy field not found"},
    });
}

TEST_F(IptablesFrom, MissingChainStoresNothing)
{
    EXPECT_TRUE(rejects(without(document, "chain"), "chain", "chain field not found"));
    EXPECT_TRUE(untouched(record()));
}

TEST_F(IptablesFrom, MissingPolicyStoresTheChainAlone)
{
    EXPECT_TRUE(rejects(without(document, "policy"), "policy", "policy field not found"));
    EXPECT_EQ(record().chain, 5U);
    EXPECT_TRUE(untouched(record().policy));
    EXPECT_TRUE(untouched(record().ip_protocol));
    EXPECT_TRUE(untouched(record().position));
    EXPECT_TRUE(untouched(record().protocol));
    expect_source_untouched();
    expect_destination_untouched();
    EXPECT_TRUE(untouched(record().url));
}

TEST_F(IptablesFrom, SucceedsWithTheRequiredKeysAlone)
{
    EXPECT_TRUE(accepts(R"({"chain": 1, "policy": 2})"));
    EXPECT_EQ(record().chain, 1U);
    EXPECT_EQ(record().policy, 2U);
    EXPECT_TRUE(untouched(record().ip_protocol));
    EXPECT_TRUE(untouched(record().position));
    EXPECT_TRUE(untouched(record().protocol));
    expect_source_untouched();
    expect_destination_untouched();
    EXPECT_TRUE(untouched(record().url));
}

TEST_F(IptablesFrom, KeepsTheOptionalKeysThatAreAbsent)
{
    expect_optional("ip_protocol", record().ip_protocol);
    expect_optional("position", record().position);
    expect_optional("protocol", record().protocol);
    expect_optional("source", record().source_ip);
    expect_optional("source", record().source_mac);
    expect_optional("source", record().source_interface);
    expect_optional("source", record().source_port);
    expect_optional("source.ip", record().source_ip);
    expect_optional("source.port", record().source_port);
    expect_optional("destination", record().destination_ip);
    expect_optional("destination", record().destination_mac);
    expect_optional("destination", record().destination_interface);
    expect_optional("destination", record().destination_port);
    expect_optional("destination.ip", record().destination_ip);
    expect_optional("destination.port", record().destination_port);
    expect_optional("url", record().url);
}

TEST_F(IptablesFrom, AnAddressAloneEmptiesTheMacOfItsEnd)
{
    EXPECT_TRUE(accepts(R"({"chain": 1, "policy": 2, "source": {"ip": "192.0.2.1"}})"));
    EXPECT_STREQ(record().source_ip, "192.0.2.1");
    EXPECT_TRUE(is_cut_to_nothing(record().source_mac));
    EXPECT_TRUE(untouched(record().source_interface));
    EXPECT_TRUE(untouched(record().source_port));
    expect_destination_untouched();

    poison();
    EXPECT_TRUE(accepts(R"({"chain": 1, "policy": 2, "destination": {"ip": "192.0.2.2"}})"));
    expect_source_untouched();
    EXPECT_STREQ(record().destination_ip, "192.0.2.2");
    EXPECT_TRUE(is_cut_to_nothing(record().destination_mac));
    EXPECT_TRUE(untouched(record().destination_interface));
    EXPECT_TRUE(untouched(record().destination_port));
}

TEST_F(IptablesFrom, AMacAloneEmptiesTheInterfaceOfItsEnd)
{
    EXPECT_TRUE(accepts(R"({"chain": 1, "policy": 2, "source": {"mac": "02:00:5e:10:00:73"}})"));
    EXPECT_TRUE(untouched(record().source_ip));
    EXPECT_STREQ(record().source_mac, "02:00:5e:10:00:73");
    EXPECT_TRUE(is_cut_to_nothing(record().source_interface));
    EXPECT_TRUE(untouched(record().source_port));
    expect_destination_untouched();

    poison();
    EXPECT_TRUE(accepts(R"({"chain": 1, "policy": 2, "destination": {"mac": "02:00:5e:10:00:74"}})"));
    expect_source_untouched();
    EXPECT_TRUE(untouched(record().destination_ip));
    EXPECT_STREQ(record().destination_mac, "02:00:5e:10:00:74");
    EXPECT_TRUE(is_cut_to_nothing(record().destination_interface));
    EXPECT_TRUE(untouched(record().destination_port));
}

TEST_F(IptablesFrom, AnInterfaceAloneEmptiesNothing)
{
    EXPECT_TRUE(accepts(R"({"chain": 1, "policy": 2, "source": {"interface": "wan1"}})"));
    EXPECT_TRUE(untouched(record().source_ip));
    EXPECT_TRUE(untouched(record().source_mac));
    EXPECT_STREQ(record().source_interface, "wan1");
    EXPECT_TRUE(untouched(record().source_port));
    expect_destination_untouched();

    poison();
    EXPECT_TRUE(accepts(R"({"chain": 1, "policy": 2, "destination": {"interface": "wan2"}})"));
    expect_source_untouched();
    EXPECT_TRUE(untouched(record().destination_ip));
    EXPECT_TRUE(untouched(record().destination_mac));
    EXPECT_STREQ(record().destination_interface, "wan2");
    EXPECT_TRUE(untouched(record().destination_port));
}

TEST_F(IptablesFrom, AnAddressOfAnyTypeAndLengthEmptiesTheMac)
{
    for (const std::string &ip :
         {std::string("null"), std::string("1"), std::string("\"\""), quoted(45), quoted(200)}) {
        poison();
        EXPECT_TRUE(accepts(with(R"({"chain": 1, "policy": 2, "source": {}})", "source.ip", ip)));
        EXPECT_TRUE(is_cut_to_nothing(record().source_mac)) << ip;
    }
}

TEST_F(IptablesFrom, TheOrderOfTheMembersDoesNotMatter)
{
    EXPECT_TRUE(accepts(R"({"source": {"interface": "wan1", "mac": "02:00:5e:10:00:75", "ip": "192.0.2.5"},
                            "policy": 2, "chain": 1})"));
    EXPECT_STREQ(record().source_ip, "192.0.2.5");
    EXPECT_STREQ(record().source_mac, "02:00:5e:10:00:75");
    EXPECT_STREQ(record().source_interface, "wan1");
}

TEST_F(IptablesFrom, TakesAnEndThatIsNoObjectForAnEmptyOne)
{
    for (const char *other : {"{}", "null", "true", "1", "1.5", "\"192.0.2.1\"", "[]", R"([{"ip": "192.0.2.1"}])"}) {
        poison();
        EXPECT_TRUE(accepts(with(with(document, "source", other), "destination", other)));
        expect_source_untouched();
        expect_destination_untouched();
        EXPECT_STREQ(record().url, "http://tracker.example/") << other;
    }
}

TEST_F(IptablesFrom, CutsIntegersToTheirWidth)
{
    expect_integer("ip_protocol", record().ip_protocol);
    expect_integer("position", record().position);
    expect_integer("chain", record().chain);
    expect_integer("protocol", record().protocol);
    expect_integer("source.port", record().source_port);
    expect_integer("destination.port", record().destination_port);
    expect_integer("policy", record().policy);
}

TEST_F(IptablesFrom, CutsTextsToTheirField)
{
    expect_string("source.ip", record().source_ip);
    expect_string("source.mac", record().source_mac);
    expect_string("source.interface", record().source_interface);
    expect_string("destination.ip", record().destination_ip);
    expect_string("destination.mac", record().destination_mac);
    expect_string("destination.interface", record().destination_interface);
    expect_string("url", record().url);
}

TEST(Iptables, TakesBackWhatItWrote)
{
    std::vector<kelmora_host::Node> nodes;
    nodes.emplace_back("7", kelmora_host::Record(kelmora_iptables{}));
    EXPECT_EQ(kelmora_host::from_json(iptables_from_translator, nodes.front(), sample_text).result, 1);
    EXPECT_EQ(kelmora_host::to_json(iptables_to_translator, nodes, false).text, sample_text);
}

} // namespace

} // namespace kelmora_test::iptables_test
