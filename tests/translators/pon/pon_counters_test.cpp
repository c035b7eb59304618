#include "tests/support/from_test.h"
#include "tests/support/to_test.h"

#include "kelmora_json.h"
#include "records/pon.h"

namespace kelmora_test {

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

constexpr char empty_text[] = R"({"id": "8", "tx_bytes": 0, "rx_bytes": 0, "tx_packets": 0, "rx_packets": 0, )"
                              R"("tx_unicast_packets": 0, "rx_unicast_packets": 0, "tx_multicast_packets": 0, )"
                              R"("rx_multicast_packets": 0, "tx_broadcast_packets": 0, "rx_broadcast_packets": 0, )"
                              R"("tx_pause_packets": 0, "rx_pause_packets": 0, "fec_errors": 0, "hec_errors": 0, )"
                              R"("dropped_packets": 0})";

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

TEST_F(PonCountersTo, WritesAsManyNodesAsTheHeadCounts)
{
    add("7", sample);
    add("8");
    EXPECT_EQ(list_counting(0), "[]");
    EXPECT_EQ(object_counting(0), "{}");
    EXPECT_EQ(list_counting(1), "[" + std::string(sample_text) + "]");
    EXPECT_EQ(object_counting(1), sample_text);
    EXPECT_EQ(list_counting(5), "[" + std::string(sample_text) + ", " + empty_text + "]");
}

TEST_F(PonCountersTo, LeavesTheLastNodeInTheObjectWhenNoListIsAskedFor)
{
    add("7", sample);
    add("8");
    EXPECT_EQ(object(), empty_text);
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

TEST_F(PonCountersTo, CutsAnIdThatFillsItsField)
{
    add("", sample);
    fill_whole(nodes_.front().resource()->id, 'i');
    EXPECT_EQ(object(), with_id(sample_text, std::string(128, 'i')));
}

TEST_F(PonCountersTo, LeavesOutAnIdThatIsNotUtf8)
{
    add("caf\xE9", sample);
    EXPECT_EQ(object(), without(sample_text, "id"));
}

TEST_F(PonCountersTo, SurvivesFailingMemory)
{
    add("7", sample);
    add("8", sample);
    expect_survives_failing_memory();
}

class PonCountersFrom : public FromTest<kelmora_pon_counters> {
protected:
    PonCountersFrom() : FromTest(pon_counters_from_translator, sample_text) {}
};

TEST_F(PonCountersFrom, AcceptsAnythingAndTouchesNothing)
{
    for (const char *text : {"", "{", sample_text, "[]", "nonsense"}) {
        EXPECT_TRUE(accepts(text));
        EXPECT_TRUE(untouched(record()));
        EXPECT_EQ(fetches_, 0U);
    }
    EXPECT_EQ(pon_counters_from_translator(nullptr, nullptr, nullptr), 1);
}

} // namespace

} // namespace kelmora_test
