#include "tests/support/from_test.h"
#include "tests/support/to_test.h"

#include "kelmora_json.h"
#include "records/firewall.h"

namespace kelmora_test::firewall_port_forwarding_enable_test {

namespace {

using testing::HasSubstr;

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

TEST_F(FirewallPortForwardingEnableTo, WritesAnySwitchButZeroAsTrue)
{
    for (const int on : {1, 2, 128, 255}) {
        nodes_.clear();
        add("").enabled = static_cast<std::uint8_t>(on);
        EXPECT_THAT(object(), HasSubstr("\"enabled\": true"));
    }
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

} // namespace

} // namespace kelmora_test::firewall_port_forwarding_enable_test
