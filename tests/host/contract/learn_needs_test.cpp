#include "host/contract/learn_needs.h"

#include "from_translator.h"
#include "kelmora_records.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace kelmora_host::learn_needs_test {

namespace {

using ::testing::ElementsAre;
using Access = kelmora_remote_web_access;

/// enabled always; port when the mode is 2; rangeStart or rangeEnd; spare never.
bool needs_of_all_sorts(const json_t *root, Access &access, kelmora_errorlist *errors)
{
    const json_t *enabled = json_object_get(root, "enabled");
    if (enabled == nullptr)
        return is_missing(errors, "enabled");
    const json_int_t mode = json_integer_value(json_object_get(root, "mode"));
    const json_t *port = json_object_get(root, "port");
    if (mode == 2 && port == nullptr)
        return is_missing(errors, "port");
    access.port = static_cast<std::uint32_t>(json_integer_value(port));
    const json_t *start = json_object_get(root, "rangeStart");
    const json_t *end = json_object_get(root, "rangeEnd");
    if (start == nullptr && end == nullptr)
        return is_missing(errors, "rangeStart");
    json_string_value(start);
    json_string_value(end);
    json_integer_value(json_object_get(root, "spare"));
    return true;
}

/// pingWan when the record has ipv6Enabled, whatever else there is.
bool ping_with_ipv6(const json_t *root, Access &access, kelmora_errorlist *errors)
{
    access.enabled = json_is_true(json_object_get(root, "enabled"));
    const json_t *ping = json_object_get(root, "pingWan");
    if (ping == nullptr && access.ipv6Enabled != 0)
        return is_missing(errors, "pingWan");
    access.pingWan = json_is_true(ping);
    return true;
}

TEST(Needs, KnowWhatMustAlwaysBeThere)
{
    const Learned<Access, needs_of_all_sorts> learned;
    EXPECT_TRUE(learned.needs.of("/enabled").always);
    ASSERT_TRUE(learned.needs.of("/enabled").error);
    EXPECT_EQ(learned.needs.of("/enabled").error->field, "enabled");
    EXPECT_FALSE(learned.needs.is_optional("/enabled"));
}

TEST(Needs, KnowWhatNeedNeverBeThere)
{
    const Learned<Access, needs_of_all_sorts> learned;
    EXPECT_TRUE(learned.needs.is_optional("/spare"));
    EXPECT_FALSE(learned.needs.of("/spare").error);
}

TEST(Needs, FindTheValueOfAnotherKeyThatDecides)
{
    const Learned<Access, needs_of_all_sorts> learned;
    const Need &port = learned.needs.of("/port");
    EXPECT_FALSE(port.always);
    ASSERT_EQ(port.when.size(), 1);
    EXPECT_EQ(port.when.front().path, "/mode");
    EXPECT_THAT(port.when.front().values, ElementsAre("2"));
    EXPECT_FALSE(learned.needs.is_optional("/port"));
    InputKey mode;
    mode.path = "/mode";
    learned.needs.add_decisions(mode);
    EXPECT_THAT(mode.values, ElementsAre("2"));
}

TEST(Needs, FindTheFieldOfTheRecordThatDecides)
{
    const Learned<Access, ping_with_ipv6> learned;
    const Need &ping = learned.needs.of("/pingWan");
    EXPECT_FALSE(ping.always);
    ASSERT_EQ(ping.when.size(), 1);
    EXPECT_EQ(ping.when.front().path, "");
    EXPECT_EQ(ping.when.front().field, "ipv6Enabled");
    EXPECT_THAT(ping.when.front().values, ElementsAre("0"));
    EXPECT_TRUE(ping.when.front().except);
}

TEST(Needs, NumberTheKeysOfWhichOneMustBeThere)
{
    const Learned<Access, needs_of_all_sorts> learned;
    std::vector<InputKey> keys;
    for (const char *path : {"/enabled", "/rangeStart", "/rangeEnd"}) {
        keys.emplace_back();
        keys.back().path = path;
    }
    learned.needs.find_groups(keys);
    EXPECT_EQ(keys[0].at_least_one, 0);
    EXPECT_EQ(keys[1].at_least_one, 1);
    EXPECT_EQ(keys[2].at_least_one, 1);
}

} // namespace

} // namespace kelmora_host::learn_needs_test
