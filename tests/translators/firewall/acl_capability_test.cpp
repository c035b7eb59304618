#include "tests/support/from_test.h"
#include "tests/support/to_test.h"

#include "kelmora_json.h"
#include "records/firewall.h"

namespace kelmora_test::acl_capability_test {

namespace {

using testing::HasSubstr;

constexpr kelmora_acl_capability sample{
    .capability = 1,
    .available_services = {"telnet", "ftp", "", "http", "https", "ping", "ssh", "g/ä"},
};

constexpr char sample_text[] = R"({"id": "first", "acl_capability": true, )"
                               R"("available_services": ["telnet", "ftp", "", "http", "https", "ping", "ssh", "g/ä"]})";

constexpr char empty_text[] = R"({"id": "second", "acl_capability": false, )"
                              R"("available_services": ["", "", "", "", "", "", "", ""]})";

class AclCapabilityTo : public ToTest<kelmora_acl_capability> {
protected:
    AclCapabilityTo() : ToTest(acl_capability_to_translator) {}
};

TEST_F(AclCapabilityTo, WritesTheKeysAndTheServicesInOrder)
{
    add("first", sample);
    EXPECT_EQ(object(), sample_text);
    EXPECT_EQ(list(), "[" + std::string(sample_text) + "]");
}

TEST_F(AclCapabilityTo, WritesEightServicesEvenWhenAllAreEmpty)
{
    add("second");
    EXPECT_EQ(object(), empty_text);
}

TEST_F(AclCapabilityTo, WritesAnySwitchButZeroAsTrue)
{
    for (const int on : {1, 2, 128, 255}) {
        nodes_.clear();
        add("").capability = static_cast<std::uint8_t>(on);
        EXPECT_THAT(object(), HasSubstr("\"acl_capability\": true"));
    }
}

TEST_F(AclCapabilityTo, CutsEachServiceToSixCharacters)
{
    kelmora_acl_capability &capability = add("first");
    char character = 'a';
    for (auto &service : capability.available_services)
        fill_whole(service, character++); // no NUL between the names
    EXPECT_THAT(object(), HasSubstr(R"(["aaaaaa", "bbbbbb", "cccccc", "dddddd", "eeeeee", "ffffff", "gggggg", )"
                                    R"("hhhhhh"]})"));
}

TEST_F(AclCapabilityTo, LeavesOutTextsWhoseCutSplitsACharacter)
{
    kelmora_acl_capability &capability = add("first", sample);
    fill_whole(capability.available_services[1], 'f');
    capability.available_services[1][5] = '\xC3'; // the first byte of a two-byte character: the last that is written
    capability.available_services[1][6] = '\xA4';
    fill_whole(nodes_.front().resource()->id, 'n');
    nodes_.front().resource()->id[127] = '\xC3';
    nodes_.front().resource()->id[128] = '\xA4';
    EXPECT_EQ(object(), R"({"acl_capability": true, )"
                        R"("available_services": ["telnet", "", "http", "https", "ping", "ssh", "g/ä"]})");
}

constexpr char document[] = R"({
    "available_services": ["never", "read", "", "", "", "", "", ""], "acl_capability": true, "id": "never read"
})";

class AclCapabilityFrom : public FromTest<kelmora_acl_capability> {
protected:
    AclCapabilityFrom() : FromTest(acl_capability_from_translator, document) {}
};

TEST_F(AclCapabilityFrom, StoresTheCapabilityAlone)
{
    EXPECT_TRUE(accepts(document));
    EXPECT_EQ(record().capability, 1);
    EXPECT_TRUE(untouched(record().available_services));
}

TEST_F(AclCapabilityFrom, AsksForTheCapability)
{
    expect_required_in_order({{"acl_capability", "acl_capability", "acl_capability field not found"}});
}

TEST_F(AclCapabilityFrom, MissingCapabilityStoresNothing)
{
    for (const char *text : {"{}", "[]", R"({"available_services": ["ssh"]})", R"({"capability": true})",
                             R"({"ipv6_acl_capability": true})", R"([{"acl_capability": true}])"}) {
        EXPECT_TRUE(rejects(text, "acl_capability", "acl_capability field not found"));
        EXPECT_TRUE(untouched(record()));
    }
}

TEST_F(AclCapabilityFrom, NeverReadsTheServices)
{
    for (const char *json : {"[]", "null", "true", R"(["ssh", 1, null])", R"({"0": "ssh"})"}) {
        poison();
        EXPECT_TRUE(accepts(with(document, "available_services", json)));
        EXPECT_EQ(record().capability, 1);
        EXPECT_TRUE(untouched(record().available_services)) << json;
    }
    EXPECT_TRUE(accepts(without(document, "available_services")));
}

TEST_F(AclCapabilityFrom, TakesOnlyTrueForTrue) { expect_boolean("acl_capability", record().capability); }

} // namespace

} // namespace kelmora_test::acl_capability_test
