#include "tests/support/from_chain_test.h"
#include "tests/support/to_test.h"

#include "host/plugin/translate.h"

#include "kelmora_json.h"
#include "records/firewall.h"

namespace kelmora_test::firewall_mac_filtering_test {

namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;

using Rule = kelmora_firewall_mac_filtering_entry;

/// A new record each time, as each node owns its chain.
kelmora_firewall_mac_filtering sample()
{
    return {
        .incoming_default_act = 1,
        .outgoing_default_act = 2,
        .entry = kelmora_host::make_chain<Rule>({
            {.direction = 3,
             .source_mac = "02:00:5e:10:00:01",
             .destination_mac = "02:00:5e:10:00:02",
             .rule_action = 4},
            {.direction = 5, .source_mac = "", .destination_mac = "02:00:5e:10:00:03", .rule_action = 6},
        }),
    };
}

constexpr char sample_text[] =
    R"({"id": "0", "incoming_default_act": 1, "outgoing_default_act": 2, "entry": [)"
    R"({"direction": 3, "source_mac": "02:00:5e:10:00:01", "destination_mac": "02:00:5e:10:00:02", "rule_action": 4}, )"
    R"({"direction": 5, "source_mac": "", "destination_mac": "02:00:5e:10:00:03", "rule_action": 6}]})";

constexpr char empty_text[] = R"({"id": "1", "incoming_default_act": 0, "outgoing_default_act": 0, "entry": []})";

class FirewallMacFilteringTo : public ToTest<kelmora_firewall_mac_filtering> {
protected:
    FirewallMacFilteringTo() : ToTest(firewall_mac_filtering_to_translator) {}
};

TEST_F(FirewallMacFilteringTo, WritesTheKeysInOrder)
{
    add("0", sample());
    EXPECT_EQ(object(), sample_text);
    EXPECT_EQ(list(), "[" + std::string(sample_text) + "]");
}

TEST_F(FirewallMacFilteringTo, WritesNoRulesAsAnEmptyArray)
{
    add("1");
    EXPECT_EQ(object(), empty_text);
}

TEST_F(FirewallMacFilteringTo, WritesCodesAsUnsigned)
{
    constexpr std::uint32_t most = 4294967295;
    add("", {.incoming_default_act = most,
             .outgoing_default_act = most - 1,
             .entry = kelmora_host::make_chain<Rule>({{.direction = most - 2, .rule_action = most - 3}})});
    EXPECT_EQ(object(), R"({"id": "", "incoming_default_act": 4294967295, "outgoing_default_act": 4294967294, )"
                        R"("entry": [{"direction": 4294967293, "source_mac": "", "destination_mac": "", )"
                        R"("rule_action": 4294967292}]})");
}

TEST_F(FirewallMacFilteringTo, CutsTextsToOneByteLessThanTheirField)
{
    kelmora_firewall_mac_filtering &filter = add("", sample());
    fill_whole(filter.entry->next->source_mac, 's');
    fill_whole(filter.entry->next->destination_mac, 'd');
    fill_whole(nodes_.front().resource()->id, 'i');
    EXPECT_THAT(object(), AllOf(HasSubstr(R"("source_mac": ")" + std::string(17, 's') + R"(", "destination_mac": ")" +
                                          std::string(17, 'd') + '"'),
                                HasSubstr(R"({"id": ")" + std::string(128, 'i') + '"')));
}

TEST_F(FirewallMacFilteringTo, LeavesOutATextThatIsNotUtf8ButKeepsItsRule)
{
    kelmora_firewall_mac_filtering &filter = add("1", {.entry = kelmora_host::make_chain<Rule>({{.direction = 9}})});
    fill_whole(filter.entry->source_mac, 's');
    filter.entry->source_mac[16] = '\xC3'; // the first byte of a two-byte character: the last that is written
    filter.entry->source_mac[17] = '\xA4';
    set(filter.entry->destination_mac, "\xE9");
    EXPECT_EQ(object(), R"({"id": "1", "incoming_default_act": 0, "outgoing_default_act": 0, )"
                        R"("entry": [{"direction": 9, "rule_action": 0}]})");
}

TEST_F(FirewallMacFilteringTo, WritesAllRulesInTheirOrderIntoALargerBuffer)
{
    kelmora_firewall_mac_filtering &filter = add("0");
    for (std::uint32_t direction = 60; direction > 0; --direction) {
        auto *rule = kelmora_host::make_chain<Rule>({{.direction = direction}});
        rule->next = filter.entry;
        filter.entry = rule;
    }
    const std::string text = object();
    EXPECT_GT(text.size(), 4096U);
    EXPECT_EQ(reallocations_, 1U);
    std::size_t place = 0;
    for (int direction = 1; direction <= 60; ++direction) {
        place = text.find("{\"direction\": " + std::to_string(direction) + ",", place);
        ASSERT_NE(place, std::string::npos) << direction;
    }
    EXPECT_THAT(text, EndsWith("}]}"));
}

constexpr char document[] = R"({
    "incoming_default_act": 11, "outgoing_default_act": 12, "entry": [
        {"direction": 21, "source_mac": "02:00:5e:10:00:21", "destination_mac": "02:00:5e:10:00:22", "rule_action": 22},
        {"direction": 31, "source_mac": "02:00:5e:10:00:31", "destination_mac": "02:00:5e:10:00:32", "rule_action": 32},
        {"direction": 41, "source_mac": "02:00:5e:10:00:41", "destination_mac": "02:00:5e:10:00:42", "rule_action": 42}
    ],
    "id": "never read"
})";

class FirewallMacFilteringFrom : public FromChainTest<kelmora_firewall_mac_filtering, Rule> {
protected:
    FirewallMacFilteringFrom()
        : FromChainTest(firewall_mac_filtering_from_translator, document, "entry",
                        &kelmora_firewall_mac_filtering::entry)
    {
    }

    std::vector<std::uint32_t> directions()
    {
        std::vector<std::uint32_t> directions;
        for (const Rule &rule : nodes())
            directions.push_back(rule.direction);
        return directions;
    }
};

TEST_F(FirewallMacFilteringFrom, StoresEveryKey)
{
    EXPECT_TRUE(accepts(document));
    EXPECT_EQ(record().incoming_default_act, 11U);
    EXPECT_EQ(record().outgoing_default_act, 12U);
    const std::vector<Rule> rules = nodes();
    ASSERT_EQ(rules.size(), 3U);
    EXPECT_EQ(rules[0].direction, 21U);
    EXPECT_STREQ(rules[0].source_mac, "02:00:5e:10:00:21");
    EXPECT_STREQ(rules[0].destination_mac, "02:00:5e:10:00:22");
    EXPECT_EQ(rules[0].rule_action, 22U);
    EXPECT_EQ(rules[1].direction, 31U);
    EXPECT_STREQ(rules[1].source_mac, "02:00:5e:10:00:31");
    EXPECT_STREQ(rules[1].destination_mac, "02:00:5e:10:00:32");
    EXPECT_EQ(rules[1].rule_action, 32U);
    EXPECT_EQ(rules[2].direction, 41U);
    EXPECT_STREQ(rules[2].source_mac, "02:00:5e:10:00:41");
    EXPECT_STREQ(rules[2].destination_mac, "02:00:5e:10:00:42");
    EXPECT_EQ(rules[2].rule_action, 42U);
}

TEST_F(FirewallMacFilteringFrom, AsksForTheRequiredKeysInOrder)
{
    expect_required_in_order({
        {"incoming_default_act", "incoming_default_act", "field not found"},
        {"outgoing_default_act", "outgoing_default_act", "field not found"},
        {"entry", "entry", "field not found"},
    });
}

TEST_F(FirewallMacFilteringFrom, AsksForTheRequiredMembersOfARuleInOrder)
{
    expect_members_required_in_order({
        {"direction", "entry.direction", "field not found"},
        {"rule_action", "entry.rule_action", "field not found"},
    });
}

TEST_F(FirewallMacFilteringFrom, MissingKeysKeepTheActionsStoredBefore)
{
    EXPECT_TRUE(rejects(without(document, "incoming_default_act"), "incoming_default_act", "field not found"));
    EXPECT_TRUE(untouched(record().incoming_default_act));
    EXPECT_TRUE(untouched(record().outgoing_default_act));
    EXPECT_TRUE(rejects(without(document, "outgoing_default_act"), "outgoing_default_act", "field not found"));
    EXPECT_EQ(record().incoming_default_act, 11U);
    EXPECT_TRUE(untouched(record().outgoing_default_act));
    EXPECT_TRUE(rejects(without(document, "entry"), "entry", "field not found"));
    EXPECT_EQ(record().outgoing_default_act, 12U);
    EXPECT_EQ(record().entry, nullptr);
}

TEST_F(FirewallMacFilteringFrom, MissingDirectionLeavesItsRuleLinkedAndEmpty)
{
    leaks_document_ = true;
    EXPECT_TRUE(rejects(without(document, "entry.1.direction"), "entry.direction", "field not found"));
    const std::vector<Rule> rules = nodes();
    ASSERT_EQ(rules.size(), 2U);
    EXPECT_EQ(rules[0].direction, 21U);
    EXPECT_EQ(rules[0].rule_action, 22U);
    EXPECT_EQ(rules[1].direction, 0U);
    EXPECT_STREQ(rules[1].source_mac, "");
    EXPECT_STREQ(rules[1].destination_mac, "");
    EXPECT_EQ(rules[1].rule_action, 0U);
    EXPECT_EQ(record().incoming_default_act, 11U);
    EXPECT_EQ(record().outgoing_default_act, 12U);
}

TEST_F(FirewallMacFilteringFrom, MissingActionLeavesItsRuleLinkedWithWhatWasRead)
{
    leaks_document_ = true;
    EXPECT_TRUE(rejects(without(document, "entry.2.rule_action"), "entry.rule_action", "field not found"));
    const std::vector<Rule> rules = nodes();
    ASSERT_EQ(rules.size(), 3U);
    EXPECT_EQ(rules[1].rule_action, 32U);
    EXPECT_EQ(rules[2].direction, 41U);
    EXPECT_STREQ(rules[2].source_mac, "02:00:5e:10:00:41");
    EXPECT_STREQ(rules[2].destination_mac, "02:00:5e:10:00:42");
    EXPECT_EQ(rules[2].rule_action, 0U);
}

TEST_F(FirewallMacFilteringFrom, TheFirstRuleMayFailToo)
{
    leaks_document_ = true;
    EXPECT_TRUE(rejects(without(document, "entry.0.direction"), "entry.direction", "field not found"));
    EXPECT_THAT(directions(), ElementsAre(0));
}

TEST_F(FirewallMacFilteringFrom, AFailingRuleIsLinkedBehindTheFirstThatIsThere)
{
    record().entry = kelmora_host::make_chain<Rule>({{.direction = 1}, {.direction = 2}});
    leaks_document_ = true;
    EXPECT_TRUE(rejects(without(document, "entry.0.rule_action"), "entry.rule_action", "field not found"));
    EXPECT_THAT(directions(), ElementsAre(1, 21));
}

TEST_F(FirewallMacFilteringFrom, BuildsNoRuleFromAnythingButAnArray)
{
    for (const char *other :
         {"[]", "{}", R"({"direction": 1, "rule_action": 2})", "\"entry\"", "null", "3", "true", "1.5"}) {
        poison();
        EXPECT_TRUE(accepts(with_list(other)));
        EXPECT_EQ(record().entry, nullptr) << other;
        EXPECT_EQ(record().outgoing_default_act, 12U);
    }
}

TEST_F(FirewallMacFilteringFrom, LeavesTheChainAloneWhenThereIsNothingToAdd)
{
    record().entry = kelmora_host::make_chain<Rule>({{.direction = 1}, {.direction = 2}});
    EXPECT_TRUE(accepts(with_list("[]")));
    EXPECT_THAT(directions(), ElementsAre(1, 2));
    EXPECT_TRUE(rejects(without(document, "entry"), "entry", "field not found"));
    EXPECT_THAT(directions(), ElementsAre(1, 2));
}

TEST_F(FirewallMacFilteringFrom, HangsNewRulesBehindTheFirstThatIsThere)
{
    record().entry = kelmora_host::make_chain<Rule>({{.direction = 1}, {.direction = 2}, {.direction = 3}});
    const Rule *first = record().entry;
    EXPECT_TRUE(accepts(document)); // what was let go of is freed by the caller
    EXPECT_EQ(record().entry, first);
    EXPECT_THAT(directions(), ElementsAre(1, 21, 31, 41));
}

TEST_F(FirewallMacFilteringFrom, BuildsAsManyRulesAsThereAreElements)
{
    std::string json;
    for (std::size_t count = 0; count <= 20; ++count) {
        poison();
        EXPECT_TRUE(accepts(with_list("[" + json + "]")));
        const std::vector<std::uint32_t> stored = directions();
        ASSERT_EQ(stored.size(), count);
        for (std::size_t i = 0; i < count; ++i)
            EXPECT_EQ(stored[i], 100 + i);
        json += (count == 0 ? "" : ", ") + (R"({"rule_action": 7, "direction": )" + std::to_string(100 + count)) + "}";
    }
}

TEST_F(FirewallMacFilteringFrom, LeavesAddressesThatAreAbsentEmpty)
{
    expect_member_optional("source_mac", &Rule::source_mac);
    expect_member_optional("destination_mac", &Rule::destination_mac);
}

TEST_F(FirewallMacFilteringFrom, CutsIntegersToTheirWidth)
{
    expect_integer("incoming_default_act", record().incoming_default_act);
    expect_integer("outgoing_default_act", record().outgoing_default_act);
    expect_member_integer("direction", &Rule::direction);
    expect_member_integer("rule_action", &Rule::rule_action);
}

TEST_F(FirewallMacFilteringFrom, CutsTextsToTheirField)
{
    expect_member_string("source_mac", &Rule::source_mac);
    expect_member_string("destination_mac", &Rule::destination_mac);
}

TEST(FirewallMacFiltering, TakesBackWhatItWrote)
{
    std::vector<kelmora_host::Node> nodes;
    nodes.emplace_back("0", kelmora_host::Record(kelmora_firewall_mac_filtering{}));
    EXPECT_EQ(kelmora_host::from_json(firewall_mac_filtering_from_translator, nodes.front(), sample_text).result, 1);
    EXPECT_EQ(kelmora_host::to_json(firewall_mac_filtering_to_translator, nodes, false).text, sample_text);
}

} // namespace

} // namespace kelmora_test::firewall_mac_filtering_test
