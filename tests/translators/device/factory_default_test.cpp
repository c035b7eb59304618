#include "tests/support/from_test.h"
#include "tests/support/to_test.h"

#include "kelmora_json.h"
#include "records/device.h"

namespace kelmora_test::factory_default_test {

namespace {

constexpr kelmora_factory_default sample{.pressedTime = 10};

class FactoryDefaultTo : public ToTest<kelmora_factory_default> {
protected:
    FactoryDefaultTo() : ToTest(factory_default_to_translator) {}
};

TEST_F(FactoryDefaultTo, WritesAnArrayWhateverIsAskedFor)
{
    add("reset", sample);
    EXPECT_EQ(list(), R"([{"id": "reset", "pressedTime": 10}])");
    EXPECT_EQ(object(), R"([{"id": "reset", "pressedTime": 10}])");
}

TEST_F(FactoryDefaultTo, WritesTheTimeAsSigned)
{
    add("a").pressedTime = -1;
    add("b").pressedTime = -2147483648;
    add("c").pressedTime = 2147483647;
    EXPECT_EQ(list(), R"([{"id": "a", "pressedTime": -1}, {"id": "b", "pressedTime": -2147483648}, )"
                      R"({"id": "c", "pressedTime": 2147483647}])");
}

constexpr char document[] = R"({"pressedTime": 5, "id": "never read"})";

class FactoryDefaultFrom : public FromTest<kelmora_factory_default> {
protected:
    FactoryDefaultFrom() : FromTest(factory_default_from_translator, document) {}
};

TEST_F(FactoryDefaultFrom, StoresTheTime)
{
    EXPECT_TRUE(accepts(document));
    EXPECT_EQ(record().pressedTime, 5);
    EXPECT_EQ(fetches_, 1U);
}

TEST_F(FactoryDefaultFrom, ReportsAMissingTimeUnderTheResourcesName)
{
    expect_required_in_order({{"pressedTime", "factory_default", "pressedTime field not found"}});
}

TEST_F(FactoryDefaultFrom, FetchesTheRecordOnlyWhenThereIsATime)
{
    EXPECT_TRUE(rejects(R"({"factory_default": 5})", "factory_default", "pressedTime field not found"));
    EXPECT_EQ(fetches_, 0U);
    EXPECT_TRUE(untouched(record().pressedTime));
    EXPECT_TRUE(rejects("{", "", "invalid json data"));
    EXPECT_EQ(fetches_, 0U);
    EXPECT_TRUE(accepts(R"({"pressedTime": null})"));
    EXPECT_EQ(fetches_, 1U);
}

TEST_F(FactoryDefaultFrom, CutsTheTimeToItsWidth) { expect_integer("pressedTime", record().pressedTime); }

} // namespace

} // namespace kelmora_test::factory_default_test
