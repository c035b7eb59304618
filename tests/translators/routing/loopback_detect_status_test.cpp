#include "tests/support/from_test.h"
#include "tests/support/to_test.h"

#include "kelmora_json.h"
#include "records/routing.h"

namespace kelmora_test::loopback_detect_status_test {

namespace {

constexpr kelmora_loopback_detect_status sample{.port = "LAN3", .loop_detect = 1};

constexpr char sample_text[] = R"({"id": "0", "port": "LAN3", "loop_detect": true})";
class LoopbackDetectStatusTo : public ToTest<kelmora_loopback_detect_status> {
protected:
    LoopbackDetectStatusTo() : ToTest(loopback_detect_status_to_translator) {}
};

TEST_F(LoopbackDetectStatusTo, WritesTheKeysInOrder)
{
    add("0", sample);
    EXPECT_EQ(object(), sample_text);
    EXPECT_EQ(list(), "[" + std::string(sample_text) + "]");
}

TEST_F(LoopbackDetectStatusTo, WritesAnySwitchButZeroAsTrue)
{
    for (const int on : {2, 128, 255}) {
        nodes_.clear();
        add("0", sample).loop_detect = static_cast<std::uint8_t>(on);
        EXPECT_EQ(object(), sample_text);
    }
}

TEST_F(LoopbackDetectStatusTo, CutsTextsToOneByteLessThanTheirField)
{
    fill_whole(add("", sample).port, 'p');
    fill_whole(nodes_.front().resource()->id, 'n');
    EXPECT_EQ(object(), R"({"id": ")" + std::string(128, 'n') + R"(", "port": "pppp", "loop_detect": true})");
}

TEST_F(LoopbackDetectStatusTo, LeavesOutAPortWhoseCutSplitsACharacter)
{
    kelmora_loopback_detect_status &status = add("0", sample);
    fill_whole(status.port, 'p');
    status.port[3] = '\xC3'; // the first byte of a two-byte character: the last that is written
    status.port[4] = '\xA4';
    EXPECT_EQ(object(), R"({"id": "0", "loop_detect": true})");
}

TEST_F(LoopbackDetectStatusTo, WritesOtherScriptsAndSlashesAsTheyAre)
{
    set(add("0", sample).port, "ü/\"");
    EXPECT_EQ(object(), R"({"id": "0", "port": "ü/\"", "loop_detect": true})");
}

constexpr char document[] = R"({"id": "never read", "port": "LAN2", "loop_detect": true})";

class LoopbackDetectStatusFrom : public FromTest<kelmora_loopback_detect_status> {
protected:
    LoopbackDetectStatusFrom() : FromTest(loopback_detect_status_from_translator, document) {}
};

TEST_F(LoopbackDetectStatusFrom, StoresEveryKey)
{
    EXPECT_TRUE(accepts(document));
    EXPECT_STREQ(record().port, "LAN2");
    EXPECT_EQ(record().loop_detect, 1);
}

TEST_F(LoopbackDetectStatusFrom, AsksForTheRequiredKeysInOrder)
{
    expect_required_in_order({
        {"port", "port", "port field not found"},
        {"loop_detect", "loop_detect", "loop_detect field not found"},
    });
}

TEST_F(LoopbackDetectStatusFrom, MissingPortStoresNothing)
{
    EXPECT_TRUE(rejects(without(document, "port"), "port", "port field not found"));
    EXPECT_TRUE(untouched(record()));
}

TEST_F(LoopbackDetectStatusFrom, MissingLoopStateKeepsThePortStoredBefore)
{
    EXPECT_TRUE(rejects(without(document, "loop_detect"), "loop_detect", "loop_detect field not found"));
    EXPECT_STREQ(record().port, "LAN2");
    EXPECT_TRUE(untouched(record().loop_detect));
}

TEST_F(LoopbackDetectStatusFrom, CutsAPortOfEightCharactersToFour)
{
    EXPECT_TRUE(accepts(with(document, "port", "\"ethernet\"")));
    EXPECT_STREQ(record().port, "ethe");
    EXPECT_EQ(record().loop_detect, 1);
}

TEST_F(LoopbackDetectStatusFrom, TakesOnlyTrueForTrue) { expect_boolean("loop_detect", record().loop_detect); }

TEST_F(LoopbackDetectStatusFrom, CutsThePortToItsField) { expect_string("port", record().port); }

} // namespace

} // namespace kelmora_test::loopback_detect_status_test
