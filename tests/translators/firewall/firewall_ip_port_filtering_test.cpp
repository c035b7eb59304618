#include "tests/support/from_chain_test.h"
#include "tests/support/to_test.h"

#include "host/plugin/translate.h"

#include "kelmora_json.h"
#include "records/firewall.h"

namespace kelmora_test::firewall_ip_port_filtering_test {

namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;

using Rule = kelmora_firewall_ip_port_filtering_rule;

/// A new record each time, as each node owns its chain.
kelmora_firewall_ip_port_filtering sample()
{
    return {
        .outgoing_default_action = 1,
        .incoming_default_action = 2,
        .filter_lists = kelmora_host::make_chain<Rule>({
            {.rule_action = 1,
             .source_ip_address = "198.51.100.0",
             .dest_ip_address = "192.168.17.21",
             .source_subnet_mask = 24,
             .dest_subnet_mask = 32,
             .source_port_from = 1024,
             .source_port_to = 2048,
             .dest_port_from = 443,
             .dest_port_to = 444,
             .direction = 3,
             .protocol = 4,
             .interface_index = "wan0"},
            {.direction = 5},
        }),
    };
}

constexpr char sample_text[] =
    R"({"id": "0", "outgoing_default_action": 1, "incoming_default_action": 2, "filter_lists": [)"
    R"({"rule_action": true, "source_ip_address": "198.51.100.0", "dest_ip_address": "192.168.17.21", )"
    R"("source_subnet_mask": 24, "dest_subnet_mask": 32, "source_port_from": 1024, "source_port_to": 2048, )"
    R"("dest_port_from": 443, "dest_port_to": 444, "direction": 3, "protocol": 4, "interface_index": "wan0"}, )"
    R"({"rule_action": false, "source_ip_address": "", "dest_ip_address": "", )"
    R"("source_subnet_mask": 0, "dest_subnet_mask": 0, "source_port_from": 0, "source_port_to": 0, )"
    R"("dest_port_from": 0, "dest_port_to": 0, "direction": 5, "protocol": 0, "interface_index": ""}]})";

constexpr char empty_text[] =
    R"({"id": "1", "outgoing_default_action": 0, "incoming_default_action": 0, "filter_lists": []})";

class FirewallIpPortFilteringTo : public ToTest<kelmora_firewall_ip_port_filtering> {
protected:
    FirewallIpPortFilteringTo() : ToTest(firewall_ip_port_filtering_to_translator) {}
};

TEST_F(FirewallIpPortFilteringTo, WritesTheKeysInOrder)
{
    add("0", sample());
    EXPECT_EQ(object(), sample_text);
    EXPECT_EQ(list(), "[" + std::string(sample_text) + "]");
}

TEST_F(FirewallIpPortFilteringTo, WritesNoRulesAsAnEmptyArray)
{
    add("1");
    EXPECT_EQ(object(), empty_text);
}

TEST_F(FirewallIpPortFilteringTo, WritesAllNumbersAsUnsignedInTheirWidth)
{
    constexpr std::uint32_t most = 4294967295;
    add("", {.outgoing_default_action = most,
             .incoming_default_action = most - 1,
             .filter_lists = kelmora_host::make_chain<Rule>({{.source_subnet_mask = 255,
                                                              .dest_subnet_mask = 254,
                                                              .source_port_from = 65535,
                                                              .source_port_to = 65534,
                                                              .dest_port_from = 65533,
                                                              .dest_port_to = 65532,
                                                              .direction = most - 2,
                                                              .protocol = most - 3}})});
    EXPECT_EQ(
        object(),
        R"({"id": "", "outgoing_default_action": 4294967295, "incoming_default_action": 4294967294, "filter_lists": [)"
        R"({"rule_action": false, "source_ip_address": "", "dest_ip_address": "", )"
        R"("source_subnet_mask": 255, "dest_subnet_mask": 254, "source_port_from": 65535, "source_port_to": 65534, )"
        R"("dest_port_from": 65533, "dest_port_to": 65532, "direction": 4294967293, "protocol": 4294967292, )"
        R"("interface_index": ""}]})");
}

TEST_F(FirewallIpPortFilteringTo, WritesAnyActionButZeroAsTrue)
{
    for (const int on : {1, 2, 128, 255}) {
        nodes_.clear();
        add("", sample()).filter_lists->next->rule_action = static_cast<std::uint8_t>(on);
        EXPECT_THAT(object(), HasSubstr(R"({"rule_action": true, "source_ip_address": "",)"));
    }
}

TEST_F(FirewallIpPortFilteringTo, CutsTextsToOneByteLessThanTheirField)
{
    kelmora_firewall_ip_port_filtering &filter = add("", sample());
    fill_whole(filter.filter_lists->next->source_ip_address, 's');
    fill_whole(filter.filter_lists->next->dest_ip_address, 'd');
    fill_whole(filter.filter_lists->next->interface_index, 'x');
    fill_whole(nodes_.front().resource()->id, 'i');
    EXPECT_THAT(object(), AllOf(HasSubstr(R"("source_ip_address": ")" + std::string(16, 's') + '"'),
                                HasSubstr(R"("dest_ip_address": ")" + std::string(16, 'd') + '"'),
                                HasSubstr(R"("interface_index": ")" + std::string(19, 'x') + '"'),
                                HasSubstr(R"({"id": ")" + std::string(128, 'i') + '"')));
}

TEST_F(FirewallIpPortFilteringTo, LeavesOutTextsThatAreNotUtf8ButKeepsTheirRule)
{
    kelmora_firewall_ip_port_filtering &filter =
        add("1", {.filter_lists = kelmora_host::make_chain<Rule>({{.protocol = 9}})});
    set(filter.filter_lists->source_ip_address, "\xE9");
    set(filter.filter_lists->dest_ip_address, "\xFF");
    fill_whole(filter.filter_lists->interface_index, 'x');
    filter.filter_lists->interface_index[18] = '\xC3'; // the first byte of a two-byte character: the last written
    filter.filter_lists->interface_index[19] = '\xA4';
    EXPECT_EQ(object(), R"({"id": "1", "outgoing_default_action": 0, "incoming_default_action": 0, "filter_lists": [)"
                        R"({"rule_action": false, "source_subnet_mask": 0, "dest_subnet_mask": 0, )"
                        R"("source_port_from": 0, "source_port_to": 0, "dest_port_from": 0, "dest_port_to": 0, )"
                        R"("direction": 0, "protocol": 9}]})");
}

TEST_F(FirewallIpPortFilteringTo, WritesAllRulesInTheirOrderIntoALargerBuffer)
{
    kelmora_firewall_ip_port_filtering &filter = add("0");
    for (std::uint32_t protocol = 20; protocol > 0; --protocol) {
        auto *rule = kelmora_host::make_chain<Rule>({{.protocol = protocol}});
        rule->next = filter.filter_lists;
        filter.filter_lists = rule;
    }
    const std::string text = object();
    EXPECT_GT(text.size(), 4096U);
    EXPECT_EQ(reallocations_, 1U);
    std::size_t place = 0;
    for (int protocol = 1; protocol <= 20; ++protocol) {
        place = text.find("\"protocol\": " + std::to_string(protocol) + ",", place);
        ASSERT_NE(place, std::string::npos) << protocol;
    }
    EXPECT_THAT(text, EndsWith("}]}"));
}

constexpr char document[] = R"({
    "outgoing_default_action": 11, "incoming_default_action": 12, "filter_lists": [
        {"rule_action": true, "source_ip_address": "203.0.113.1", "dest_ip_address": "10.40.0.1",
         "source_subnet_mask": 20, "dest_subnet_mask": 21, "source_port_from": 1001, "source_port_to": 1002,
         "dest_port_from": 1003, "dest_port_to": 1004, "direction": 101, "protocol": 102, "interface_index": "wan1"},
        {"rule_action": true, "source_ip_address": "203.0.113.2", "dest_ip_address": "10.40.0.2",
         "source_subnet_mask": 22, "dest_subnet_mask": 23, "source_port_from": 2001, "source_port_to": 2002,
         "dest_port_from": 2003, "dest_port_to": 2004, "direction": 201, "protocol": 202, "interface_index": "wan2"}
    ],
    "id": "never read"
})";

/// A rule that has the required members alone.
std::string rule_of_protocol(std::size_t protocol)
{
    return R"({"interface_index": "wan1", "protocol": )" + std::to_string(protocol) +
           R"(, "direction": 1, "dest_port_to": 2, "dest_port_from": 3, "source_port_to": 4, "source_port_from": 5, )"
           R"("dest_subnet_mask": 6, "source_subnet_mask": 7, "rule_action": true})";
}

class FirewallIpPortFilteringFrom : public FromChainTest<kelmora_firewall_ip_port_filtering, Rule> {
protected:
    FirewallIpPortFilteringFrom()
        : FromChainTest(firewall_ip_port_filtering_from_translator, document, "filter_lists",
                        &kelmora_firewall_ip_port_filtering::filter_lists)
    {
    }

    std::vector<std::uint32_t> protocols()
    {
        std::vector<std::uint32_t> protocols;
        for (const Rule &rule : nodes())
            protocols.push_back(rule.protocol);
        return protocols;
    }
};

TEST_F(FirewallIpPortFilteringFrom, StoresEveryKey)
{
    EXPECT_TRUE(accepts(document));
    EXPECT_EQ(record().outgoing_default_action, 11U);
    EXPECT_EQ(record().incoming_default_action, 12U);
    const std::vector<Rule> rules = nodes();
    ASSERT_EQ(rules.size(), 2U);
    EXPECT_EQ(rules[0].rule_action, 1);
    EXPECT_STREQ(rules[0].source_ip_address, "203.0.113.1");
    EXPECT_STREQ(rules[0].dest_ip_address, "10.40.0.1");
    EXPECT_EQ(rules[0].source_subnet_mask, 20);
    EXPECT_EQ(rules[0].dest_subnet_mask, 21);
    EXPECT_EQ(rules[0].source_port_from, 1001);
    EXPECT_EQ(rules[0].source_port_to, 1002);
    EXPECT_EQ(rules[0].dest_port_from, 1003);
    EXPECT_EQ(rules[0].dest_port_to, 1004);
    EXPECT_EQ(rules[0].direction, 101U);
    EXPECT_EQ(rules[0].protocol, 102U);
    EXPECT_STREQ(rules[0].interface_index, "wan1");
    EXPECT_EQ(rules[1].rule_action, 1);
    EXPECT_STREQ(rules[1].source_ip_address, "203.0.113.2");
    EXPECT_STREQ(rules[1].dest_ip_address, "10.40.0.2");
    EXPECT_EQ(rules[1].source_subnet_mask, 22);
    EXPECT_EQ(rules[1].dest_subnet_mask, 23);
    EXPECT_EQ(rules[1].source_port_from, 2001);
    EXPECT_EQ(rules[1].source_port_to, 2002);
    EXPECT_EQ(rules[1].dest_port_from, 2003);
    EXPECT_EQ(rules[1].dest_port_to, 2004);
    EXPECT_EQ(rules[1].direction, 201U);
    EXPECT_EQ(rules[1].protocol, 202U);
    EXPECT_STREQ(rules[1].interface_index, "wan2");
}

TEST_F(FirewallIpPortFilteringFrom, AsksForTheRequiredKeysInOrder)
{
    expect_required_in_order({
        {"outgoing_default_action", "outgoing_default_action", "field not found"},
        {"incoming_default_action", "incoming_default_action", "field not found"},
        {"filter_lists", "filter_lists", "field not found"},
    });
}

TEST_F(FirewallIpPortFilteringFrom, AsksForTheRequiredMembersOfARuleInOrder)
{
    expect_members_required_in_order({
        {"rule_action", "filter_lists.rule_action", "field not found"},
        {"source_subnet_mask", "filter_lists.source_subnet_mask", "field not found"},
        {"dest_subnet_mask", "filter_lists.dest_subnet_mask", "field not found"},
        {"source_port_from", "filter_lists.source_port_from", "field not found"},
        {"source_port_to", "filter_lists.source_port_to", "field not found"},
        {"dest_port_from", "filter_lists.dest_port_from", "field not found"},
        {"dest_port_to", "filter_lists.dest_port_to", "field not found"},
        {"direction", "filter_lists.direction", "field not found"},
        {"protocol", "filter_lists.protocol", "field not found"},
        {"interface_index", "filter_lists.interface_index", "field not found"},
    });
}

TEST_F(FirewallIpPortFilteringFrom, MissingKeysKeepTheActionsStoredBefore)
{
    EXPECT_TRUE(rejects(without(document, "outgoing_default_action"), "outgoing_default_action", "field not found"));
    EXPECT_TRUE(untouched(record().outgoing_default_action));
    EXPECT_TRUE(untouched(record().incoming_default_action));
    EXPECT_TRUE(rejects(without(document, "incoming_default_action"), "incoming_default_action", "field not found"));
    EXPECT_EQ(record().outgoing_default_action, 11U);
    EXPECT_TRUE(untouched(record().incoming_default_action));
    EXPECT_TRUE(rejects(without(document, "filter_lists"), "filter_lists", "field not found"));
    EXPECT_EQ(record().incoming_default_action, 12U);
    EXPECT_EQ(record().filter_lists, nullptr);
}

TEST_F(FirewallIpPortFilteringFrom, MissingPortLeavesItsRuleLinkedWithWhatWasRead)
{
    leaks_document_ = true;
    EXPECT_TRUE(
        rejects(without(document, "filter_lists.1.dest_port_to"), "filter_lists.dest_port_to", "field not found"));
    const std::vector<Rule> rules = nodes();
    ASSERT_EQ(rules.size(), 2U);
    EXPECT_STREQ(rules[0].interface_index, "wan1");
    EXPECT_EQ(rules[1].rule_action, 1);
    EXPECT_STREQ(rules[1].source_ip_address, "203.0.113.2");
    EXPECT_STREQ(rules[1].dest_ip_address, "10.40.0.2");
    EXPECT_EQ(rules[1].source_subnet_mask, 22);
    EXPECT_EQ(rules[1].dest_subnet_mask, 23);
    EXPECT_EQ(rules[1].source_port_from, 2001);
    EXPECT_EQ(rules[1].source_port_to, 2002);
    EXPECT_EQ(rules[1].dest_port_from, 2003);
    EXPECT_EQ(rules[1].dest_port_to, 0);
    EXPECT_EQ(rules[1].direction, 0U);
    EXPECT_EQ(rules[1].protocol, 0U);
    EXPECT_STREQ(rules[1].interface_index, "");
}

TEST_F(FirewallIpPortFilteringFrom, MissingMaskLeavesTheAddressesStored)
{
    leaks_document_ = true;
    EXPECT_TRUE(rejects(without(document, "filter_lists.0.source_subnet_mask"), "filter_lists.source_subnet_mask",
                        "field not found"));
    const std::vector<Rule> rules = nodes();
    ASSERT_EQ(rules.size(), 1U);
    EXPECT_STREQ(rules[0].source_ip_address, "203.0.113.1");
    EXPECT_STREQ(rules[0].dest_ip_address, "10.40.0.1");
    EXPECT_EQ(rules[0].source_subnet_mask, 0);
    EXPECT_EQ(rules[0].dest_subnet_mask, 0);
}

TEST_F(FirewallIpPortFilteringFrom, MissingActionLeavesItsRuleLinkedAndEmpty)
{
    leaks_document_ = true;
    EXPECT_TRUE(
        rejects(without(document, "filter_lists.1.rule_action"), "filter_lists.rule_action", "field not found"));
    const std::vector<Rule> rules = nodes();
    ASSERT_EQ(rules.size(), 2U);
    EXPECT_EQ(rules[1].rule_action, 0);
    EXPECT_STREQ(rules[1].source_ip_address, "");
    EXPECT_STREQ(rules[1].dest_ip_address, "");
    EXPECT_EQ(rules[1].source_subnet_mask, 0);
}

TEST_F(FirewallIpPortFilteringFrom, AFailingRuleIsLinkedBehindTheFirstThatIsThere)
{
    record().filter_lists = kelmora_host::make_chain<Rule>({{.protocol = 1}, {.protocol = 2}});
    leaks_document_ = true;
    EXPECT_TRUE(rejects(without(document, "filter_lists.1.interface_index"), "filter_lists.interface_index",
                        "field not found"));
    EXPECT_THAT(protocols(), ElementsAre(1, 102, 202));
}

TEST_F(FirewallIpPortFilteringFrom, BuildsNoRuleFromAnythingButAnArray)
{
    const std::string object = rule_of_protocol(1);
    for (const char *other : {"[]", "{}", object.c_str(), "\"filter_lists\"", "null", "3", "true", "1.5"}) {
        poison();
        EXPECT_TRUE(accepts(with_list(other)));
        EXPECT_EQ(record().filter_lists, nullptr) << other;
        EXPECT_EQ(record().incoming_default_action, 12U);
    }
}

TEST_F(FirewallIpPortFilteringFrom, LeavesTheChainAloneWhenThereIsNothingToAdd)
{
    record().filter_lists = kelmora_host::make_chain<Rule>({{.protocol = 1}, {.protocol = 2}});
    EXPECT_TRUE(accepts(with_list("[]")));
    EXPECT_THAT(protocols(), ElementsAre(1, 2));
    EXPECT_TRUE(rejects(without(document, "filter_lists"), "filter_lists", "field not found"));
    EXPECT_THAT(protocols(), ElementsAre(1, 2));
}

TEST_F(FirewallIpPortFilteringFrom, HangsNewRulesBehindTheFirstThatIsThere)
{
    record().filter_lists = kelmora_host::make_chain<Rule>({{.protocol = 1}, {.protocol = 2}, {.protocol = 3}});
    const Rule *first = record().filter_lists;
    EXPECT_TRUE(accepts(document)); // what was let go of is freed by the caller
    EXPECT_EQ(record().filter_lists, first);
    EXPECT_THAT(protocols(), ElementsAre(1, 102, 202));
}

TEST_F(FirewallIpPortFilteringFrom, BuildsAsManyRulesAsThereAreElements)
{
    std::string json;
    for (std::size_t count = 0; count <= 20; ++count) {
        poison();
        EXPECT_TRUE(accepts(with_list("[" + json + "]")));
        const std::vector<std::uint32_t> stored = protocols();
        ASSERT_EQ(stored.size(), count);
        for (std::size_t i = 0; i < count; ++i)
            EXPECT_EQ(stored[i], 100 + i);
        json += (count == 0 ? "" : ", ") + rule_of_protocol(100 + count);
    }
}

TEST_F(FirewallIpPortFilteringFrom, LeavesAddressesThatAreAbsentEmpty)
{
    expect_member_optional("source_ip_address", &Rule::source_ip_address);
    expect_member_optional("dest_ip_address", &Rule::dest_ip_address);
}

TEST_F(FirewallIpPortFilteringFrom, TakesOnlyTrueForTrue)
{
    EXPECT_EQ(stored("rule_action", "true").rule_action, 1);
    for (const char *other : {"false", "1", "1.0", "\"true\"", "null", "{}", "[true]"})
        EXPECT_EQ(stored("rule_action", other).rule_action, 0) << other;
}

TEST_F(FirewallIpPortFilteringFrom, CutsIntegersToTheirWidth)
{
    expect_integer("outgoing_default_action", record().outgoing_default_action);
    expect_integer("incoming_default_action", record().incoming_default_action);
    expect_member_integer("source_subnet_mask", &Rule::source_subnet_mask);
    expect_member_integer("dest_subnet_mask", &Rule::dest_subnet_mask);
    expect_member_integer("source_port_from", &Rule::source_port_from);
    expect_member_integer("source_port_to", &Rule::source_port_to);
    expect_member_integer("dest_port_from", &Rule::dest_port_from);
    expect_member_integer("dest_port_to", &Rule::dest_port_to);
    expect_member_integer("direction", &Rule::direction);
    expect_member_integer("protocol", &Rule::protocol);
}

TEST_F(FirewallIpPortFilteringFrom, CutsTextsToTheirField)
{
    expect_member_string("source_ip_address", &Rule::source_ip_address);
    expect_member_string("dest_ip_address", &Rule::dest_ip_address);
    expect_member_string("interface_index", &Rule::interface_index);
}

TEST(FirewallIpPortFiltering, TakesBackWhatItWrote)
{
    std::vector<kelmora_host::Node> nodes;
    nodes.emplace_back("0", kelmora_host::Record(kelmora_firewall_ip_port_filtering{}));
    EXPECT_EQ(kelmora_host::from_json(firewall_ip_port_filtering_from_translator, nodes.front(), sample_text).result,
              1);
    EXPECT_EQ(kelmora_host::to_json(firewall_ip_port_filtering_to_translator, nodes, false).text, sample_text);
}

} // namespace

} // namespace kelmora_test::firewall_ip_port_filtering_test
