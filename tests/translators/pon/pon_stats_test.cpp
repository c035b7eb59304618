#include "tests/support/from_test.h"
#include "tests/support/to_test.h"

#include "kelmora_json.h"
#include "records/pon.h"

namespace kelmora_test {

namespace {

constexpr kelmora_pon_stats sample{
    .throughput_tx = 1200,
    .throughput_rx = 94000,
    .pps_tx = 310,
    .pps_rx = 4294967295,
};

constexpr char sample_text[] =
    R"({"id": "7", "throughput": {"tx": 1200, "rx": 94000}, "pps": {"tx": 310, "rx": 4294967295}})";

constexpr char empty_text[] = R"({"id": "8", "throughput": {"tx": 0, "rx": 0}, "pps": {"tx": 0, "rx": 0}})";

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

TEST_F(PonStatsTo, WritesAsManyNodesAsTheHeadCounts)
{
    add("7", sample);
    add("8");
    EXPECT_EQ(list_counting(0), "[]");
    EXPECT_EQ(object_counting(0), "{}");
    EXPECT_EQ(list_counting(1), "[" + std::string(sample_text) + "]");
    EXPECT_EQ(object_counting(1), sample_text);
    EXPECT_EQ(list_counting(5), "[" + std::string(sample_text) + ", " + empty_text + "]");
}

TEST_F(PonStatsTo, LeavesTheLastNodeInTheObjectWhenNoListIsAskedFor)
{
    add("7", sample);
    add("8");
    EXPECT_EQ(object(), empty_text);
}

TEST_F(PonStatsTo, WritesNumbersAsUnsigned)
{
    add("u", {4294967295, 4294967294, 2147483648, 4294967293});
    EXPECT_EQ(object(), R"({"id": "u", "throughput": {"tx": 4294967295, "rx": 4294967294}, )"
                        R"("pps": {"tx": 2147483648, "rx": 4294967293}})");
}

TEST_F(PonStatsTo, CutsAnIdThatFillsItsField)
{
    add("", sample);
    fill_whole(nodes_.front().resource()->id, 'i');
    EXPECT_EQ(object(), with_id(sample_text, std::string(128, 'i')));
}

TEST_F(PonStatsTo, LeavesOutAnIdThatIsNotUtf8)
{
    add("caf\xE9", sample);
    EXPECT_EQ(object(), without(sample_text, "id"));
}

TEST_F(PonStatsTo, SurvivesFailingMemory)
{
    add("7", sample);
    add("8", sample);
    expect_survives_failing_memory();
}

class PonStatsFrom : public FromTest<kelmora_pon_stats> {
protected:
    PonStatsFrom() : FromTest(pon_stats_from_translator, sample_text) {}
};

TEST_F(PonStatsFrom, AcceptsAnythingAndTouchesNothing)
{
    for (const char *text : {"", "{", sample_text, "[]", "nonsense"}) {
        EXPECT_TRUE(accepts(text));
        EXPECT_TRUE(untouched(record()));
        EXPECT_EQ(fetches_, 0U);
    }
    EXPECT_EQ(pon_stats_from_translator(nullptr, nullptr, nullptr), 1);
}

} // namespace

} // namespace kelmora_test
