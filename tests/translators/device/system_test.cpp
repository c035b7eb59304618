#include "tests/support/from_test.h"
#include "tests/support/to_test.h"

#include "kelmora_json.h"
#include "records/device.h"

namespace kelmora_test::system_test {

namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

constexpr kelmora_system sample{
    .upnp = 1,
    .sip_alg = 0,
    .upnp_wan_if = "ppp0/Büro",
    .operationMode = 2,
    .dmz_enabled = 1,
    .dmz_ip4 = "192.168.10.40",
    .ipv6_enabled = 0,
    .limited_user_enabled = 1,
};

class SystemTo : public ToTest<kelmora_system> {
protected:
    SystemTo() : ToTest(system_to_translator) {}
};

TEST_F(SystemTo, WritesSortedKeysIndentedAndEscaped)
{
    add("main", sample);
    EXPECT_EQ(object(), "{\n"
                        "                \"dmz\": {\n"
                        "                                \"enabled\": true,\n"
                        "                                \"ip4\": \"192.168.10.40\"\n"
                        "                },\n"
                        "                \"id\": \"main\",\n"
                        "                \"ipv6\": {\n"
                        "                                \"enabled\": false\n"
                        "                },\n"
                        "                \"limited_user_enabled\": true,\n"
                        "                \"operationMode\": 2,\n"
                        "                \"sip_alg\": false,\n"
                        "                \"upnp\": true,\n"
                        "                \"upnp_wan_if\": \"ppp0\\/B\\u00FCro\"\n"
                        "}");
    EXPECT_EQ(list(), "[\n"
                      "                {\n"
                      "                                \"dmz\": {\n"
                      "                                                \"enabled\": true,\n"
                      "                                                \"ip4\": \"192.168.10.40\"\n"
                      "                                },\n"
                      "                                \"id\": \"main\",\n"
                      "                                \"ipv6\": {\n"
                      "                                                \"enabled\": false\n"
                      "                                },\n"
                      "                                \"limited_user_enabled\": true,\n"
                      "                                \"operationMode\": 2,\n"
                      "                                \"sip_alg\": false,\n"
                      "                                \"upnp\": true,\n"
                      "                                \"upnp_wan_if\": \"ppp0\\/B\\u00FCro\"\n"
                      "                }\n"
                      "]");
}

TEST_F(SystemTo, WritesEachSwitchFromItsOwnField)
{
    expect_switches({{"upnp", &kelmora_system::upnp},
                     {"sip_alg", &kelmora_system::sip_alg},
                     {"limited_user_enabled", &kelmora_system::limited_user_enabled}});
    nodes_.clear();
    add("").dmz_enabled = 128;
    const std::string indent = "\n                                ";
    const std::string dmz_alone = object();
    EXPECT_THAT(dmz_alone, HasSubstr("\"dmz\": {" + indent + "\"enabled\": true"));
    EXPECT_THAT(dmz_alone, HasSubstr("\"ipv6\": {" + indent + "\"enabled\": false"));
    EXPECT_THAT(dmz_alone, HasSubstr("\"upnp\": false"));
    nodes_.clear();
    add("").ipv6_enabled = 128;
    const std::string ipv6_alone = object();
    EXPECT_THAT(ipv6_alone, HasSubstr("\"dmz\": {" + indent + "\"enabled\": false"));
    EXPECT_THAT(ipv6_alone, HasSubstr("\"ipv6\": {" + indent + "\"enabled\": true"));
    EXPECT_THAT(ipv6_alone, HasSubstr("\"sip_alg\": false"));
}

TEST_F(SystemTo, WritesTheOtherSettingOfEverySwitch)
{
    add("", {.upnp = 0,
             .sip_alg = 2,
             .operationMode = 4294967295,
             .dmz_enabled = 0,
             .ipv6_enabled = 255,
             .limited_user_enabled = 0});
    EXPECT_EQ(object(), "{\n"
                        "                \"dmz\": {\n"
                        "                                \"enabled\": false,\n"
                        "                                \"ip4\": \"\"\n"
                        "                },\n"
                        "                \"id\": \"\",\n"
                        "                \"ipv6\": {\n"
                        "                                \"enabled\": true\n"
                        "                },\n"
                        "                \"limited_user_enabled\": false,\n"
                        "                \"operationMode\": 4294967295,\n"
                        "                \"sip_alg\": true,\n"
                        "                \"upnp\": false,\n"
                        "                \"upnp_wan_if\": \"\"\n"
                        "}");
}

TEST_F(SystemTo, WritesAnySwitchButZeroAsTrue)
{
    add("", {.upnp = 2, .sip_alg = 4, .dmz_enabled = 128, .ipv6_enabled = 16, .limited_user_enabled = 255});
    EXPECT_THAT(object(), Not(HasSubstr("false")));
}

TEST_F(SystemTo, CutsTextsToOneByteLessThanTheirField)
{
    kelmora_system &system = add("");
    fill_whole(system.upnp_wan_if, 'w');
    fill_whole(system.dmz_ip4, '4');
    fill_whole(nodes_.front().resource()->id, 'n');
    EXPECT_THAT(object(), AllOf(HasSubstr("\"upnp_wan_if\": \"" + std::string(19, 'w') + '"'),
                                HasSubstr("\"ip4\": \"" + std::string(16, '4') + '"'),
                                HasSubstr("\"id\": \"" + std::string(128, 'n') + '"')));
}

TEST_F(SystemTo, LeavesOutTextsThatAreNotUtf8)
{
    kelmora_system &system = add("main", sample);
    set(system.dmz_ip4, "\xE9");
    set(system.upnp_wan_if, "\xE9");
    EXPECT_THAT(object(), AllOf(HasSubstr("\"dmz\": {\n"
                                          "                                \"enabled\": true\n"
                                          "                },\n"),
                                Not(HasSubstr("upnp_wan_if"))));
}

constexpr char document[] = R"({
    "upnp": true, "upnp_wan_if": "wan0", "operationMode": 3, "limited_user_enabled": true, "sip_alg": true,
    "dmz": {"enabled": true, "ip4": "192.168.10.77"}, "ipv6": {"enabled": true}, "id": "never read"
})";

class SystemFrom : public FromTest<kelmora_system> {
protected:
    SystemFrom() : FromTest(system_from_translator, document) {}
};

TEST_F(SystemFrom, StoresEveryKey)
{
    EXPECT_TRUE(accepts(document));
    EXPECT_EQ(record().upnp, 1);
    EXPECT_STREQ(record().upnp_wan_if, "wan0");
    EXPECT_EQ(record().operationMode, 3U);
    EXPECT_EQ(record().limited_user_enabled, 1);
    EXPECT_EQ(record().sip_alg, 1);
    EXPECT_EQ(record().dmz_enabled, 1);
    EXPECT_STREQ(record().dmz_ip4, "192.168.10.77");
    EXPECT_EQ(record().ipv6_enabled, 1);
}

TEST_F(SystemFrom, RequiresUpnp) { expect_required_in_order({{"upnp", "upnp", "upnp field not found"}}); }

TEST_F(SystemFrom, StoresNothingWithoutUpnp)
{
    EXPECT_TRUE(rejects(without(document, "upnp"), "upnp", "upnp field not found"));
    EXPECT_TRUE(untouched(record()));
}

TEST_F(SystemFrom, SucceedsWithUpnpAloneAndKeepsTheRest)
{
    EXPECT_TRUE(accepts(R"({"upnp": false})"));
    EXPECT_EQ(record().upnp, 0);
    EXPECT_TRUE(untouched(record().upnp_wan_if));
    EXPECT_TRUE(untouched(record().operationMode));
    EXPECT_TRUE(untouched(record().limited_user_enabled));
    EXPECT_TRUE(untouched(record().sip_alg));
    EXPECT_TRUE(untouched(record().dmz_enabled));
    EXPECT_TRUE(untouched(record().dmz_ip4));
    EXPECT_TRUE(untouched(record().ipv6_enabled));
}

TEST_F(SystemFrom, KeepsTheOptionalKeysThatAreAbsent)
{
    expect_optional("upnp_wan_if", record().upnp_wan_if);
    expect_optional("operationMode", record().operationMode);
    expect_optional("limited_user_enabled", record().limited_user_enabled);
    expect_optional("sip_alg", record().sip_alg);
    expect_optional("dmz", record().dmz_enabled);
    expect_optional("dmz", record().dmz_ip4);
    expect_optional("ipv6", record().ipv6_enabled);
    expect_optional("ipv6.enabled", record().ipv6_enabled);
}

TEST_F(SystemFrom, StoresBothFieldsOfTheDmzOrNeither)
{
    for (const char *dmz :
         {R"({"enabled": true})", R"({"ip4": "192.168.10.77"})", "{}", R"({"enabled": true, "IP4": "10.0.0.1"})"}) {
        poison();
        EXPECT_TRUE(accepts(with(document, "dmz", dmz)));
        EXPECT_TRUE(untouched(record().dmz_enabled)) << dmz;
        EXPECT_TRUE(untouched(record().dmz_ip4)) << dmz;
        EXPECT_EQ(record().ipv6_enabled, 1) << dmz << " stops the reading";
    }
}

TEST_F(SystemFrom, FindsNothingInADmzOrIpv6ThatIsNoObject)
{
    for (const char *other : {"null", "true", "1", R"("enabled")", R"([{"enabled": true, "ip4": "10.0.0.1"}])"}) {
        poison();
        EXPECT_TRUE(accepts(with(with(document, "dmz", other), "ipv6", other)));
        EXPECT_TRUE(untouched(record().dmz_enabled)) << other;
        EXPECT_TRUE(untouched(record().dmz_ip4)) << other;
        EXPECT_TRUE(untouched(record().ipv6_enabled)) << other;
    }
}

TEST_F(SystemFrom, TakesNullInTheDmzForPresent)
{
    EXPECT_TRUE(accepts(R"({"upnp": true, "dmz": {"enabled": null, "ip4": null}, "ipv6": {"enabled": null}})"));
    EXPECT_EQ(record().dmz_enabled, 0);
    EXPECT_EQ(std::string(record().dmz_ip4, 17), std::string(17, '\0'));
    EXPECT_EQ(record().ipv6_enabled, 0);
}

TEST_F(SystemFrom, TellsTheSwitchesOfDmzAndIpv6Apart)
{
    EXPECT_TRUE(
        accepts(R"({"upnp": true, "enabled": true, "dmz": {"enabled": false, "ip4": ""}, "ipv6": {"enabled": true}})"));
    EXPECT_EQ(record().dmz_enabled, 0);
    EXPECT_EQ(record().ipv6_enabled, 1);
}

TEST_F(SystemFrom, TakesOnlyTrueForTrue)
{
    expect_boolean("upnp", record().upnp);
    expect_boolean("limited_user_enabled", record().limited_user_enabled);
    expect_boolean("sip_alg", record().sip_alg);
    expect_boolean("dmz.enabled", record().dmz_enabled);
    expect_boolean("ipv6.enabled", record().ipv6_enabled);
}

TEST_F(SystemFrom, CutsTheOperationModeToItsWidth) { expect_integer("operationMode", record().operationMode); }

TEST_F(SystemFrom, CutsTextsToTheirField)
{
    expect_string("upnp_wan_if", record().upnp_wan_if);
    expect_string("dmz.ip4", record().dmz_ip4);
}

} // namespace

} // namespace kelmora_test::system_test
