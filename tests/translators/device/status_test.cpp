#include "tests/support/to_test.h"

#include "kelmora_json.h"
#include "records/device.h"

namespace kelmora_test::status_test {

namespace {

constexpr kelmora_status sample{
    .wan_cable = 1,
    .has_internet = 0,
    .tavoline_connected = 1,
    .firmware_update = 0,
    .wps_status = 3,
};

constexpr char sample_text[] = R"({"has_internet": false, "wan_cable": true, "tavoline_connected": true, )"
                               R"("firmware_update": false, "wps_status": 3})";

class StatusTo : public ToTest<kelmora_status> {
protected:
    StatusTo() : ToTest(status_to_translator) {}
};

TEST_F(StatusTo, WritesTheKeysInOrder)
{
    add("0", sample);
    EXPECT_EQ(object(), sample_text);
    EXPECT_EQ(list(), "[" + std::string(sample_text) + "]");
}

TEST_F(StatusTo, WritesEachSwitchFromItsOwnField)
{
    const std::vector<std::pair<kelmora_status, std::string>> cases = {
        {{.wan_cable = 1},
         R"({"has_internet": false, "wan_cable": true, "tavoline_connected": false, )"
         R"("firmware_update": false, "wps_status": 0})"},
        {{.has_internet = 1},
         R"({"has_internet": true, "wan_cable": false, "tavoline_connected": false, )"
         R"("firmware_update": false, "wps_status": 0})"},
        {{.tavoline_connected = 1},
         R"({"has_internet": false, "wan_cable": false, "tavoline_connected": true, )"
         R"("firmware_update": false, "wps_status": 0})"},
        {{.firmware_update = 1},
         R"({"has_internet": false, "wan_cable": false, "tavoline_connected": false, )"
         R"("firmware_update": true, "wps_status": 0})"},
    };
    for (const auto &[status, text] : cases) {
        nodes_.clear();
        add("0", status);
        EXPECT_EQ(object(), text);
    }
}

TEST_F(StatusTo, WritesAnySwitchButZeroAsTrueAndTheStateAsUnsigned)
{
    add("0", {.wan_cable = 2,
              .has_internet = 255,
              .tavoline_connected = 128,
              .firmware_update = 16,
              .wps_status = 4294967295});
    EXPECT_EQ(object(), R"({"has_internet": true, "wan_cable": true, "tavoline_connected": true, )"
                        R"("firmware_update": true, "wps_status": 4294967295})");
}

} // namespace

} // namespace kelmora_test::status_test
