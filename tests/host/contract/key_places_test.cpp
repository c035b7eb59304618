#include "host/contract/key_places.h"

#include <gtest/gtest.h>

namespace kelmora_host::key_places_test {

namespace {

constexpr Resource radio{5, "radio", "wireless", Directions::both};

std::vector<Contract> contracts()
{
    InputKey power{};
    power.path = "/power";
    power.type = InputType::integer;
    power.bits = 8;
    power.fields = {{"power", "uint8_t", 12, 1, "transmit power"}};
    OutputKey uptime{};
    uptime.path = "/system/uptime";
    uptime.types = {OutputType::integer};
    uptime.bits = 32;
    return {{&radio, Input{{power}}, Output{{uptime}}}};
}

TEST(KeyPlaces, AreThoseOfTheNameElseThoseThatHaveIt)
{
    const std::vector<Contract> all = contracts();
    ASSERT_EQ(key_places(all, "power").size(), 1U);
    EXPECT_EQ(key_places(all, "power").front().direction, "input");
    ASSERT_EQ(key_places(all, "time").size(), 1U);
    EXPECT_EQ(key_places(all, "time").front().path, "/system/uptime");
    EXPECT_TRUE(key_places(all, "system").empty());
    EXPECT_EQ(key_places(all, "").size(), 2U);
}

TEST(KeyPlaces, AreAnArrayForPrograms)
{
    EXPECT_EQ(key_places_as_json(contracts(), "power"),
              R"([{"resource": "radio", "direction": "input", "path": "/power", "type": "integer", )"
              R"("range": "0..255", "meaning": "transmit power"}])"
              "\n");
    EXPECT_EQ(key_places_as_json(contracts(), "voltage"), "");
}

} // namespace

} // namespace kelmora_host::key_places_test
