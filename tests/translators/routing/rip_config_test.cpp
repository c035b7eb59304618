#include "tests/support/from_test.h"
#include "tests/support/to_test.h"

#include "kelmora_json.h"
#include "records/routing.h"

namespace kelmora_test {

namespace {

using testing::HasSubstr;

constexpr kelmora_rip_config sample{.interfaceID = "br0", .receive_mode = 2, .send_mode = 3};

constexpr char sample_text[] = R"({"id": "0", "interfaceID": "br0", "receive_mode": 2, "send_mode": 3})";
constexpr char empty_text[] = R"({"id": "1", "interfaceID": "", "receive_mode": 0, "send_mode": 0})";

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

TEST_F(RipConfigTo, WritesAnEmptyArrayWhenTheCountIsZeroWhateverIsAskedFor)
{
    add("0", sample);
    EXPECT_EQ(list_counting(0), "[]");
    EXPECT_EQ(object_counting(0), "[]");
    EXPECT_EQ(allocations_, 0U);
}

TEST_F(RipConfigTo, WalksAllNodesWhateverTheCountSays)
{
    add("0", sample);
    add("1");
    for (const std::uint32_t count : {1U, 2U, 3U, 4294967295U})
        EXPECT_EQ(list_counting(count), "[" + std::string(sample_text) + ", " + empty_text + "]");
}

TEST_F(RipConfigTo, LeavesTheLastNodeInTheObjectWhenNoListIsAskedFor)
{
    add("0", sample);
    add("1");
    EXPECT_EQ(object(), empty_text);
    EXPECT_EQ(object_counting(1), empty_text);
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

TEST_F(RipConfigTo, SurvivesFailingMemory)
{
    fill_whole(add("0", sample).interfaceID, 'i'); // cutting takes an allocation of the library's own
    add("1", sample);
    expect_survives_failing_memory();
}

constexpr char document[] = R"({"id": "never read", "interfaceID": "br1", "receive_mode": 1, "send_mode": 4})";

/// A missing key leaves the document unreleased, success releases it.
class RipConfigFrom : public FromTest<kelmora_rip_config> {
protected:
    RipConfigFrom() : FromTest(rip_config_from_translator, document) {}

    testing::AssertionResult misses(const std::string &text, const std::string &key)
    {
        keeps_document_ = true;
        const testing::AssertionResult result = rejects(text, key, key + " not found");
        keeps_document_ = false;
        return result;
    }
};

TEST_F(RipConfigFrom, StoresEveryKeyAndReleasesTheDocument)
{
    EXPECT_TRUE(accepts(document)); // which looks at the document as well
    EXPECT_STREQ(record().interfaceID, "br1");
    EXPECT_EQ(record().receive_mode, 1U);
    EXPECT_EQ(record().send_mode, 4U);
}

TEST_F(RipConfigFrom, MissingInterfaceStoresNothingAndKeepsTheDocument)
{
    for (const std::string &text :
         {std::string("{}"), std::string("[]"), "[" + document_ + "]", without(document, "interfaceID"),
          without_all(document, {"interfaceID", "receive_mode"}),
          without_all(document, {"interfaceID", "send_mode"})}) {
        EXPECT_TRUE(misses(text, "interfaceID"));
        EXPECT_TRUE(untouched(record()));
    }
}

TEST_F(RipConfigFrom, MissingReceiveModeKeepsTheInterfaceAndTheDocument)
{
    for (const std::string &text :
         {without(document, "receive_mode"), without_all(document, {"receive_mode", "send_mode"})}) {
        make_stale();
        EXPECT_TRUE(misses(text, "receive_mode"));
        EXPECT_STREQ(record().interfaceID, "br1");
        EXPECT_TRUE(untouched(record().receive_mode));
        EXPECT_TRUE(untouched(record().send_mode));
    }
}

TEST_F(RipConfigFrom, MissingSendModeKeepsEverythingStoredBeforeAndTheDocument)
{
    EXPECT_TRUE(misses(without(document, "send_mode"), "send_mode"));
    EXPECT_STREQ(record().interfaceID, "br1");
    EXPECT_EQ(record().receive_mode, 1U);
    EXPECT_TRUE(untouched(record().send_mode));
}

TEST_F(RipConfigFrom, CountsNullAsPresent)
{
    EXPECT_TRUE(accepts(R"({"interfaceID": null, "receive_mode": null, "send_mode": null})"));
    EXPECT_STREQ(record().interfaceID, "");
    EXPECT_EQ(record().receive_mode, 0U);
    EXPECT_EQ(record().send_mode, 0U);
}

TEST_F(RipConfigFrom, CutsTheModesToTheirWidth)
{
    expect_integer("receive_mode", record().receive_mode);
    expect_integer("send_mode", record().send_mode);
}

TEST_F(RipConfigFrom, CutsTheInterfaceToItsField) { expect_text("interfaceID", record().interfaceID); }

TEST_F(RipConfigFrom, KeepsTheCommonContract) { expect_common_contract(); }

TEST_F(RipConfigFrom, SurvivesFailingMemory) { expect_survives_failing_memory(); }

} // namespace

} // namespace kelmora_test
