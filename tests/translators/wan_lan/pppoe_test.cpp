#include "tests/support/from_test.h"
#include "tests/support/to_test.h"

#include "kelmora_json.h"
#include "records/wan_lan.h"

namespace kelmora_test::pppoe_test {

namespace {

using testing::HasSubstr;

constexpr kelmora_pppoe sample{
    .interfaceID = "wan0",
    .username = "nordlicht@dsl.example",
    .password = "a lantern in the fog",
    .service = "internet",
    .server = "bras3.hafen",
    .mtu = 1492,
};

constexpr char sample_text[] = R"({"id": "wan0", "interfaceID": "wan0", "username": "nordlicht@dsl.example", )"
                               R"("password": "a lantern in the fog", "service": "internet", )"
                               R"("server": "bras3.hafen", "mtu": 1492})";

class PppoeTo : public ToTest<kelmora_pppoe> {
protected:
    PppoeTo() : ToTest(pppoe_to_translator) {}
};

TEST_F(PppoeTo, WritesTheKeysInOrderAndThePasswordInClear)
{
    add("wan0", sample);
    EXPECT_EQ(object(), sample_text);
    EXPECT_EQ(list(), "[" + std::string(sample_text) + "]");
}

TEST_F(PppoeTo, WritesTheMtuAsUnsigned)
{
    add("", {.mtu = 4294967295});
    EXPECT_THAT(object(), HasSubstr(R"("mtu": 4294967295})"));
}

TEST_F(PppoeTo, WritesOtherScriptsAsTheyAre)
{
    set(add("wan0", sample).password, "Gäste \"5/G\" 北");
    EXPECT_THAT(object(), HasSubstr("\"password\": \"Gäste \\\"5/G\\\" 北\""));
}

TEST_F(PppoeTo, CutsTextsToOneByteLessThanTheirField)
{
    kelmora_pppoe &pppoe = add("");
    fill_whole(pppoe.interfaceID, 'i');
    fill_whole(pppoe.username, 'u');
    fill_whole(pppoe.password, 'p');
    fill_whole(pppoe.service, 's');
    fill_whole(pppoe.server, 'S');
    fill_whole(nodes_.front().resource()->id, 'n');
    EXPECT_EQ(object(), R"({"id": ")" + std::string(128, 'n') + R"(", "interfaceID": ")" + std::string(127, 'i') +
                            R"(", "username": ")" + std::string(129, 'u') + R"(", "password": ")" +
                            std::string(129, 'p') + R"(", "service": ")" + std::string(40, 's') + R"(", "server": ")" +
                            std::string(40, 'S') + R"(", "mtu": 0})");
}

TEST_F(PppoeTo, LeavesOutATextWhoseCutSplitsACharacter)
{
    kelmora_pppoe &pppoe = add("wan0", sample);
    fill_whole(pppoe.username, 'u');
    pppoe.username[128] = '\xC3'; // the first byte of a two-byte character: the last that is written
    pppoe.username[129] = '\xA4';
    EXPECT_THAT(object(), HasSubstr(R"("interfaceID": "wan0", "password": "a lantern in the fog")"));
}

constexpr char document[] = R"({
    "interfaceID": "wan2", "username": "seeblick@fibre.example", "password": "nine gulls", "service": "business",
    "server": "bras7", "mtu": 1480, "id": "never read"
})";

class PppoeFrom : public FromTest<kelmora_pppoe> {
protected:
    PppoeFrom() : FromTest(pppoe_from_translator, document) {}
};

TEST_F(PppoeFrom, StoresEveryKey)
{
    EXPECT_TRUE(accepts(document));
    EXPECT_STREQ(record().interfaceID, "wan2");
    EXPECT_STREQ(record().username, "seeblick@fibre.example");
    EXPECT_STREQ(record().password, "nine gulls");
    EXPECT_STREQ(record().service, "business");
    EXPECT_STREQ(record().server, "bras7");
    EXPECT_EQ(record().mtu, 1480U);
}

TEST_F(PppoeFrom, AsksForTheRequiredKeysInOrder)
{
    expect_required_in_order({
        {"username", "username", "username field not found"},
        {"password", "password", "password field not found"},
        {"mtu", "mtu", "mtu field not found"},
    });
}

TEST_F(PppoeFrom, KeepsTheOptionalKeysThatAreAbsent)
{
    expect_optional("interfaceID", record().interfaceID);
    expect_optional("service", record().service);
    expect_optional("server", record().server);
}

TEST_F(PppoeFrom, MissingUsernameKeepsTheInterfaceStoredBefore)
{
    EXPECT_TRUE(rejects(without(document, "username"), "username", "username field not found"));
    EXPECT_STREQ(record().interfaceID, "wan2");
    EXPECT_TRUE(untouched(record().username));
    EXPECT_TRUE(untouched(record().password));
    EXPECT_TRUE(untouched(record().service));
    EXPECT_TRUE(untouched(record().server));
    EXPECT_TRUE(untouched(record().mtu));
}

TEST_F(PppoeFrom, MissingPasswordStoresNothingBehindIt)
{
    EXPECT_TRUE(rejects(without(document, "password"), "password", "password field not found"));
    EXPECT_STREQ(record().username, "seeblick@fibre.example");
    EXPECT_TRUE(untouched(record().password));
    EXPECT_TRUE(untouched(record().service));
    EXPECT_TRUE(untouched(record().server));
    EXPECT_TRUE(untouched(record().mtu));
}

TEST_F(PppoeFrom, MissingMtuKeepsEverythingElse)
{
    EXPECT_TRUE(rejects(without(document, "mtu"), "mtu", "mtu field not found"));
    EXPECT_STREQ(record().interfaceID, "wan2");
    EXPECT_STREQ(record().username, "seeblick@fibre.example");
    EXPECT_STREQ(record().password, "nine gulls");
    EXPECT_STREQ(record().service, "business");
    EXPECT_STREQ(record().server, "bras7");
    EXPECT_TRUE(untouched(record().mtu));
}

TEST_F(PppoeFrom, CutsIntegersToTheirWidth) { expect_integer("mtu", record().mtu); }

TEST_F(PppoeFrom, CutsTextsToTheirField)
{
    expect_string("interfaceID", record().interfaceID);
    expect_string("username", record().username);
    expect_string("password", record().password);
    expect_string("service", record().service);
    expect_string("server", record().server);
}

} // namespace

} // namespace kelmora_test::pppoe_test
