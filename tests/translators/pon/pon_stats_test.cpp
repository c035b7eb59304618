#include "tests/support/to_test.h"

#include "kelmora_json.h"
#include "records/pon.h"

namespace kelmora_test::pon_stats_test {

namespace {

constexpr kelmora_pon_stats sample{
    .throughput_tx = 1200,
    .throughput_rx = 94000,
    .pps_tx = 310,
    .pps_rx = 4294967295,
};

constexpr char sample_text[] =
    R"({"id": "7", "throughput": {"tx": 1200, "rx": 94000}, "pps": {"tx": 310, "rx": 4294967295}})";

class PonStatsTo : public ToTest<kelmora_pon_stats> {
protected:
    PonStatsTo() : ToTest(pon_stats_to_translator) {}
};

TEST_F(PonStatsTo, WritesAllKeysInOrder)
{
    add("7", sample);
    EXPECT_EQ(object(), sample_text);
    EXPECT_EQ(list(), "[" + std::string(sample_text) + "]");
}

TEST_F(PonStatsTo, WritesNumbersAsUnsigned)
{
    add("u", {4294967295, 4294967294, 2147483648, 4294967293});
    EXPECT_EQ(object(), R"({"id": "u", "throughput": {"tx": 4294967295, "rx": 4294967294}, )"
                        R"("pps": {"tx": 2147483648, "rx": 4294967293}})");
}

} // namespace

} // namespace kelmora_test::pon_stats_test
