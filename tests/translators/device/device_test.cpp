#include "tests/support/from_test.h"
#include "tests/support/to_test.h"

#include "kelmora_json.h"
#include "records/device.h"

namespace kelmora_test::device_test {

namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

constexpr kelmora_device sample{
    .model = "KG-2400",
    .uptime = 86400,
    .fw_version = "4.2.1",
    .alias = "Diele",
    .show_wizard = 0,
    .login_enable = 1,
    .leds = 0,
    .is_manageable = 1,
};

constexpr char sample_text[] =
    R"({"id": "main", "model": "KG-2400", "uptime": 86400, "fw_version": "4.2.1", "show_wizard": false, )"
    R"("login_enable": true, "alias": "Diele", "leds": false, "is_manageable": true})";

class DeviceTo : public ToTest<kelmora_device> {
protected:
    DeviceTo() : ToTest(device_to_translator) {}
};

TEST_F(DeviceTo, WritesTheKeysInOrder)
{
    add("main", sample);
    EXPECT_EQ(object(), sample_text);
    EXPECT_EQ(list(), "[" + std::string(sample_text) + "]");
}

TEST_F(DeviceTo, WritesTheUptimeAsUnsigned)
{
    add("", {.uptime = 4294967295});
    EXPECT_EQ(object(), R"({"id": "", "model": "", "uptime": 4294967295, "fw_version": "", "show_wizard": false, )"
                        R"("login_enable": false, "alias": "", "leds": false, "is_manageable": false})");
}

TEST_F(DeviceTo, WritesEachSwitchFromItsOwnField)
{
    expect_switches({{"show_wizard", &kelmora_device::show_wizard},
                     {"login_enable", &kelmora_device::login_enable},
                     {"leds", &kelmora_device::leds},
                     {"is_manageable", &kelmora_device::is_manageable}});
}

TEST_F(DeviceTo, WritesAnySwitchButZeroAsTrue)
{
    add("", {.show_wizard = 2, .login_enable = 255, .leds = 128, .is_manageable = 16});
    EXPECT_THAT(object(), AllOf(HasSubstr(R"("show_wizard": true)"), HasSubstr(R"("login_enable": true)"),
                                HasSubstr(R"("leds": true)"), HasSubstr(R"("is_manageable": true)")));
}

TEST_F(DeviceTo, CutsTextsToOneByteLessThanTheirField)
{
    kelmora_device &device = add("");
    fill_whole(device.model, 'm');
    fill_whole(device.fw_version, 'f');
    fill_whole(device.alias, 'a');
    fill_whole(nodes_.front().resource()->id, 'n');
    EXPECT_THAT(object(), AllOf(HasSubstr(R"("id": ")" + std::string(128, 'n') + '"'),
                                HasSubstr(R"("model": ")" + std::string(63, 'm') + '"'),
                                HasSubstr(R"("fw_version": ")" + std::string(63, 'f') + '"'),
                                HasSubstr(R"("alias": ")" + std::string(63, 'a') + '"')));
}

TEST_F(DeviceTo, LeavesOutATextWhoseCutSplitsACharacter)
{
    kelmora_device &device = add("main", sample);
    fill_whole(device.alias, 'a');
    device.alias[62] = '\xC3'; // the first byte of a two-byte character: the last that is written
    device.alias[63] = '\xA4';
    EXPECT_THAT(object(), AllOf(Not(HasSubstr("\"alias\"")), HasSubstr(R"("login_enable": true, "leds")")));
}

TEST_F(DeviceTo, WritesOtherScriptsAndSlashesAsTheyAre)
{
    set(add("main", sample).alias, "Küche/北");
    EXPECT_THAT(object(), HasSubstr(R"("alias": "Küche/北")"));
}

TEST_F(DeviceTo, GrowsTheBufferForManyEntries)
{
    add("main", sample);
    std::string expected = "[" + std::string(sample_text);
    for (int i = 1; i < 64; ++i)
        expected += ", " + std::string(sample_text);
    EXPECT_EQ(list_counting(64), expected + "]");
    EXPECT_EQ(reallocations_, 1U);
}

constexpr char document[] = R"({
    "show_wizard": true, "alias": "Arbeitszimmer", "login_enable": true, "leds": true, "is_manageable": true,
    "id": "never read", "model": "never read", "uptime": 1, "fw_version": "never read"
})";

class DeviceFrom : public FromTest<kelmora_device> {
protected:
    DeviceFrom() : FromTest(device_from_translator, document) {}

    /// The fields that one accepted document leaves missing.
    std::vector<int> missing_of(const std::string &text)
    {
        const auto before = static_cast<std::ptrdiff_t>(node_.missing().size());
        EXPECT_TRUE(accepts(text));
        return {node_.missing().begin() + before, node_.missing().end()};
    }
};

TEST_F(DeviceFrom, StoresEveryKey)
{
    EXPECT_TRUE(accepts(document));
    EXPECT_EQ(record().show_wizard, 1);
    EXPECT_STREQ(record().alias, "Arbeitszimmer");
    EXPECT_EQ(record().login_enable, 1);
    EXPECT_EQ(record().leds, 1);
    EXPECT_EQ(record().is_manageable, 1);
}

TEST_F(DeviceFrom, NeverStoresWhatIsReadOnly)
{
    EXPECT_TRUE(accepts(document));
    EXPECT_TRUE(untouched(record().model));
    EXPECT_TRUE(untouched(record().uptime));
    EXPECT_TRUE(untouched(record().fw_version));
}

TEST_F(DeviceFrom, ReportsNothingMissingWhenEveryKeyIsThere)
{
    EXPECT_THAT(missing_of(document), IsEmpty());
    EXPECT_THAT(missing_of(without_all(document, {"id", "model", "uptime", "fw_version"})), IsEmpty());
}

TEST_F(DeviceFrom, ReportsTheFiveMissingFieldsOfAnEmptyDocumentInTheOrderOfTheKeys)
{
    EXPECT_THAT(missing_of("{}"), ElementsAre(4, 3, 5, 6, 7));
    EXPECT_TRUE(untouched(record()));
}

TEST_F(DeviceFrom, FindsNoKeyInAnArray)
{
    EXPECT_THAT(missing_of("[]"), ElementsAre(4, 3, 5, 6, 7));
    EXPECT_THAT(missing_of("[" + std::string(document) + "]"), ElementsAre(4, 3, 5, 6, 7));
    EXPECT_TRUE(untouched(record()));
}

TEST_F(DeviceFrom, ReportsEachMissingFieldByItsPlaceInTheRecord)
{
    EXPECT_THAT(missing_of(without(document, "show_wizard")), ElementsAre(4));
    EXPECT_THAT(missing_of(without(document, "alias")), ElementsAre(3));
    EXPECT_THAT(missing_of(without(document, "login_enable")), ElementsAre(5));
    EXPECT_THAT(missing_of(without(document, "leds")), ElementsAre(6));
    EXPECT_THAT(missing_of(without(document, "is_manageable")), ElementsAre(7));
    EXPECT_THAT(missing_of(R"({"login_enable": false, "alias": ""})"), ElementsAre(4, 6, 7));
}

TEST_F(DeviceFrom, StoresTheKeysThatAreThereBesideMissingOnes)
{
    EXPECT_THAT(missing_of(R"({"is_manageable": true, "alias": "Keller"})"), ElementsAre(4, 5, 6));
    EXPECT_STREQ(record().alias, "Keller");
    EXPECT_EQ(record().is_manageable, 1);
    EXPECT_TRUE(untouched(record().show_wizard));
    EXPECT_TRUE(untouched(record().login_enable));
    EXPECT_TRUE(untouched(record().leds));
}

TEST_F(DeviceFrom, TakesNullForPresent)
{
    EXPECT_THAT(missing_of(R"({"show_wizard": null, "alias": null, "login_enable": null, "leds": null,
                               "is_manageable": null})"),
                IsEmpty());
    EXPECT_EQ(record().show_wizard, 0);
    EXPECT_STREQ(record().alias, "");
    EXPECT_EQ(record().login_enable, 0);
    EXPECT_EQ(record().leds, 0);
    EXPECT_EQ(record().is_manageable, 0);
}

TEST_F(DeviceFrom, ReportsNothingMissingOfATextThatItDoesNotRead)
{
    EXPECT_THAT(missing_of(""), IsEmpty());
    EXPECT_EQ(fetches_, 0U);
    EXPECT_TRUE(rejects("{", "", "invalid json data"));
    EXPECT_EQ(fetches_, 0U);
    EXPECT_THAT(node_.missing(), IsEmpty());
}

TEST_F(DeviceFrom, KeepsTheKeysThatAreAbsent)
{
    expect_optional("show_wizard", record().show_wizard);
    expect_optional("alias", record().alias);
    expect_optional("login_enable", record().login_enable);
    expect_optional("leds", record().leds);
    expect_optional("is_manageable", record().is_manageable);
}

TEST_F(DeviceFrom, TakesOnlyTrueForTrue)
{
    expect_boolean("show_wizard", record().show_wizard);
    expect_boolean("login_enable", record().login_enable);
    expect_boolean("leds", record().leds);
    expect_boolean("is_manageable", record().is_manageable);
}

TEST_F(DeviceFrom, CutsTheAliasToItsField) { expect_string("alias", record().alias); }

} // namespace

} // namespace kelmora_test::device_test
