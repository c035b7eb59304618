#include "tests/support/from_test.h"
#include "tests/support/to_test.h"

#include "kelmora_json.h"
#include "records/device.h"

namespace kelmora_test {

namespace {

using testing::HasSubstr;
using testing::Not;

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

TEST_F(StatusTo, WritesAsManyNodesAsTheHeadCounts)
{
    add("0", sample);
    add("1", sample).wps_status = 4;
    add("2", sample).wps_status = 5;
    const std::string first = sample_text;
    const std::string second = R"({"has_internet": false, "wan_cable": true, "tavoline_connected": true, )"
                               R"("firmware_update": false, "wps_status": 4})";
    EXPECT_EQ(list_counting(0), "[]");
    EXPECT_EQ(list_counting(1), "[" + first + "]");
    EXPECT_EQ(list_counting(2), "[" + first + ", " + second + "]");
}

TEST_F(StatusTo, EndsAtTheLastNodeWhenTheCountIsLarger)
{
    add("0", sample);
    EXPECT_EQ(list_counting(5), "[" + std::string(sample_text) + "]");
    EXPECT_EQ(object_counting(4294967295), sample_text);
}

TEST_F(StatusTo, LeavesTheLastNodeInTheObjectWhenNoListIsAskedFor)
{
    add("0", {.has_internet = 1, .wps_status = 9});
    add("1", sample);
    EXPECT_EQ(object(), sample_text);
    EXPECT_EQ(object_counting(0), "{}");
}

TEST_F(StatusTo, WritesNoId)
{
    add("the id", sample);
    EXPECT_THAT(object(), Not(HasSubstr("the id")));
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

TEST_F(StatusTo, SurvivesFailingMemory)
{
    add("0", sample);
    add("1", sample);
    expect_survives_failing_memory();
}

class StatusFrom : public FromTest<kelmora_status> {
protected:
    StatusFrom() : FromTest(status_from_translator, R"({"wps_status": 1})") {}
};

TEST_F(StatusFrom, AcceptsAnythingAndTouchesNothing)
{
    for (const char *text : {"", "{", R"({"has_internet": true, "wps_status": 1})", "[]", "nonsense"}) {
        EXPECT_TRUE(accepts(text));
        EXPECT_EQ(fetches_, 0U);
        EXPECT_TRUE(untouched(record()));
    }
    EXPECT_EQ(status_from_translator(nullptr, nullptr, nullptr), 1);
}

} // namespace

} // namespace kelmora_test
