#include "host/contract/learn_courses.h"

#include "from_translator.h"
#include "kelmora_records.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace kelmora_host::learn_courses_test {

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using Access = kelmora_remote_web_access;

/// The range, an object, when it is enabled; its end when the port is 2 or 3; errors of a port above 5.
bool conditions(const json_t *root, Access & /*access*/, kelmora_errorlist *errors)
{
    const bool enabled = json_is_true(json_object_get(root, "enabled"));
    const json_int_t port = json_integer_value(json_object_get(root, "port"));
    if (port > 5)
        kelmora_errorlist_add_error(errors, "port", "unknown", "json");
    if (enabled) {
        const json_t *range = json_object_get(root, "range");
        json_string_value(json_object_get(range, "start"));
        if (port == 2 || port == 3)
            json_string_value(json_object_get(range, "end"));
    }
    return true;
}

TEST(Courses, TellWithWhichValueAKeyIsLookedAt)
{
    const Learned<Access, conditions> learned;
    const std::vector<Condition> when = learned.courses.looked_at_when("/range");
    ASSERT_EQ(when.size(), 1);
    EXPECT_EQ(when.front().path, "/enabled");
    EXPECT_THAT(when.front().values, ElementsAre("true"));
    EXPECT_THAT(learned.courses.looked_at_when("/port"), IsEmpty());
}

TEST(Courses, LeaveOutWhatHoldsForTheObjectThatAKeyIsIn)
{
    const Learned<Access, conditions> learned;
    EXPECT_THAT(learned.courses.looked_at_when("/range/start"), IsEmpty());
    const std::vector<Condition> when = learned.courses.looked_at_when("/range/end");
    ASSERT_EQ(when.size(), 1);
    EXPECT_EQ(when.front().path, "/port");
    EXPECT_THAT(when.front().values, ElementsAre("2", "3"));
}

TEST(Courses, TellTheValuesOfAnIntegerThatChangeSomething)
{
    const Learned<Access, conditions> learned;
    InputKey key;
    key.path = "/port";
    learned.courses.learn_decisions(key);
    EXPECT_THAT(key.values, ElementsAre("0", "1", "2", "3", "4", "5"));
    ASSERT_TRUE(key.unknown);
    EXPECT_EQ(key.unknown->message, "unknown");
}

TEST(Courses, KnowWhatHappensWithoutAKey)
{
    const Learned<Access, conditions> learned;
    EXPECT_TRUE(learned.courses.without("/range").accepted);
    EXPECT_TRUE(learned.courses.without("/enabled").accepted);
    EXPECT_FALSE(learned.courses.without("/enabled").has_looked("/range"));
}

} // namespace

} // namespace kelmora_host::learn_courses_test
