#include "host/registry.h"

#include "host/errors.h"
#include "host/node.h"
#include "host/roads.h"

#include "kelmora_json.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <set>

namespace kelmora_host {

namespace {

class Init : public testing::Test {
protected:
    Init() { Registry::instance().clear(); }
    ~Init() override { Registry::instance().clear(); }

    const std::vector<Registration> &log_ = Registry::instance().log();
};

TEST_F(Init, RegistersTheNumbers0To97InOrder)
{
    kelmora_json_init();
    ASSERT_EQ(log_.size(), 98U);
    for (int number = 0; number < 98; ++number)
        EXPECT_EQ(log_[static_cast<std::size_t>(number)].number, number);
}

TEST_F(Init, RegistersThePairOfEachServedResourceFromBeforeTo)
{
    kelmora_json_init();
#define EXPECT_PAIR(number, name, group, directions)                                                                   \
    EXPECT_EQ(log_[number].from, name##_from_translator) << #name;                                                     \
    EXPECT_EQ(log_[number].to, name##_to_translator) << #name;
#define EXPECT_NOTHING(number, name, group, directions)
    KELMORA_RESOURCES(EXPECT_PAIR, EXPECT_NOTHING)
#undef EXPECT_PAIR
#undef EXPECT_NOTHING
    EXPECT_EQ(log_[0].from, wireless_from_translator);
    EXPECT_EQ(log_[0].to, wireless_to_translator);
    EXPECT_EQ(log_[5].from, radio_from_translator);
    EXPECT_EQ(log_[20].to, site_survey_to_translator);
}

TEST_F(Init, ReturnsTheAnswerToTheLastPairAlone)
{
    Registry::instance().answer = [](const Registration &registration) { return registration.number == 97 ? 42 : -1; };
    EXPECT_EQ(kelmora_json_init(), 42);
    EXPECT_EQ(log_.size(), 98U);
    Registry::instance().answer = [](const Registration &registration) { return registration.number == 97 ? 0 : 1; };
    EXPECT_EQ(kelmora_json_init(), 0);
}

TEST_F(Init, RegistersTheSamePairsWhenCalledAgain)
{
    kelmora_json_init();
    const std::vector<Registration> first = log_;
    kelmora_json_init();
    ASSERT_EQ(log_.size(), 196U);
    for (std::size_t i = 0; i < 98; ++i) {
        EXPECT_EQ(log_[98 + i].number, first[i].number);
        EXPECT_EQ(log_[98 + i].from, first[i].from);
        EXPECT_EQ(log_[98 + i].to, first[i].to);
    }
}

TEST_F(Init, AnswersNotSupportedForEveryResourceWithoutAUnit)
{
    kelmora_json_init();
    std::size_t pending = 0;
    for (const Resource &resource : resources()) {
        if (resource.served)
            continue;
        ++pending;
        std::vector<Node> nodes{Node("id", Record(0))};
        const Registration *pair = Registry::instance().find(resource.number);
        const WriteAnswer written = write(pair->from, nodes.front(), "{}");
        EXPECT_EQ(written.result, 0);
        EXPECT_THAT(written.errors, testing::ElementsAre(Error{"", "not supported", "json"}));
        const ReadAnswer list = read(pair->to, nodes, true);
        EXPECT_EQ(list.result, 0);
        EXPECT_EQ(list.text, "[]");
        const ReadAnswer object = read(pair->to, nodes, false);
        EXPECT_EQ(object.result, 0);
        EXPECT_EQ(object.text, "{}");
    }
    EXPECT_LT(pending, 98U);
}

TEST(Version, IsOneConstant)
{
    EXPECT_STREQ(kelmora_json_get_version(), "1.3.0");
    EXPECT_EQ(kelmora_json_get_version(), kelmora_json_get_version());
}

TEST(Resources, HaveTheNumbersThatTheHostKnows)
{
    // A few that are easily taken for each other.
    const std::vector<std::pair<int, std::string_view>> numbers = {{0, "wireless"},
                                                                   {3, "natportredirect"},
                                                                   {5, "radio"},
                                                                   {14, "action"},
                                                                   {20, "site_survey"},
                                                                   {26, "filter"},
                                                                   {44, "loop_back_detect"},
                                                                   {50, "loopback_detect_status"},
                                                                   {51, "acl_capability"},
                                                                   {65, "neighbour_hosts"},
                                                                   {66, "ipv6_acl_capability"},
                                                                   {97, "tr369_local_agent_controller"}};
    for (const auto &[number, name] : numbers)
        EXPECT_EQ(resources()[static_cast<std::size_t>(number)].name, name);
}

TEST(Resources, StandInTheOrderOfTheirNumbersUnderNamesOfTheirOwn)
{
    std::set<std::string_view> names;
    int number = 0;
    for (const Resource &resource : resources()) {
        EXPECT_EQ(resource.number, number++);
        EXPECT_TRUE(names.insert(resource.name).second) << resource.name;
    }
    EXPECT_EQ(number, 98);
}

} // namespace

} // namespace kelmora_host
