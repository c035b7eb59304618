#include "tests/support/to_test.h"

#include "kelmora_json.h"
#include "records/pon.h"

namespace kelmora_test::gem_port_stats_test {

namespace {

constexpr kelmora_gem_port_stats sample{
    .pkt_count = 1042,
    .gemport_id = 1025,
    .gemport_direction = 1,
};

constexpr char sample_text[] =
    R"({"flow_id": "7", "pkt_count": 1042, "gemport_id": 1025, "gemport_direction": "upstream"})";

class GemPortStatsTo : public ToTest<kelmora_gem_port_stats> {
protected:
    GemPortStatsTo() : ToTest(gem_port_stats_to_translator) {}
};

TEST_F(GemPortStatsTo, WritesAnArrayWhateverIsAskedFor)
{
    add("7", sample);
    EXPECT_EQ(list(), "[" + std::string(sample_text) + "]");
    EXPECT_EQ(object(), "[" + std::string(sample_text) + "]");
}

TEST_F(GemPortStatsTo, LeavesOutADirectionThatIsNeitherUpNorDown)
{
    for (const std::uint32_t direction : {0U, 3U, 256U, 257U, 65537U, 4294967295U}) {
        nodes_.clear();
        add("d").gemport_direction = direction;
        EXPECT_EQ(list(), R"([{"flow_id": "d", "pkt_count": 0, "gemport_id": 0}])");
    }
    nodes_.clear();
    add("d").gemport_direction = 2;
    EXPECT_EQ(list(), R"([{"flow_id": "d", "pkt_count": 0, "gemport_id": 0, "gemport_direction": "downstream"}])");
}

TEST_F(GemPortStatsTo, WritesNumbersAsUnsigned)
{
    add("u", {.pkt_count = 4294967295, .gemport_id = 2147483648, .gemport_direction = 0});
    EXPECT_EQ(list(), R"([{"flow_id": "u", "pkt_count": 4294967295, "gemport_id": 2147483648}])");
}

} // namespace

} // namespace kelmora_test::gem_port_stats_test
