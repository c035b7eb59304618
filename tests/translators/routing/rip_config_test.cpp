#include "tests/support/from_test.h"
#include "tests/support/to_test.h"

#include "kelmora_json.h"
#include "records/routing.h"

namespace kelmora_test::rip_config_test {

namespace {

using testing::HasSubstr;

constexpr kelmora_rip_config sample{.interfaceID = "br0", .receive_mode = 2, .send_mode = 3};

constexpr char sample_text[] = R"({"id": "0", "interfaceID": "br0", "receive_mode": 2, "send_mode": 3})";
class RipConfigTo : public ToTest<kelmora_rip_config> {
protected:
    RipConfigTo() : ToTest(rip_config_to_translator) {}
};

TEST_F(RipConfigTo, WritesTheKeysInOrder)
{
    add("0", sample);
    EXPECT_EQ(object(), sample_text);
    EXPECT_EQ(list(), "[" + std::string(sample_text) + "]");
}

TEST_F(RipConfigTo, WritesTheModesAsUnsigned)
{
    add("0", {.receive_mode = 4294967295, .send_mode = 2147483648});
    EXPECT_EQ(object(), R"({"id": "0", "interfaceID": "", "receive_mode": 4294967295, "send_mode": 2147483648})");
}

TEST_F(RipConfigTo, CutsTextsToOneByteLessThanTheirField)
{
    fill_whole(add("", sample).interfaceID, 'i');
    fill_whole(nodes_.front().resource()->id, 'n');
    EXPECT_EQ(object(), R"({"id": ")" + std::string(128, 'n') +
                            R"(", "interfaceID": "iiiiiiiiiiiiiiiiiii", "receive_mode": 2, "send_mode": 3})");
}

TEST_F(RipConfigTo, LeavesOutATextWhoseCutSplitsACharacter)
{
    kelmora_rip_config &rip = add("0", sample);
    fill_whole(rip.interfaceID, 'i');
    rip.interfaceID[18] = '\xC3'; // the first byte of a two-byte character: the last that is written
    rip.interfaceID[19] = '\xA4';
    EXPECT_EQ(object(), R"({"id": "0", "receive_mode": 2, "send_mode": 3})");
}

TEST_F(RipConfigTo, WritesOtherScriptsAndSlashesAsTheyAre)
{
    set(add("0", sample).interfaceID, "Büro/\"2\"");
    EXPECT_THAT(object(), HasSubstr("\"interfaceID\": \"Büro/\\\"2\\\"\""));
}

constexpr char document[] = R"({"id": "never read", "interfaceID": "br1", "receive_mode": 1, "send_mode": 4})";

/// A missing key leaves the document unreleased, success releases it.
class RipConfigFrom : public FromTest<kelmora_rip_config> {
protected:
    RipConfigFrom() : FromTest(rip_config_from_translator, document) { leaks_document_on_failure_ = true; }
};

TEST_F(RipConfigFrom, StoresEveryKeyAndReleasesTheDocument)
{
    EXPECT_TRUE(accepts(document)); // which looks at the document as well
    EXPECT_STREQ(record().interfaceID, "br1");
    EXPECT_EQ(record().receive_mode, 1U);
    EXPECT_EQ(record().send_mode, 4U);
}

TEST_F(RipConfigFrom, AsksForTheKeysInOrderAndKeepsTheDocumentThatLacksOne)
{
    expect_required_in_order({
        {"interfaceID", "interfaceID", "interfaceID not found"},
        {"receive_mode", "receive_mode", "receive_mode not found"},
        {"send_mode", "send_mode", "send_mode not found"},
    });
}

TEST_F(RipConfigFrom, MissingInterfaceStoresNothing)
{
    EXPECT_TRUE(rejects(without(document, "interfaceID"), "interfaceID", "interfaceID not found"));
    EXPECT_TRUE(untouched(record()));
}

TEST_F(RipConfigFrom, MissingReceiveModeKeepsTheInterface)
{
    EXPECT_TRUE(rejects(without(document, "receive_mode"), "receive_mode", "receive_mode not found"));
    EXPECT_STREQ(record().interfaceID, "br1");
    EXPECT_TRUE(untouched(record().receive_mode));
    EXPECT_TRUE(untouched(record().send_mode));
}

TEST_F(RipConfigFrom, MissingSendModeKeepsEverythingStoredBefore)
{
    EXPECT_TRUE(rejects(without(document, "send_mode"), "send_mode", "send_mode not found"));
    EXPECT_STREQ(record().interfaceID, "br1");
    EXPECT_EQ(record().receive_mode, 1U);
    EXPECT_TRUE(untouched(record().send_mode));
}

TEST_F(RipConfigFrom, CutsTheModesToTheirWidth)
{
    expect_integer("receive_mode", record().receive_mode);
    expect_integer("send_mode", record().send_mode);
}

TEST_F(RipConfigFrom, CutsTheInterfaceToItsField) { expect_string("interfaceID", record().interfaceID); }

} // namespace

} // namespace kelmora_test::rip_config_test
