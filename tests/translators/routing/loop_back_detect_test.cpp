#include "tests/support/from_test.h"
#include "tests/support/to_test.h"

#include "kelmora_json.h"
#include "records/routing.h"

#include <utility>

namespace kelmora_test::loop_back_detect_test {

namespace {

using testing::HasSubstr;

constexpr kelmora_loop_back_detect sample{
    .enabled = 1,
    .detection_interval = 5,
    .recovery_interval = 300,
    .frame_type = 0x800,
    .vlan_list = {{.vlan_id = 7, .in_use = 1}, {.vlan_id = 8, .in_use = 1}},
};

constexpr char sample_text[] = R"({"id": "0", "enabled": true, "detection_interval": 5, "recovery_interval": 300, )"
                               R"("frame_type": "0x800", "vlan_list": [7, 8]})";

constexpr char empty_text[] = R"({"id": "1", "enabled": false, "detection_interval": 0, "recovery_interval": 0, )"
                              R"("frame_type": "0x0", "vlan_list": []})";

class LoopBackDetectTo : public ToTest<kelmora_loop_back_detect> {
protected:
    LoopBackDetectTo() : ToTest(loop_back_detect_to_translator) {}
};

TEST_F(LoopBackDetectTo, WritesTheKeysInOrder)
{
    add("0", sample);
    EXPECT_EQ(object(), sample_text);
    EXPECT_EQ(list(), "[" + std::string(sample_text) + "]");
}

TEST_F(LoopBackDetectTo, WritesAnEmptyRecord)
{
    add("1");
    EXPECT_EQ(object(), empty_text);
}

TEST_F(LoopBackDetectTo, WritesTheFrameTypeInHexadecimalAndLosesAFourthDigit)
{
    for (const auto &[frame_type, text] : std::vector<std::pair<int, std::string>>{{0x0, "0x0"},
                                                                                   {0x1, "0x1"},
                                                                                   {0xF, "0xF"},
                                                                                   {0x10, "0x10"},
                                                                                   {0xAB, "0xAB"},
                                                                                   {0x100, "0x100"},
                                                                                   {0x800, "0x800"},
                                                                                   {0xFFF, "0xFFF"},
                                                                                   {0x1000, "0x100"},
                                                                                   {0x8100, "0x810"},
                                                                                   {0x88A8, "0x88A"},
                                                                                   {0x9ABC, "0x9AB"},
                                                                                   {0xFFFF, "0xFFF"}}) {
        nodes_.clear();
        add("0").frame_type = static_cast<std::uint16_t>(frame_type);
        EXPECT_THAT(object(), HasSubstr(R"("frame_type": ")" + text + R"(", "vlan_list")"));
    }
}

TEST_F(LoopBackDetectTo, WritesIntegersAsUnsigned)
{
    add("0", {.detection_interval = 65535, .recovery_interval = 32768, .vlan_list = {{.vlan_id = 65534, .in_use = 1}}});
    EXPECT_EQ(object(), R"({"id": "0", "enabled": false, "detection_interval": 65535, "recovery_interval": 32768, )"
                        R"("frame_type": "0x0", "vlan_list": [65534]})");
}

TEST_F(LoopBackDetectTo, SkipsUnusedSlots)
{
    add("1", {.vlan_list = {{.vlan_id = 1, .in_use = 0},
                            {.vlan_id = 2, .in_use = 1},
                            {.vlan_id = 3, .in_use = 0},
                            {.vlan_id = 0, .in_use = 1},
                            {.vlan_id = 2, .in_use = 1}}});
    EXPECT_EQ(object(), R"({"id": "1", "enabled": false, "detection_interval": 0, "recovery_interval": 0, )"
                        R"("frame_type": "0x0", "vlan_list": [2, 0, 2]})");
}

TEST_F(LoopBackDetectTo, WritesTheLastSlotToo)
{
    add("0", sample).vlan_list[15] = {.vlan_id = 4094, .in_use = 1};
    EXPECT_THAT(object(), HasSubstr(R"("vlan_list": [7, 8, 4094]})"));
}

TEST_F(LoopBackDetectTo, WritesAllSixteenSlotsInOrder)
{
    kelmora_loop_back_detect &detection = add("0");
    for (int i = 0; i < 16; ++i)
        detection.vlan_list[i] = {.vlan_id = static_cast<std::uint16_t>(100 - i), .in_use = 1};
    EXPECT_THAT(object(),
                HasSubstr(R"("vlan_list": [100, 99, 98, 97, 96, 95, 94, 93, 92, 91, 90, 89, 88, 87, 86, 85]})"));
}

TEST_F(LoopBackDetectTo, TakesAnySwitchButZeroForTrue)
{
    for (const int on : {2, 128, 255}) {
        nodes_.clear();
        kelmora_loop_back_detect &detection = add("0", sample);
        detection.enabled = static_cast<std::uint8_t>(on);
        detection.vlan_list[1].in_use = static_cast<std::uint8_t>(on);
        EXPECT_EQ(object(), sample_text);
    }
}

TEST_F(LoopBackDetectTo, WritesOtherScriptsAndSlashesAsTheyAre)
{
    add("zürich/1");
    EXPECT_THAT(object(), HasSubstr(R"("id": "zürich/1")"));
}

constexpr char document[] = R"({
    "id": "never read", "enabled": true, "detection_interval": 10, "recovery_interval": 600, "frame_type": "0x88A8",
    "vlan_list": [100, 101, 102]
})";

/// Success leaves the document unreleased, failures release it.
class LoopBackDetectFrom : public FromTest<kelmora_loop_back_detect> {
protected:
    LoopBackDetectFrom() : FromTest(loop_back_detect_from_translator, document) { leaks_document_on_success_ = true; }

    testing::AssertionResult misses(const std::string &key)
    {
        return rejects(without(document, key), key, key + " field not found");
    }

    /// The document with a list of so many VLANs, 200, 201 and so on.
    static std::string with_vlans(int count)
    {
        std::string json = "[";
        for (int i = 0; i < count; ++i)
            json += (i == 0 ? "" : ", ") + std::to_string(200 + i);
        return with(document, "vlan_list", json + "]");
    }

    std::uint16_t frame_type_of(const std::string &json)
    {
        poison();
        EXPECT_TRUE(accepts(with(document, "frame_type", json)));
        return record().frame_type;
    }
};

TEST_F(LoopBackDetectFrom, StoresEveryKeyAndKeepsTheDocument)
{
    EXPECT_TRUE(accepts(document)); // which looks at the document as well
    EXPECT_EQ(record().enabled, 1);
    EXPECT_EQ(record().detection_interval, 10);
    EXPECT_EQ(record().recovery_interval, 600);
    EXPECT_EQ(record().frame_type, 0x88A8);
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(record().vlan_list[i].vlan_id, 100 + i);
        EXPECT_EQ(record().vlan_list[i].in_use, 1);
    }
    for (int i = 3; i < 16; ++i)
        EXPECT_TRUE(untouched(record().vlan_list[i])) << i;
}

TEST_F(LoopBackDetectFrom, AsksForTheRequiredKeysInOrder)
{
    expect_required_in_order({
        {"enabled", "enabled", "enabled field not found"},
        {"detection_interval", "detection_interval", "detection_interval field not found"},
        {"recovery_interval", "recovery_interval", "recovery_interval field not found"},
        {"frame_type", "frame_type", "frame_type field not found"},
        {"vlan_list", "vlan_list", "vlan_list field not found"},
    });
}

TEST_F(LoopBackDetectFrom, MissingEnabledStoresNothing)
{
    EXPECT_TRUE(misses("enabled"));
    EXPECT_TRUE(untouched(record()));
}

TEST_F(LoopBackDetectFrom, MissingRecoveryIntervalStoresNothingBehindIt)
{
    EXPECT_TRUE(misses("recovery_interval"));
    EXPECT_EQ(record().enabled, 1);
    EXPECT_EQ(record().detection_interval, 10);
    EXPECT_TRUE(untouched(record().recovery_interval));
    EXPECT_TRUE(untouched(record().frame_type));
    EXPECT_TRUE(untouched(record().vlan_list));
}

TEST_F(LoopBackDetectFrom, MissingFrameTypeKeepsTheOldOne)
{
    EXPECT_TRUE(misses("frame_type"));
    EXPECT_EQ(record().recovery_interval, 600);
    EXPECT_TRUE(untouched(record().frame_type));
    EXPECT_TRUE(untouched(record().vlan_list));
}

TEST_F(LoopBackDetectFrom, MissingListKeepsEverythingStoredBefore)
{
    EXPECT_TRUE(misses("vlan_list"));
    EXPECT_EQ(record().enabled, 1);
    EXPECT_EQ(record().detection_interval, 10);
    EXPECT_EQ(record().recovery_interval, 600);
    EXPECT_EQ(record().frame_type, 0x88A8);
    EXPECT_TRUE(untouched(record().vlan_list));
}

TEST_F(LoopBackDetectFrom, ReadsTheFrameTypeInHexadecimalWithOrWithoutPrefix)
{
    EXPECT_EQ(frame_type_of(R"("8100")"), 0x8100);
    EXPECT_EQ(frame_type_of(R"("0x8100")"), 0x8100);
    EXPECT_EQ(frame_type_of(R"("0X88a8")"), 0x88A8);
    EXPECT_EQ(frame_type_of(R"("fFfF")"), 0xFFFF);
    EXPECT_EQ(frame_type_of(R"("010")"), 0x10);
    EXPECT_EQ(frame_type_of(R"("  \t0x800")"), 0x800);
    EXPECT_EQ(frame_type_of(R"("+800")"), 0x800);
    EXPECT_EQ(frame_type_of(R"("-1")"), 0xFFFF);
}

TEST_F(LoopBackDetectFrom, ReadsTheFrameTypeUpToItsFirstOtherCharacter)
{
    EXPECT_EQ(frame_type_of(R"("0x80g0")"), 0x80);
    EXPECT_EQ(frame_type_of(R"("800 ")"), 0x800);
    EXPECT_EQ(frame_type_of(R"("12.5")"), 0x12);
    EXPECT_EQ(frame_type_of(R"("0x")"), 0);
    EXPECT_EQ(frame_type_of(R"("0xg")"), 0);
}

TEST_F(LoopBackDetectFrom, StoresTheLowSixteenBitsOfTheFrameType)
{
    EXPECT_EQ(frame_type_of(R"("12345")"), 0x2345);
    EXPECT_EQ(frame_type_of(R"("0x7FFF8100")"), 0x8100);
    EXPECT_EQ(frame_type_of(R"("-10000")"), 0);
    EXPECT_EQ(frame_type_of(R"("ffffffffffffffffffff")"), 0xFFFF); // what is too large is the largest
    EXPECT_EQ(frame_type_of(R"("-ffffffffffffffffffff")"), 0);
}

TEST_F(LoopBackDetectFrom, StopsAFrameTypeAtTheLargestAndSmallestOf32Bits)
{
    EXPECT_EQ(frame_type_of(R"("7FFFFFFE")"), 0xFFFE);
    for (const char *larger :
         {"7FFFFFFF", "80000000", "0x80000001", "0xFFFF8100", "FFFFFFFF", "100000000", "0x100008100",
          "7FFFFFFFFFFFFFFF", "8000000000000000", "FFFFFFFFFFFF8100", "10000000000008100"})
        EXPECT_EQ(frame_type_of('"' + std::string(larger) + '"'), 0xFFFF) << larger;
    EXPECT_EQ(frame_type_of(R"("-7FFFFFFF")"), 1);
    for (const char *smaller :
         {"-80000000", "-80000001", "-FFFF8100", "-100008100", "-8000000000000000", "-FFFFFFFFFFFF8100"})
        EXPECT_EQ(frame_type_of('"' + std::string(smaller) + '"'), 0) << smaller;
}

TEST_F(LoopBackDetectFrom, StoresZeroForAFrameTypeThatIsNoNumber)
{
    for (const char *other :
         {R"("")", R"("ipx")", R"("#800")", R"("ü800")", "null", "2048", "8.5", "true", "false", "{}", R"(["0x800"])"})
        EXPECT_EQ(frame_type_of(other), 0) << other;
}

TEST_F(LoopBackDetectFrom, TakesUpToSixteenVlansAndKeepsTheSlotsBehindThem)
{
    for (int count = 0; count <= 16; ++count) {
        poison();
        EXPECT_TRUE(accepts(with_vlans(count)));
        for (int i = 0; i < count; ++i) {
            EXPECT_EQ(record().vlan_list[i].vlan_id, 200 + i) << i << " of " << count;
            EXPECT_EQ(record().vlan_list[i].in_use, 1) << i << " of " << count;
        }
        for (int i = count; i < 16; ++i)
            EXPECT_TRUE(untouched(record().vlan_list[i])) << i << " of " << count;
    }
}

TEST_F(LoopBackDetectFrom, RejectsMoreVlansAndStoresNoneOfThem)
{
    for (const int count : {17, 18, 20, 1000}) {
        poison();
        EXPECT_TRUE(rejects(with_vlans(count), "vlan_list", "vlan_list with more than 16 ids"));
        EXPECT_EQ(record().enabled, 1);
        EXPECT_EQ(record().detection_interval, 10);
        EXPECT_EQ(record().recovery_interval, 600);
        EXPECT_EQ(record().frame_type, 0x88A8);
        EXPECT_TRUE(untouched(record().vlan_list));
    }
}

TEST_F(LoopBackDetectFrom, LeavesTheSlotsOfAnEarlierLongerListInUse)
{
    for (int i = 0; i < 3; ++i)
        record().vlan_list[i] = {.vlan_id = static_cast<std::uint16_t>(i + 1), .in_use = 1};
    EXPECT_TRUE(accepts(with(document, "vlan_list", "[10, 20]")));
    EXPECT_EQ(record().vlan_list[0].vlan_id, 10);
    EXPECT_EQ(record().vlan_list[0].in_use, 1);
    EXPECT_EQ(record().vlan_list[1].vlan_id, 20);
    EXPECT_EQ(record().vlan_list[1].in_use, 1);
    EXPECT_EQ(record().vlan_list[2].vlan_id, 3);
    EXPECT_EQ(record().vlan_list[2].in_use, 1);
}

TEST_F(LoopBackDetectFrom, TakesAListThatIsNoArrayForAnEmptyOne)
{
    for (const char *other : {"[]", "{}", R"({"0": 100})", "null", "100", "\"100\"", "true", "1.5"}) {
        poison();
        EXPECT_TRUE(accepts(with(document, "vlan_list", other)));
        EXPECT_EQ(record().frame_type, 0x88A8) << other;
        EXPECT_TRUE(untouched(record().vlan_list)) << other;
    }
}

TEST_F(LoopBackDetectFrom, StoresTheLowSixteenBitsOfAVlanAndZeroForAnythingButAnInteger)
{
    EXPECT_TRUE(accepts(with(document, "vlan_list",
                             R"([65535, 65541, 70000, -1, 9223372036854775807, -9223372036854775808,
                                 1.0, "7", true, null, {}, [7], 0])")));
    const int expected[] = {65535, 5, 4464, 65535, 65535, 0, 0, 0, 0, 0, 0, 0, 0};
    for (int i = 0; i < 13; ++i) {
        EXPECT_EQ(record().vlan_list[i].vlan_id, expected[i]) << i;
        EXPECT_EQ(record().vlan_list[i].in_use, 1) << i;
    }
    EXPECT_TRUE(untouched(record().vlan_list[13]));
}

TEST_F(LoopBackDetectFrom, TakesOnlyTrueForTrue) { expect_boolean("enabled", record().enabled); }

TEST_F(LoopBackDetectFrom, CutsIntegersToTheirWidth)
{
    expect_integer("detection_interval", record().detection_interval);
    expect_integer("recovery_interval", record().recovery_interval);
}

} // namespace

} // namespace kelmora_test::loop_back_detect_test
