#include "tests/support/from_test.h"
#include "tests/support/to_test.h"

#include "kelmora_json.h"
#include "records/wan_lan.h"

namespace kelmora_test::lan_test {

namespace {

constexpr kelmora_lan sample{.interfaceID = "br0", .gateway = "192.168.17.1"};

constexpr char sample_text[] = R"([{"interfaceID": "br0", "gateway": "192.168.17.1"}])";

class LanTo : public ToTest<kelmora_lan> {
protected:
    LanTo() : ToTest(lan_to_translator) {}
};

TEST_F(LanTo, WritesAnArrayOfOneObjectWhetherOrNotAListIsAskedFor)
{
    add("br0", sample);
    EXPECT_EQ(object(), sample_text);
    EXPECT_EQ(list(), sample_text);
}

TEST_F(LanTo, CutsTextsToOneByteLessThanTheirField)
{
    kelmora_lan &lan = add("0");
    fill_whole(lan.interfaceID, 'i');
    fill_whole(lan.gateway, 'g');
    EXPECT_EQ(object(), R"([{"interfaceID": ")" + std::string(127, 'i') + R"(", "gateway": "gggggggggggggggg"}])");
}

TEST_F(LanTo, WritesTextsThatJustFitWhole)
{
    kelmora_lan &lan = add("0");
    set(lan.interfaceID, std::string(127, 'i'));
    set(lan.gateway, "0123456789abcdef");
    EXPECT_EQ(object(), R"([{"interfaceID": ")" + std::string(127, 'i') + R"(", "gateway": "0123456789abcdef"}])");
}

TEST_F(LanTo, LeavesOutATextWhoseCutSplitsACharacter)
{
    kelmora_lan &lan = add("0", sample);
    fill_whole(lan.interfaceID, 'i');
    lan.interfaceID[126] = '\xC3'; // the last byte that is written
    lan.interfaceID[127] = '\xA4';
    EXPECT_EQ(object(), R"([{"gateway": "192.168.17.1"}])");
}

TEST_F(LanTo, LeavesOutATextThatIsNotUtf8)
{
    set(add("0", sample).gateway, "caf\xE9");
    EXPECT_EQ(object(), R"([{"interfaceID": "br0"}])");
}

TEST_F(LanTo, WritesOtherScriptsAndSlashesAsTheyAre)
{
    set(add("0", sample).interfaceID, "Büro/\"2\"");
    EXPECT_EQ(object(), "[{\"interfaceID\": \"Büro/\\\"2\\\"\", \"gateway\": \"192.168.17.1\"}]");
}

TEST_F(LanTo, GrowsTheBufferForManyInterfaces)
{
    for (int i = 0; i < 100; ++i)
        add("0", sample);
    const std::string text = object();
    EXPECT_EQ(text.size(), 5100U); // 100 objects of 49 characters, 99 times ", ", and the brackets
    EXPECT_THAT(text, testing::EndsWith(R"(, {"interfaceID": "br0", "gateway": "192.168.17.1"}])"));
    EXPECT_EQ(reallocations_, 1U);
}

constexpr char document[] = R"({"id": "never read", "gateway": "10.40.0.1", "interfaceID": "br2"})";

class LanFrom : public FromTest<kelmora_lan> {
protected:
    LanFrom() : FromTest(lan_from_translator, document) {}
};

TEST_F(LanFrom, StoresEveryKey)
{
    EXPECT_TRUE(accepts(document));
    EXPECT_STREQ(record().interfaceID, "br2");
    EXPECT_STREQ(record().gateway, "10.40.0.1");
    EXPECT_EQ(fetches_, 1U);
}

TEST_F(LanFrom, AsksForTheInterface)
{
    expect_required_in_order({{"interfaceID", "interfaceID", "interfaceID field not found"}});
}

TEST_F(LanFrom, MissingInterfaceStoresNothingAndLeavesTheRecordUnfetched)
{
    for (const char *text : {R"({"gateway": "10.40.0.1"})", "{}", "[]", R"([{"interfaceID": "br2"}])"}) {
        EXPECT_TRUE(rejects(text, "interfaceID", "interfaceID field not found"));
        EXPECT_TRUE(untouched(record()));
        EXPECT_EQ(fetches_, 0U);
    }
}

TEST_F(LanFrom, LeavesTheRecordUnfetchedWithoutADocument)
{
    EXPECT_TRUE(accepts(""));
    EXPECT_EQ(fetches_, 0U);
    EXPECT_TRUE(rejects("{", "", "invalid json data"));
    EXPECT_EQ(fetches_, 0U);
}

TEST_F(LanFrom, TakesANullInterfaceForPresent)
{
    EXPECT_TRUE(accepts(R"({"interfaceID": null})"));
    EXPECT_STREQ(record().interfaceID, "");
    EXPECT_TRUE(untouched(record().gateway));
    EXPECT_EQ(fetches_, 1U);
}

TEST_F(LanFrom, KeepsTheGatewayThatIsAbsent) { expect_optional("gateway", record().gateway); }

TEST_F(LanFrom, CutsTextsToTheirField)
{
    expect_string("interfaceID", record().interfaceID);
    expect_string("gateway", record().gateway);
}

} // namespace

} // namespace kelmora_test::lan_test
