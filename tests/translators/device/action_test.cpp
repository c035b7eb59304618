#include "tests/support/from_test.h"
#include "tests/support/to_test.h"

#include "kelmora_json.h"
#include "records/device.h"

namespace kelmora_test {

namespace {

constexpr kelmora_action sample{.actionID = 7};

class ActionTo : public ToTest<kelmora_action> {
protected:
    ActionTo() : ToTest(action_to_translator) {}
};

TEST_F(ActionTo, WritesAnArrayWhateverIsAskedFor)
{
    add("the id", sample);
    EXPECT_EQ(list(), R"([{"actionID": 7}])");
    EXPECT_EQ(object(), R"([{"actionID": 7}])");
}

TEST_F(ActionTo, WritesOneObjectANodeWhateverTheCountSays)
{
    add("0", sample);
    add("1").actionID = 8;
    add("2").actionID = 9;
    constexpr char all[] = R"([{"actionID": 7}, {"actionID": 8}, {"actionID": 9}])";
    for (const std::uint32_t count : {0U, 1U, 3U, 100U}) {
        EXPECT_EQ(list_counting(count), all) << count;
        EXPECT_EQ(object_counting(count), all) << count;
    }
}

TEST_F(ActionTo, WritesTheHeadEvenWhenTheCountIsZero)
{
    add("0", sample);
    EXPECT_EQ(list_counting(0), R"([{"actionID": 7}])");
    EXPECT_EQ(object_counting(0), R"([{"actionID": 7}])");
}

TEST_F(ActionTo, WritesTheActionAsUnsigned)
{
    add("0").actionID = 4294967295;
    EXPECT_EQ(list(), R"([{"actionID": 4294967295}])");
}

TEST_F(ActionTo, SurvivesFailingMemory)
{
    add("0", sample);
    add("1", sample);
    expect_survives_failing_memory();
}

constexpr char document[] = R"({"actionID": 3, "id": "never read", "action": 4})";

class ActionFrom : public FromTest<kelmora_action> {
protected:
    ActionFrom() : FromTest(action_from_translator, document) {}
};

TEST_F(ActionFrom, StoresTheAction)
{
    EXPECT_TRUE(accepts(document));
    EXPECT_EQ(record().actionID, 3U);
    EXPECT_EQ(fetches_, 1U);
}

TEST_F(ActionFrom, ReportsAMissingActionUnderTheResourcesName)
{
    expect_required_in_order({{"actionID", "action", "action field not found"}});
    EXPECT_TRUE(rejects(R"({"action": 3})", "action", "action field not found"));
}

TEST_F(ActionFrom, FetchesTheRecordOnlyWhenThereIsAnAction)
{
    EXPECT_TRUE(rejects(R"({"action": 3})", "action", "action field not found"));
    EXPECT_EQ(fetches_, 0U);
    EXPECT_TRUE(untouched(record().actionID));
    EXPECT_TRUE(rejects("{", "", "invalid json data"));
    EXPECT_EQ(fetches_, 0U);
    EXPECT_TRUE(accepts(R"({"actionID": null})"));
    EXPECT_EQ(fetches_, 1U);
}

TEST_F(ActionFrom, CutsTheActionToItsWidth) { expect_integer("actionID", record().actionID); }

TEST_F(ActionFrom, KeepsTheCommonContract) { expect_common_contract(); }

TEST_F(ActionFrom, SurvivesFailingMemory) { expect_survives_failing_memory(); }

} // namespace

} // namespace kelmora_test
