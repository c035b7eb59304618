#include "tests/support/from_test.h"
#include "tests/support/to_test.h"

#include "kelmora_json.h"
#include "records/firewall.h"

namespace kelmora_test::firewall_port_forwarding_table_test {

namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

constexpr kelmora_firewall_port_forwarding_table sample{
    .comment = "Backups of the office",
    .local_ip = "192.168.17.21",
    .local_port_from = 22,
    .local_port_to = 23,
    .protocol = 1,
    .remote_ip = "198.51.100.77",
    .remote_port_from = 2222,
    .remote_port_to = 2223,
    .interface = "wan0",
};

constexpr char sample_text[] =
    R"({"id": "rule0", "comment": "Backups of the office", "local_ip": "192.168.17.21", "local_port_from": 22, )"
    R"("local_port_to": 23, "protocol": 1, "remote_ip": "198.51.100.77", "remote_port_from": 2222, )"
    R"("remote_port_to": 2223, "interface": "wan0"})";

constexpr char empty_text[] =
    R"({"id": "rule1", "comment": "", "local_ip": "", "local_port_from": 0, "local_port_to": 0, "protocol": 0, )"
    R"("remote_ip": "", "remote_port_from": 0, "remote_port_to": 0, "interface": ""})";

class FirewallPortForwardingTableTo : public ToTest<kelmora_firewall_port_forwarding_table> {
protected:
    FirewallPortForwardingTableTo() : ToTest(firewall_port_forwarding_table_to_translator) {}
};

TEST_F(FirewallPortForwardingTableTo, WritesTheKeysInOrder)
{
    add("rule0", sample);
    EXPECT_EQ(object(), sample_text);
    EXPECT_EQ(list(), "[" + std::string(sample_text) + "]");
}

TEST_F(FirewallPortForwardingTableTo, WritesIntegersAsUnsigned)
{
    add("", {.local_port_from = 65535,
             .local_port_to = 65534,
             .protocol = 4294967295,
             .remote_port_from = 65533,
             .remote_port_to = 32768});
    EXPECT_EQ(object(), R"({"id": "", "comment": "", "local_ip": "", "local_port_from": 65535, )"
                        R"("local_port_to": 65534, "protocol": 4294967295, "remote_ip": "", )"
                        R"("remote_port_from": 65533, "remote_port_to": 32768, "interface": ""})");
}

TEST_F(FirewallPortForwardingTableTo, CutsTextsToOneByteLessThanTheirField)
{
    kelmora_firewall_port_forwarding_table &rule = add("", sample);
    fill_whole(rule.comment, 'c');
    fill_whole(rule.local_ip, 'l');
    fill_whole(rule.remote_ip, 'r');
    fill_whole(rule.interface, 'i');
    fill_whole(nodes_.front().resource()->id, 'n');
    EXPECT_THAT(object(), AllOf(HasSubstr(R"("comment": ")" + std::string(59, 'c') + '"'),
                                HasSubstr(R"("local_ip": ")" + std::string(16, 'l') + '"'),
                                HasSubstr(R"("remote_ip": ")" + std::string(16, 'r') + '"'),
                                HasSubstr(R"("interface": ")" + std::string(19, 'i') + '"'),
                                HasSubstr(R"("id": ")" + std::string(128, 'n') + '"')));
}

TEST_F(FirewallPortForwardingTableTo, LeavesOutATextWhoseCutSplitsACharacter)
{
    kelmora_firewall_port_forwarding_table &rule = add("rule0", sample);
    fill_whole(rule.comment, 'c');
    rule.comment[58] = '\xC3'; // the first byte of a two-byte character: the last that is written
    rule.comment[59] = '\xA4';
    EXPECT_THAT(object(), testing::StartsWith(R"({"id": "rule0", "local_ip": "192.168.17.21", )"));
}

TEST_F(FirewallPortForwardingTableTo, LeavesOutATextThatIsNotUtf8)
{
    set(add("rule0", sample).interface, "\xE9");
    EXPECT_THAT(object(), AllOf(Not(HasSubstr("interface")), testing::EndsWith(R"("remote_port_to": 2223})")));
}

TEST_F(FirewallPortForwardingTableTo, WritesOtherScriptsAndSlashesAsTheyAre)
{
    set(add("rule0", sample).comment, "Gäste \"5/G\" 北");
    EXPECT_THAT(object(), HasSubstr("\"comment\": \"Gäste \\\"5/G\\\" 北\""));
}

TEST_F(FirewallPortForwardingTableTo, WritesALongListIntoALargerBuffer)
{
    std::string expected;
    for (int i = 0; i < 30; ++i) {
        add("rule1");
        expected += (i == 0 ? "[" : ", ") + std::string(empty_text);
    }
    EXPECT_EQ(list(), expected + "]");
    EXPECT_EQ(reallocations_, 1U);
}

constexpr char document[] = R"({
    "id": "never read", "comment": "Chess server", "local_ip": "192.168.17.63", "local_port_from": 5000,
    "local_port_to": 5003, "protocol": 2, "remote_ip": "192.0.2.140", "remote_port_from": 15000,
    "remote_port_to": 15003, "interface": "wan1"
})";

class FirewallPortForwardingTableFrom : public FromTest<kelmora_firewall_port_forwarding_table> {
protected:
    FirewallPortForwardingTableFrom() : FromTest(firewall_port_forwarding_table_from_translator, document) {}
};

TEST_F(FirewallPortForwardingTableFrom, StoresEveryKey)
{
    EXPECT_TRUE(accepts(document));
    EXPECT_STREQ(record().comment, "Chess server");
    EXPECT_STREQ(record().local_ip, "192.168.17.63");
    EXPECT_EQ(record().local_port_from, 5000);
    EXPECT_EQ(record().local_port_to, 5003);
    EXPECT_EQ(record().protocol, 2U);
    EXPECT_STREQ(record().remote_ip, "192.0.2.140");
    EXPECT_EQ(record().remote_port_from, 15000);
    EXPECT_EQ(record().remote_port_to, 15003);
    EXPECT_STREQ(record().interface, "wan1");
}

TEST_F(FirewallPortForwardingTableFrom, AsksForAllKeysInOrder)
{
    expect_required_in_order({
        {"comment", "comment", "comment field not found"},
        {"local_ip", "local_ip", "local_ip field not found"},
        {"local_port_from", "local_port_from", "local_port_from field not found"},
        {"local_port_to", "local_port_to", "local_port_to field not found"},
        {"protocol", "protocol", "protocol field not found"},
        {"remote_ip", "remote_ip", "remote_ip field not found"},
        {"remote_port_from", "remote_port_from", "remote_port_from field not found"},
        {"remote_port_to", "remote_port_to", "remote_port_to field not found"},
        {"interface", "interface", "interface field not found"},
    });
}

TEST_F(FirewallPortForwardingTableFrom, MissingInterfaceKeepsEverythingStoredBefore)
{
    EXPECT_TRUE(rejects(without(document, "interface"), "interface", "interface field not found"));
    EXPECT_STREQ(record().comment, "Chess server");
    EXPECT_STREQ(record().local_ip, "192.168.17.63");
    EXPECT_EQ(record().local_port_from, 5000);
    EXPECT_EQ(record().local_port_to, 5003);
    EXPECT_EQ(record().protocol, 2U);
    EXPECT_STREQ(record().remote_ip, "192.0.2.140");
    EXPECT_EQ(record().remote_port_from, 15000);
    EXPECT_EQ(record().remote_port_to, 15003);
    EXPECT_TRUE(untouched(record().interface));
}

TEST_F(FirewallPortForwardingTableFrom, MissingProtocolStoresNothingBehindIt)
{
    EXPECT_TRUE(rejects(without(document, "protocol"), "protocol", "protocol field not found"));
    EXPECT_EQ(record().local_port_to, 5003);
    EXPECT_TRUE(untouched(record().protocol));
    EXPECT_TRUE(untouched(record().remote_ip));
    EXPECT_TRUE(untouched(record().remote_port_from));
    EXPECT_TRUE(untouched(record().remote_port_to));
    EXPECT_TRUE(untouched(record().interface));
}

TEST_F(FirewallPortForwardingTableFrom, ChecksNoRange)
{
    EXPECT_TRUE(accepts(with(with(document, "local_port_from", "70000"), "local_port_to", "9")));
    EXPECT_EQ(record().local_port_from, 4464);
    EXPECT_EQ(record().local_port_to, 9);
}

TEST_F(FirewallPortForwardingTableFrom, CutsIntegersToTheirWidth)
{
    expect_integer("local_port_from", record().local_port_from);
    expect_integer("local_port_to", record().local_port_to);
    expect_integer("protocol", record().protocol);
    expect_integer("remote_port_from", record().remote_port_from);
    expect_integer("remote_port_to", record().remote_port_to);
}

TEST_F(FirewallPortForwardingTableFrom, CutsTextsToTheirField)
{
    expect_string("comment", record().comment);
    expect_string("local_ip", record().local_ip);
    expect_string("remote_ip", record().remote_ip);
    expect_string("interface", record().interface);
}

TEST_F(FirewallPortForwardingTableFrom, StoresTheFirst19CharactersOfALongInterface)
{
    EXPECT_TRUE(accepts(with(document, "interface", R"("0123456789abcdefghij")")));
    EXPECT_STREQ(record().interface, "0123456789abcdefghi");
}

} // namespace

} // namespace kelmora_test::firewall_port_forwarding_table_test
