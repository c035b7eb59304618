#include "tests/support/from_test.h"
#include "tests/support/to_test.h"

#include "kelmora_json.h"
#include "records/firewall.h"

namespace kelmora_test {

namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

constexpr char on_text[] = "{\n"
                           "                \"enabled\": true,\n"
                           "                \"id\": \"wan\\/Z\\u00FCrich\"\n"
                           "}";

constexpr char both_text[] = "[\n"
                             "                {\n"
                             "                                \"enabled\": true,\n"
                             "                                \"id\": \"first\"\n"
                             "                },\n"
                             "                {\n"
                             "                                \"enabled\": false,\n"
                             "                                \"id\": \"second\"\n"
                             "                }\n"
                             "]";

class FirewallPortForwardingEnableTo : public ToTest<kelmora_firewall_port_forwarding_enable> {
protected:
    FirewallPortForwardingEnableTo() : ToTest(firewall_port_forwarding_enable_to_translator) {}
};

TEST_F(FirewallPortForwardingEnableTo, WritesSortedKeysIndentedAndEscaped)
{
    add("wan/Zürich", {.enabled = 1});
    EXPECT_EQ(object(), on_text);
}

TEST_F(FirewallPortForwardingEnableTo, WritesOneObjectANodeIntoAList)
{
    add("first", {.enabled = 1});
    add("second");
    EXPECT_EQ(list(), both_text);
}

TEST_F(FirewallPortForwardingEnableTo, WritesAnEmptyArrayWhenTheCountIsZeroWhateverIsAskedFor)
{
    add("first", {.enabled = 1});
    EXPECT_EQ(list_counting(0), "[]");
    EXPECT_EQ(object_counting(0), "[]");
    EXPECT_EQ(allocations_, 0U);
}

TEST_F(FirewallPortForwardingEnableTo, WalksAllNodesWhateverTheCountSays)
{
    add("first", {.enabled = 1});
    add("second");
    for (const std::uint32_t count : {1U, 2U, 3U, 4294967295U})
        EXPECT_EQ(list_counting(count), both_text);
}

TEST_F(FirewallPortForwardingEnableTo, LeavesTheLastNodeInTheObjectWhenNoListIsAskedFor)
{
    add("second");
    add("wan/Zürich", {.enabled = 1});
    EXPECT_EQ(object(), on_text);
    EXPECT_EQ(object_counting(1), on_text);
}

TEST_F(FirewallPortForwardingEnableTo, WritesAnySwitchButZeroAsTrue)
{
    for (const int on : {1, 2, 128, 255}) {
        nodes_.clear();
        add("").enabled = static_cast<std::uint8_t>(on);
        EXPECT_THAT(object(), HasSubstr("\"enabled\": true"));
    }
}

TEST_F(FirewallPortForwardingEnableTo, CutsTheIdToOneByteLessThanItsField)
{
    add("");
    fill_whole(nodes_.front().resource()->id, 'n');
    EXPECT_THAT(object(), HasSubstr("\"id\": \"" + std::string(128, 'n') + '"'));
    nodes_.front().resource()->id[127] = '\xC3'; // the first byte of a two-byte character: the last that is written
    nodes_.front().resource()->id[128] = '\xA4';
    EXPECT_THAT(object(), AllOf(Not(HasSubstr("\"id\"")), HasSubstr("\"enabled\": false")));
}

TEST_F(FirewallPortForwardingEnableTo, SurvivesFailingMemory)
{
    add("first", {.enabled = 1});
    fill_whole(nodes_.front().resource()->id, 'n'); // a cut text takes an allocation of the library's own
    add("second");
    expect_survives_failing_memory();
}

class FirewallPortForwardingEnableFrom : public FromTest<kelmora_firewall_port_forwarding_enable> {
protected:
    FirewallPortForwardingEnableFrom()
        : FromTest(firewall_port_forwarding_enable_from_translator, R"({"id": "never read", "enabled": true})")
    {
    }
};

TEST_F(FirewallPortForwardingEnableFrom, StoresTheSwitch)
{
    EXPECT_TRUE(accepts(R"({"id": "never read", "enabled": true})"));
    EXPECT_EQ(record().enabled, 1);
    EXPECT_TRUE(accepts(R"({"enabled": false})"));
    EXPECT_EQ(record().enabled, 0);
}

TEST_F(FirewallPortForwardingEnableFrom, AcceptsADocumentWithoutTheSwitchAndKeepsIt)
{
    for (const char *text : {"{}", "[]", R"([{"enabled": true}])", R"({"Enabled": true, "id": "0"})"}) {
        EXPECT_TRUE(accepts(text));
        EXPECT_TRUE(untouched(record().enabled)) << text;
    }
    expect_optional("enabled", record().enabled);
}

TEST_F(FirewallPortForwardingEnableFrom, TakesOnlyTrueForTrue)
{
    expect_boolean("enabled", record().enabled);
    record().enabled = 1;
    EXPECT_TRUE(accepts(R"({"enabled": 1})"));
    EXPECT_EQ(record().enabled, 0);
}

TEST_F(FirewallPortForwardingEnableFrom, KeepsTheCommonContract) { expect_common_contract(); }

TEST_F(FirewallPortForwardingEnableFrom, SurvivesFailingMemory) { expect_survives_failing_memory(); }

} // namespace

} // namespace kelmora_test
