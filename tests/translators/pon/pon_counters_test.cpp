#include "tests/support/to_test.h"

#include "kelmora_json.h"
#include "records/pon.h"

namespace kelmora_test::pon_counters_test {

namespace {

constexpr kelmora_pon_counters sample{
    .tx_bytes = 101,
    .rx_bytes = 102,
    .tx_packets = 103,
    .rx_packets = 104,
    .tx_unicast_packets = 105,
    .rx_unicast_packets = 106,
    .tx_multicast_packets = 107,
    .rx_multicast_packets = 108,
    .tx_broadcast_packets = 109,
    .rx_broadcast_packets = 110,
    .tx_pause_packets = 111,
    .rx_pause_packets = 112,
    .fec_errors = 113,
    .hec_errors = 114,
    .dropped_packets = 115,
};

constexpr char sample_text[] =
    R"({"id": "7", "tx_bytes": 101, "rx_bytes": 102, "tx_packets": 103, "rx_packets": 104, )"
    R"("tx_unicast_packets": 105, "rx_unicast_packets": 106, "tx_multicast_packets": 107, )"
    R"("rx_multicast_packets": 108, "tx_broadcast_packets": 109, "rx_broadcast_packets": 110, )"
    R"("tx_pause_packets": 111, "rx_pause_packets": 112, "fec_errors": 113, "hec_errors": 114, )"
    R"("dropped_packets": 115})";

class PonCountersTo : public ToTest<kelmora_pon_counters> {
protected:
    PonCountersTo() : ToTest(pon_counters_to_translator) {}
};

TEST_F(PonCountersTo, WritesAllKeysInOrder)
{
    add("7", sample);
    EXPECT_EQ(object(), sample_text);
    EXPECT_EQ(list(), "[" + std::string(sample_text) + "]");
}

TEST_F(PonCountersTo, WritesNumbersAsUnsigned)
{
    std::memset(&add("u"), 0xFF, sizeof(kelmora_pon_counters));
    EXPECT_EQ(
        object(),
        R"({"id": "u", "tx_bytes": 4294967295, "rx_bytes": 4294967295, "tx_packets": 4294967295, )"
        R"("rx_packets": 4294967295, "tx_unicast_packets": 4294967295, "rx_unicast_packets": 4294967295, )"
        R"("tx_multicast_packets": 4294967295, "rx_multicast_packets": 4294967295, "tx_broadcast_packets": 4294967295, )"
        R"("rx_broadcast_packets": 4294967295, "tx_pause_packets": 4294967295, "rx_pause_packets": 4294967295, )"
        R"("fec_errors": 4294967295, "hec_errors": 4294967295, "dropped_packets": 4294967295})");
}

} // namespace

} // namespace kelmora_test::pon_counters_test
