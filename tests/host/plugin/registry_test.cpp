#include "host/gateway/resources.h"
#include "host/plugin/registry.h"

#include <gtest/gtest.h>
#include <set>

namespace kelmora_host::plugin_registry_test {

namespace {

int from_nothing(kelmora_resource * /*node*/, const char * /*text*/, kelmora_errorlist * /*errors*/) { return 1; }

int from_nothing_else(kelmora_resource * /*node*/, const char * /*text*/, kelmora_errorlist * /*errors*/) { return 1; }

int to_nothing(kelmora_resource * /*head*/, char ** /*out*/) { return 1; }

class RegistryTest : public ::testing::Test {
protected:
    RegistryTest() { registry.clear(); }
    ~RegistryTest() override { registry.clear(); }

    Registry &registry = Registry::instance();
};

TEST_F(RegistryTest, FindsAPairUnderItsNumber)
{
    EXPECT_EQ(registry.add({5, from_nothing, to_nothing}), 1);
    const Registration *found = registry.find(5);
    ASSERT_NE(found, nullptr);
    EXPECT_EQ(found->number, 5);
    EXPECT_EQ(found->from, &from_nothing);
    EXPECT_EQ(found->to, &to_nothing);
}

TEST_F(RegistryTest, FindsNothingUnderANumberThatNobodyRegistered)
{
    registry.add({5, from_nothing, to_nothing});
    EXPECT_EQ(registry.find(4), nullptr);
}

TEST_F(RegistryTest, PutsALaterPairInPlaceOfAnEarlierOneOfTheSameNumber)
{
    registry.add({5, from_nothing, to_nothing});
    registry.add({5, from_nothing_else, to_nothing});
    ASSERT_NE(registry.find(5), nullptr);
    EXPECT_EQ(registry.find(5)->from, &from_nothing_else);
}

TEST_F(RegistryTest, LogsRegistrationsInTheOrderInWhichTheyCame)
{
    registry.add({7, from_nothing, to_nothing});
    registry.add({5, from_nothing, to_nothing});
    registry.add({7, from_nothing_else, to_nothing});
    ASSERT_EQ(registry.log().size(), 3U);
    EXPECT_EQ(registry.log()[0].number, 7);
    EXPECT_EQ(registry.log()[1].number, 5);
    EXPECT_EQ(registry.log()[2].number, 7);
    EXPECT_EQ(registry.log()[2].from, &from_nothing_else);
}

TEST_F(RegistryTest, AnswersWhatItIsToldToAnswer)
{
    registry.answer = [](const Registration &registration) { return registration.number * 10; };
    EXPECT_EQ(registry.add({5, from_nothing, to_nothing}), 50);
}

TEST_F(RegistryTest, ForgetsRegistrationsAndAnswersWhenCleared)
{
    registry.answer = [](const Registration & /*registration*/) { return -1; };
    registry.add({5, from_nothing, to_nothing});
    registry.clear();
    EXPECT_EQ(registry.find(5), nullptr);
    EXPECT_TRUE(registry.log().empty());
    EXPECT_EQ(registry.add({5, from_nothing, to_nothing}), 1);
}

TEST_F(RegistryTest, TakesWhatThePlugInRegisters)
{
    registry.answer = [](const Registration & /*registration*/) { return 33; };
    EXPECT_EQ(kelmora_set_translators(9, from_nothing, to_nothing), 33);
    const Registration *found = registry.find(9);
    ASSERT_NE(found, nullptr);
    EXPECT_EQ(found->from, &from_nothing);
    EXPECT_EQ(found->to, &to_nothing);
}

TEST(Resources, StandAtTheIndexOfTheirNumber)
{
    ASSERT_EQ(resources().size(), std::size_t{KELMORA_RESOURCE_COUNT});
    for (std::size_t i = 0; i < resources().size(); ++i)
        EXPECT_EQ(resources()[i].number, static_cast<int>(i));
}

TEST(Resources, HaveNamesOfTheirOwn)
{
    std::set<std::string_view> names;
    for (const Resource &resource : resources())
        names.insert(resource.name);
    EXPECT_EQ(names.size(), resources().size());
}

TEST(Resources, AreFoundByName)
{
    const Resource *radio = find_resource("radio");
    ASSERT_NE(radio, nullptr);
    EXPECT_EQ(radio->number, 5);
    EXPECT_EQ(radio->group, "wireless");
    EXPECT_EQ(radio->directions, Directions::both);
}

TEST(Resources, KnowWhichWaysTheyGo)
{
    ASSERT_NE(find_resource("site_survey"), nullptr);
    EXPECT_EQ(find_resource("site_survey")->directions, Directions::to_only);
    ASSERT_NE(find_resource("telnet"), nullptr);
    EXPECT_EQ(find_resource("telnet")->directions, Directions::from_only);
}

TEST(Resources, AreNotFoundByAnyOtherName)
{
    EXPECT_EQ(find_resource("radios"), nullptr);
    EXPECT_EQ(find_resource("radi"), nullptr);
    EXPECT_EQ(find_resource("Radio"), nullptr);
    EXPECT_EQ(find_resource(""), nullptr);
}

TEST(Resources, AreRawInTwoCases)
{
    std::set<std::string_view> raw;
    for (const Resource &resource : resources()) {
        if (is_raw(resource))
            raw.insert(resource.name);
    }
    EXPECT_EQ(raw, (std::set<std::string_view>{"backup_restore", "upgrade_by_file"}));
}

} // namespace

} // namespace kelmora_host::plugin_registry_test
