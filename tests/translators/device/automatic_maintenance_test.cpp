#include "tests/support/from_test.h"
#include "tests/support/to_test.h"

#include "kelmora_json.h"
#include "records/device.h"

namespace kelmora_test::automatic_maintenance_test {

namespace {

constexpr kelmora_automatic_maintenance sample{.enabled = 1, .hour = 3, .min = 15};

constexpr char sample_text[] = R"({"id": "night", "enabled": true, "time": {"hour": 3, "min": 15}})";

class AutomaticMaintenanceTo : public ToTest<kelmora_automatic_maintenance> {
protected:
    AutomaticMaintenanceTo() : ToTest(automatic_maintenance_to_translator) {}
};

TEST_F(AutomaticMaintenanceTo, WritesTheKeysInOrder)
{
    add("night", sample);
    EXPECT_EQ(object(), sample_text);
    EXPECT_EQ(list(), "[" + std::string(sample_text) + "]");
}

TEST_F(AutomaticMaintenanceTo, WritesTheTimeAsUnsignedAndAnySwitchButZeroAsTrue)
{
    add("", {.enabled = 128, .hour = 255, .min = 128});
    EXPECT_EQ(object(), R"({"id": "", "enabled": true, "time": {"hour": 255, "min": 128}})");
}

constexpr char document[] = R"({
    "id": "never read", "enabled": true, "time": {"hour": 5, "min": 50, "hours": 1, "minute": 2}, "hour": 6, "min": 7
})";

class AutomaticMaintenanceFrom : public FromTest<kelmora_automatic_maintenance> {
protected:
    AutomaticMaintenanceFrom() : FromTest(automatic_maintenance_from_translator, document) {}
};

TEST_F(AutomaticMaintenanceFrom, StoresEveryKey)
{
    EXPECT_TRUE(accepts(document));
    EXPECT_EQ(record().enabled, 1);
    EXPECT_EQ(record().hour, 5);
    EXPECT_EQ(record().min, 50);
}

TEST_F(AutomaticMaintenanceFrom, AsksForTheRequiredKeysInOrder)
{
    expect_required_in_order({
        {"enabled", "enabled", "enabled field not found"},
        {"time.hour", "time.hour", "time.hour field not found"},
        {"time.min", "time.min", "time.min field not found"},
    });
}

TEST_F(AutomaticMaintenanceFrom, AsksForTheTimeBehindTheSwitch)
{
    EXPECT_TRUE(rejects(without(document, "time"), "time", "time field not found"));
    EXPECT_TRUE(rejects(R"({"hour": 6, "min": 7})", "enabled", "enabled field not found"));
}

TEST_F(AutomaticMaintenanceFrom, LooksForTheTimeOnlyInTheObjectOfThatName)
{
    for (const char *other : {"{}", "null", "5", "\"05:50\"", "true", "[5, 50]", R"([{"hour": 5, "min": 50}])"})
        EXPECT_TRUE(rejects(with(document, "time", other), "time.hour", "time.hour field not found")) << other;
}

TEST_F(AutomaticMaintenanceFrom, MissingTimeKeepsTheSwitchStoredBefore)
{
    EXPECT_TRUE(rejects(without(document, "time"), "time", "time field not found"));
    EXPECT_EQ(record().enabled, 1);
    EXPECT_TRUE(untouched(record().hour));
    EXPECT_TRUE(untouched(record().min));
}

TEST_F(AutomaticMaintenanceFrom, MissingHourStoresNoMinuteEither)
{
    EXPECT_TRUE(rejects(without(document, "time.hour"), "time.hour", "time.hour field not found"));
    EXPECT_EQ(record().enabled, 1);
    EXPECT_TRUE(untouched(record().hour));
    EXPECT_TRUE(untouched(record().min));
}

TEST_F(AutomaticMaintenanceFrom, MissingMinuteKeepsTheSwitchAndTheHourStoredBefore)
{
    EXPECT_TRUE(rejects(R"({"enabled": true, "time": {"hour": 3}})", "time.min", "time.min field not found"));
    EXPECT_EQ(record().enabled, 1);
    EXPECT_EQ(record().hour, 3);
    EXPECT_TRUE(untouched(record().min));
}

TEST_F(AutomaticMaintenanceFrom, TakesOnlyTrueForTrue) { expect_boolean("enabled", record().enabled); }

TEST_F(AutomaticMaintenanceFrom, CutsTheTimeToBytes)
{
    expect_integer("time.hour", record().hour);
    expect_integer("time.min", record().min);
    EXPECT_TRUE(accepts(R"({"enabled": true, "time": {"hour": 300, "min": 256}})"));
    EXPECT_EQ(record().hour, 44);
    EXPECT_EQ(record().min, 0);
}

} // namespace

} // namespace kelmora_test::automatic_maintenance_test
