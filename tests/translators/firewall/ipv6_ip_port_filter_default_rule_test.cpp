#include "tests/support/from_test.h"
#include "tests/support/to_test.h"

#include "host/plugin/translate.h"

#include "kelmora_json.h"
#include "records/firewall.h"

namespace kelmora_test::ipv6_ip_port_filter_default_rule_test {

namespace {

constexpr kelmora_ipv6_ip_port_filter_default_rule sample{.default_incoming_action = 1, .default_outgoing_action = 2};

constexpr char sample_text[] = R"({"id": "0", "default_incoming_action": 1, "default_outgoing_action": 2})";

class Ipv6IpPortFilterDefaultRuleTo : public ToTest<kelmora_ipv6_ip_port_filter_default_rule> {
protected:
    Ipv6IpPortFilterDefaultRuleTo() : ToTest(ipv6_ip_port_filter_default_rule_to_translator) {}
};

TEST_F(Ipv6IpPortFilterDefaultRuleTo, WritesTheKeysInOrder)
{
    add("0", sample);
    EXPECT_EQ(object(), sample_text);
    EXPECT_EQ(list(), "[" + std::string(sample_text) + "]");
}

TEST_F(Ipv6IpPortFilterDefaultRuleTo, WritesCodesAsUnsigned)
{
    add("", {.default_incoming_action = 4294967295, .default_outgoing_action = 4294967294});
    EXPECT_EQ(object(), R"({"id": "", "default_incoming_action": 4294967295, "default_outgoing_action": 4294967294})");
}

// The long string comes first: where memory fails once, the JSON library may lose a character of the first
// long text, which must not be a key here.
constexpr char document[] =
    R"({"id": "an identifier, never read", "default_incoming_action": 11, "default_outgoing_action": 12})";

/// What a missing key is reported with in place of "json".
constexpr char own_name[] = "ipv6_ip_port_filter_default_rule";

class Ipv6IpPortFilterDefaultRuleFrom : public FromTest<kelmora_ipv6_ip_port_filter_default_rule> {
protected:
    Ipv6IpPortFilterDefaultRuleFrom() : FromTest(ipv6_ip_port_filter_default_rule_from_translator, document)
    {
        leaks_document_on_failure_ = true;
    }
};

TEST_F(Ipv6IpPortFilterDefaultRuleFrom, StoresEveryKey)
{
    EXPECT_TRUE(accepts(document));
    EXPECT_EQ(record().default_incoming_action, 11U);
    EXPECT_EQ(record().default_outgoing_action, 12U);
}

TEST_F(Ipv6IpPortFilterDefaultRuleFrom, AsksForTheKeysInOrderAndKeepsTheDocumentThatLacksOne)
{
    expect_required_in_order({
        {"default_incoming_action", "default_incoming_action", "field not found", own_name},
        {"default_outgoing_action", "default_outgoing_action", "field not found", own_name},
    });
}

TEST_F(Ipv6IpPortFilterDefaultRuleFrom, MissingIncomingActionStoresNothing)
{
    EXPECT_TRUE(
        rejects(without(document, "default_incoming_action"), "default_incoming_action", "field not found", own_name));
    EXPECT_TRUE(untouched(record()));
}

TEST_F(Ipv6IpPortFilterDefaultRuleFrom, MissingOutgoingActionKeepsTheIncomingOne)
{
    EXPECT_TRUE(
        rejects(without(document, "default_outgoing_action"), "default_outgoing_action", "field not found", own_name));
    EXPECT_EQ(record().default_incoming_action, 11U);
    EXPECT_TRUE(untouched(record().default_outgoing_action));
}

TEST_F(Ipv6IpPortFilterDefaultRuleFrom, CutsIntegersToTheirWidth)
{
    expect_integer("default_incoming_action", record().default_incoming_action);
    expect_integer("default_outgoing_action", record().default_outgoing_action);
}

TEST(Ipv6IpPortFilterDefaultRule, TakesBackWhatItWrote)
{
    std::vector<kelmora_host::Node> nodes;
    nodes.emplace_back("0", kelmora_host::Record(kelmora_ipv6_ip_port_filter_default_rule{}));
    EXPECT_EQ(
        kelmora_host::from_json(ipv6_ip_port_filter_default_rule_from_translator, nodes.front(), sample_text).result,
        1);
    EXPECT_EQ(kelmora_host::to_json(ipv6_ip_port_filter_default_rule_to_translator, nodes, false).text, sample_text);
}

} // namespace

} // namespace kelmora_test::ipv6_ip_port_filter_default_rule_test
