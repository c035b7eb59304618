#include "tests/support/document.h"
#include "tests/support/to_test.h"

#include "kelmora_json.h"
#include "records/pon.h"

#include <limits>

namespace kelmora_test::pon_status_test {

namespace {

constexpr kelmora_pon_status sample{
    .bias_current = 12.5F,
    .part_number = "OM-3680M",
    .rx_power = -18.75F,
    .temperature = 41.0F,
    .vendor_name = "Lumenwerk",
    .tx_power = 2.25F,
    .voltage = 3.3F,
    .current_mode = "GPON",
};

constexpr char sample_text[] =
    R"({"id": "7", "bias_current": 12.5, "part_number": "OM-3680M", "rx_power": -18.75, "temperature": 41.0, )"
    R"("vendor_name": "Lumenwerk", "tx_power": 2.25, "voltage": 3.2999999523162842, "current_mode": "GPON"})";

class PonStatusTo : public ToTest<kelmora_pon_status> {
protected:
    PonStatusTo() : ToTest(pon_status_to_translator) {}
};

TEST_F(PonStatusTo, WritesAllKeysInOrder)
{
    add("7", sample);
    EXPECT_EQ(object(), sample_text);
    EXPECT_EQ(list(), "[" + std::string(sample_text) + "]");
}

TEST_F(PonStatusTo, LeavesOutReadingsThatAreNoNumbers)
{
    constexpr float infinity = std::numeric_limits<float>::infinity();
    kelmora_pon_status &status = add("n");
    status.bias_current = std::numeric_limits<float>::quiet_NaN();
    status.rx_power = -infinity;
    status.temperature = -3.5F;
    status.tx_power = infinity;
    status.voltage = std::numeric_limits<float>::quiet_NaN();
    EXPECT_EQ(object(),
              R"({"id": "n", "part_number": "", "temperature": -3.5, "vendor_name": "", "current_mode": ""})");
}

TEST_F(PonStatusTo, WritesEachReadingFromItsOwnField)
{
    kelmora_pon_status &status = add("r");
    status.bias_current = 1.0F;
    status.rx_power = 2.0F;
    status.temperature = 3.0F;
    status.tx_power = 4.0F;
    status.voltage = 5.0F;
    EXPECT_EQ(object(), R"({"id": "r", "bias_current": 1.0, "part_number": "", "rx_power": 2.0, "temperature": 3.0, )"
                        R"("vendor_name": "", "tx_power": 4.0, "voltage": 5.0, "current_mode": ""})");
}

TEST_F(PonStatusTo, CutsTextsThatFillTheirFields)
{
    kelmora_pon_status &status = add("w");
    fill_whole(status.part_number, 'p');
    fill_whole(status.vendor_name, 'v');
    fill_whole(status.current_mode, 'c');
    const std::string text = object();
    EXPECT_THAT(text, testing::HasSubstr(R"("part_number": ")" + std::string(63, 'p') + R"(",)"));
    EXPECT_THAT(text, testing::HasSubstr(R"("vendor_name": ")" + std::string(63, 'v') + R"(",)"));
    EXPECT_THAT(text, testing::HasSubstr(R"("current_mode": "cccc"})"));
}

TEST_F(PonStatusTo, LeavesOutEachTextThatIsNotUtf8)
{
    kelmora_pon_status &status = add("7", sample);
    set(status.part_number, "caf\xE9");
    EXPECT_EQ(object(), without(sample_text, "part_number"));
    status = sample;
    set(status.vendor_name, "caf\xE9");
    EXPECT_EQ(object(), without(sample_text, "vendor_name"));
    status = sample;
    set(status.current_mode, "caf\xE9");
    EXPECT_EQ(object(), without(sample_text, "current_mode"));
}

} // namespace

} // namespace kelmora_test::pon_status_test
