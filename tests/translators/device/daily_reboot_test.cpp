#include "tests/support/from_test.h"
#include "tests/support/to_test.h"

#include "kelmora_json.h"
#include "records/device.h"

namespace kelmora_test::daily_reboot_test {

namespace {

constexpr kelmora_daily_reboot sample{.hour = 4, .minute = 30, .enable = 1, .delay = 0};

class DailyRebootTo : public ToTest<kelmora_daily_reboot> {
protected:
    DailyRebootTo() : ToTest(daily_reboot_to_translator) {}
};

TEST_F(DailyRebootTo, WritesSortedKeysIndentedWithoutAnId)
{
    add("the id", sample);
    EXPECT_EQ(object(), "{\n"
                        "                \"delay\": false,\n"
                        "                \"enable\": true,\n"
                        "                \"hour\": 4,\n"
                        "                \"minute\": 30\n"
                        "}");
    EXPECT_EQ(list(), "[\n"
                      "                {\n"
                      "                                \"delay\": false,\n"
                      "                                \"enable\": true,\n"
                      "                                \"hour\": 4,\n"
                      "                                \"minute\": 30\n"
                      "                }\n"
                      "]");
}

TEST_F(DailyRebootTo, WritesTheTimeAsSignedAndAnySwitchButZeroAsTrue)
{
    add("0", {.hour = -1, .minute = -2147483648, .enable = 2, .delay = 255});
    EXPECT_EQ(object(), "{\n"
                        "                \"delay\": true,\n"
                        "                \"enable\": true,\n"
                        "                \"hour\": -1,\n"
                        "                \"minute\": -2147483648\n"
                        "}");
}

constexpr char document[] =
    R"({"hour": 3, "minute": 15, "enable": true, "delay": true, "id": "never read", "min": 1, "enabled": false})";

class DailyRebootFrom : public FromTest<kelmora_daily_reboot> {
protected:
    DailyRebootFrom() : FromTest(daily_reboot_from_translator, document) {}
};

TEST_F(DailyRebootFrom, StoresEveryKey)
{
    EXPECT_TRUE(accepts(document));
    EXPECT_EQ(record().hour, 3);
    EXPECT_EQ(record().minute, 15);
    EXPECT_EQ(record().enable, 1);
    EXPECT_EQ(record().delay, 1);
}

TEST_F(DailyRebootFrom, AsksForTheRequiredKeysInOrder)
{
    expect_required_in_order({
        {"hour", "hour", "hour field not found"},
        {"minute", "minute", "minute field not found"},
        {"enable", "enable", "enable field not found"},
        {"delay", "delay", "delay field not found"},
    });
}

TEST_F(DailyRebootFrom, MissingEnableKeepsTheTimeStoredBefore)
{
    EXPECT_TRUE(rejects(without(document, "enable"), "enable", "enable field not found"));
    EXPECT_EQ(record().hour, 3);
    EXPECT_EQ(record().minute, 15);
    EXPECT_TRUE(untouched(record().enable));
    EXPECT_TRUE(untouched(record().delay));
}

TEST_F(DailyRebootFrom, MissingDelayKeepsEverythingStoredBefore)
{
    EXPECT_TRUE(rejects(without(document, "delay"), "delay", "delay field not found"));
    EXPECT_EQ(record().hour, 3);
    EXPECT_EQ(record().minute, 15);
    EXPECT_EQ(record().enable, 1);
    EXPECT_TRUE(untouched(record().delay));
}

TEST_F(DailyRebootFrom, MissingHourStoresNothing)
{
    EXPECT_TRUE(rejects(without(document, "hour"), "hour", "hour field not found"));
    EXPECT_TRUE(untouched(record().minute));
    EXPECT_TRUE(untouched(record().enable));
    EXPECT_TRUE(untouched(record().delay));
}

TEST_F(DailyRebootFrom, TakesOnlyTrueForTrue)
{
    expect_boolean("enable", record().enable);
    expect_boolean("delay", record().delay);
}

TEST_F(DailyRebootFrom, CutsIntegersToTheirWidth)
{
    expect_integer("hour", record().hour);
    expect_integer("minute", record().minute);
}

TEST_F(DailyRebootFrom, TakesATimeThatNoClockShows)
{
    EXPECT_TRUE(accepts(with(with(document, "hour", "25"), "minute", "-61")));
    EXPECT_EQ(record().hour, 25);
    EXPECT_EQ(record().minute, -61);
}

} // namespace

} // namespace kelmora_test::daily_reboot_test
