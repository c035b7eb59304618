#include "tests/support/from_test.h"
#include "tests/support/to_test.h"

#include "kelmora_json.h"
#include "records/firewall.h"

namespace kelmora_test::ipv6_acl_capability_test {

namespace {

using testing::HasSubstr;

constexpr kelmora_ipv6_acl_capability sample{
    .capability = 1,
    .available_services = {"telnet", "ftp", "", "http", "https", "ping", "ssh", "g/ä"},
};

constexpr char sample_text[] = R"({"id": "first", "ipv6_acl_capability": true, )"
                               R"("available_services": ["telnet", "ftp", "", "http", "https", "ping", "ssh", "g/ä"]})";

constexpr char empty_text[] = R"({"id": "second", "ipv6_acl_capability": false, )"
                              R"("available_services": ["", "", "", "", "", "", "", ""]})";

class Ipv6AclCapabilityTo : public ToTest<kelmora_ipv6_acl_capability> {
protected:
    Ipv6AclCapabilityTo() : ToTest(ipv6_acl_capability_to_translator) {}
};

TEST_F(Ipv6AclCapabilityTo, WritesTheKeysAndTheServicesInOrder)
{
    add("first", sample);
    EXPECT_EQ(object(), sample_text);
    EXPECT_EQ(list(), "[" + std::string(sample_text) + "]");
}

TEST_F(Ipv6AclCapabilityTo, WritesEightServicesEvenWhenAllAreEmpty)
{
    add("second");
    EXPECT_EQ(object(), empty_text);
}

TEST_F(Ipv6AclCapabilityTo, WritesAnySwitchButZeroAsTrue)
{
    for (const int on : {1, 2, 128, 255}) {
        nodes_.clear();
        add("").capability = static_cast<std::uint8_t>(on);
        EXPECT_THAT(object(), HasSubstr("\"ipv6_acl_capability\": true"));
    }
}

TEST_F(Ipv6AclCapabilityTo, CutsEachServiceToSixCharacters)
{
    kelmora_ipv6_acl_capability &capability = add("first");
    char character = 'a';
    for (auto &service : capability.available_services)
        fill_whole(service, character++); // no NUL between the names
    EXPECT_THAT(object(), HasSubstr(R"(["aaaaaa", "bbbbbb", "cccccc", "dddddd", "eeeeee", "ffffff", "gggggg", )"
                                    R"("hhhhhh"]})"));
}

TEST_F(Ipv6AclCapabilityTo, LeavesOutTextsWhoseCutSplitsACharacter)
{
    kelmora_ipv6_acl_capability &capability = add("first", sample);
    fill_whole(capability.available_services[1], 'f');
    capability.available_services[1][5] = '\xC3'; // the first byte of a two-byte character: the last that is written
    capability.available_services[1][6] = '\xA4';
    fill_whole(nodes_.front().resource()->id, 'n');
    nodes_.front().resource()->id[127] = '\xC3';
    nodes_.front().resource()->id[128] = '\xA4';
    EXPECT_EQ(object(), R"({"ipv6_acl_capability": true, )"
                        R"("available_services": ["telnet", "", "http", "https", "ping", "ssh", "g/ä"]})");
}

constexpr char document[] = R"({
    "available_services": ["never", "read", "", "", "", "", "", ""], "ipv6_acl_capability": true, "id": "never read"
})";

class Ipv6AclCapabilityFrom : public FromTest<kelmora_ipv6_acl_capability> {
protected:
    Ipv6AclCapabilityFrom() : FromTest(ipv6_acl_capability_from_translator, document) {}
};

TEST_F(Ipv6AclCapabilityFrom, StoresTheCapabilityAlone)
{
    EXPECT_TRUE(accepts(document));
    EXPECT_EQ(record().capability, 1);
    EXPECT_TRUE(untouched(record().available_services));
}

TEST_F(Ipv6AclCapabilityFrom, AsksForTheCapability)
{
    expect_required_in_order({{"ipv6_acl_capability", "ipv6_acl_capability", "ipv6_acl_capability field not found"}});
}

TEST_F(Ipv6AclCapabilityFrom, MissingCapabilityStoresNothing)
{
    for (const char *text : {"{}", "[]", R"({"available_services": ["ssh"]})", R"({"capability": true})",
                             R"({"acl_capability": true})", R"([{"ipv6_acl_capability": true}])"}) {
        EXPECT_TRUE(rejects(text, "ipv6_acl_capability", "ipv6_acl_capability field not found"));
        EXPECT_TRUE(untouched(record()));
    }
}

TEST_F(Ipv6AclCapabilityFrom, NeverReadsTheServices)
{
    for (const char *json : {"[]", "null", "true", R"(["ssh", 1, null])", R"({"0": "ssh"})"}) {
        poison();
        EXPECT_TRUE(accepts(with(document, "available_services", json)));
        EXPECT_EQ(record().capability, 1);
        EXPECT_TRUE(untouched(record().available_services)) << json;
    }
    EXPECT_TRUE(accepts(without(document, "available_services")));
}

TEST_F(Ipv6AclCapabilityFrom, TakesOnlyTrueForTrue) { expect_boolean("ipv6_acl_capability", record().capability); }

} // namespace

} // namespace kelmora_test::ipv6_acl_capability_test
