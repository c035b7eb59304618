#include "tests/support/from_test.h"
#include "tests/support/to_test.h"

#include "kelmora_json.h"
#include "records/device.h"

namespace kelmora_test::change_to_firmware_version_test {

namespace {

constexpr kelmora_change_to_firmware_version sample{.change = 1, .version = "2.4.1-b318"};

constexpr char sample_text[] = R"({"id": "bank1", "change": true, "version": "2.4.1-b318"})";

class ChangeToFirmwareVersionTo : public ToTest<kelmora_change_to_firmware_version> {
protected:
    ChangeToFirmwareVersionTo() : ToTest(change_to_firmware_version_to_translator) {}
};

TEST_F(ChangeToFirmwareVersionTo, WritesTheKeysInOrder)
{
    add("bank1", sample);
    EXPECT_EQ(object(), sample_text);
    EXPECT_EQ(list(), "[" + std::string(sample_text) + "]");
}

TEST_F(ChangeToFirmwareVersionTo, WritesAnySwitchButZeroAsTrue)
{
    for (const std::uint8_t change : {std::uint8_t{2}, std::uint8_t{128}, std::uint8_t{255}}) {
        nodes_.clear();
        add("", {.change = change});
        EXPECT_EQ(object(), R"({"id": "", "change": true, "version": ""})");
    }
    nodes_.clear();
    add("");
    EXPECT_EQ(object(), R"({"id": "", "change": false, "version": ""})");
}

TEST_F(ChangeToFirmwareVersionTo, CutsTextsToOneByteLessThanTheirField)
{
    fill_whole(add("").version, 'v');
    fill_whole(nodes_.front().resource()->id, 'n');
    EXPECT_EQ(object(), R"({"id": ")" + std::string(128, 'n') + R"(", "change": false, "version": ")" +
                            std::string(31, 'v') + R"("})");
}

TEST_F(ChangeToFirmwareVersionTo, LeavesOutATextWhoseCutSplitsACharacter)
{
    kelmora_change_to_firmware_version &firmware = add("bank1", sample);
    fill_whole(firmware.version, 'v');
    firmware.version[30] = '\xC3'; // the first byte of a two-byte character: the last that is written
    firmware.version[31] = '\xA4';
    EXPECT_EQ(object(), R"({"id": "bank1", "change": true})");
}

TEST_F(ChangeToFirmwareVersionTo, WritesOtherScriptsAndSlashesAsTheyAre)
{
    set(add("bank1", sample).version, "Übergabe 2/4");
    EXPECT_EQ(object(), R"({"id": "bank1", "change": true, "version": "Übergabe 2/4"})");
}

constexpr char document[] = R"({"change": true, "version": "never read", "id": "never read"})";

class ChangeToFirmwareVersionFrom : public FromTest<kelmora_change_to_firmware_version> {
protected:
    ChangeToFirmwareVersionFrom() : FromTest(change_to_firmware_version_from_translator, document) {}
};

TEST_F(ChangeToFirmwareVersionFrom, StoresTheRequest)
{
    EXPECT_TRUE(accepts(document));
    EXPECT_EQ(record().change, 1);
}

TEST_F(ChangeToFirmwareVersionFrom, NeverStoresTheVersion)
{
    EXPECT_TRUE(accepts(document));
    EXPECT_TRUE(untouched(record().version));
}

TEST_F(ChangeToFirmwareVersionFrom, AcceptsEveryTextThatParses)
{
    for (const char *text : {"{}", "[]", R"([{"change": true}])", R"({"Change": true})", R"({"version": 5})"}) {
        EXPECT_TRUE(accepts(text));
        EXPECT_TRUE(untouched(record().change)) << text;
    }
}

TEST_F(ChangeToFirmwareVersionFrom, KeepsTheRequestWhenItIsAbsent) { expect_optional("change", record().change); }

TEST_F(ChangeToFirmwareVersionFrom, TakesOnlyTrueForTrue) { expect_boolean("change", record().change); }

} // namespace

} // namespace kelmora_test::change_to_firmware_version_test
