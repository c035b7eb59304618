#include "tests/support/from_test.h"
#include "tests/support/to_test.h"

#include "kelmora_json.h"
#include "records/device.h"

namespace kelmora_test::action_test {

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

TEST_F(ActionTo, WritesTheActionAsUnsigned)
{
    add("0").actionID = 4294967295;
    EXPECT_EQ(list(), R"([{"actionID": 4294967295}])");
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

} // namespace

} // namespace kelmora_test::action_test
