#include "host/contract/learn_values.h"

#include "from_translator.h"
#include "host/contract/learn_key_fields.h"
#include "kelmora_records.h"

#include <algorithm>
#include <cstring>
#include <gtest/gtest.h>

namespace kelmora_host::learn_values_test {

namespace {

using Access = kelmora_remote_web_access;

/// Stores a byte and a capped word of numbers, a string that is cut, one that is rejected, one whose type is checked,
/// and one that counts as absent when it is no string.
bool values_of_all_sorts(const json_t *root, Access &access, kelmora_errorlist *errors)
{
    if (const json_t *ping = json_object_get(root, "pingWan"))
        access.pingWan = static_cast<std::uint8_t>(json_integer_value(ping));
    if (const json_t *port = json_object_get(root, "port"))
        access.port = static_cast<std::uint32_t>(std::min<json_int_t>(json_integer_value(port), 0xFFFFFFFF));
    if (const json_t *start = json_object_get(root, "rangeStart")) {
        if (!json_is_string(start)) {
            kelmora_errorlist_add_error(errors, "rangeStart", "no string", "json");
            return false;
        }
        std::strncpy(access.rangeStart, json_string_value(start), sizeof access.rangeStart - 1);
        access.rangeStart[sizeof access.rangeStart - 1] = '\0';
    }
    const json_t *end = json_object_get(root, "rangeEnd");
    if (const char *text = json_string_value(end)) {
        if (std::strlen(text) > 15) {
            kelmora_errorlist_add_error(errors, "rangeEnd", "too long", "json");
            return false;
        }
        std::memcpy(access.rangeEnd, text, std::strlen(text) + 1);
    }
    return true;
}

struct LearnedKeys : Learned<Access, values_of_all_sorts> {
    [[nodiscard]] InputKey key(const char *path) const
    {
        const ValueLearner values(subject, keys, needs);
        InputKey key;
        key.path = path;
        key.type = type_of(keys.at(path));
        values.learn_types(key);
        KeyFieldLearner(subject, keys, needs).learn_fields(key);
        values.learn_range(key);
        return key;
    }
};

TEST(ValueLearner, FindsTheWidthOfIntegersAndWhatBecomesOfLargerOnes)
{
    const LearnedKeys learned;
    const InputKey ping = learned.key("/pingWan");
    EXPECT_EQ(ping.bits, 8);
    EXPECT_FALSE(ping.saturates);
    const InputKey port = learned.key("/port");
    EXPECT_EQ(port.bits, 32);
    EXPECT_TRUE(port.saturates);
}

TEST(ValueLearner, FindsHowLongStringsMayBeAndWhatBecomesOfLongerOnes)
{
    const LearnedKeys learned;
    const InputKey start = learned.key("/rangeStart");
    EXPECT_EQ(start.longest, 16);
    EXPECT_EQ(start.too_long, Excess::cut);
    const InputKey end = learned.key("/rangeEnd");
    EXPECT_EQ(end.longest, 15);
    EXPECT_EQ(end.too_long, Excess::rejected);
    ASSERT_TRUE(end.out_of_size);
    EXPECT_EQ(end.out_of_size->message, "too long");
}

TEST(ValueLearner, TellsTypesThatAreCheckedSkippedOrConverted)
{
    const LearnedKeys learned;
    const InputKey start = learned.key("/rangeStart");
    EXPECT_TRUE(start.checked);
    EXPECT_FALSE(start.skipped);
    ASSERT_TRUE(start.unfit);
    EXPECT_EQ(start.unfit->message, "no string");
    const InputKey end = learned.key("/rangeEnd");
    EXPECT_FALSE(end.checked);
    EXPECT_TRUE(end.skipped);
    const InputKey ping = learned.key("/pingWan");
    EXPECT_FALSE(ping.checked);
    EXPECT_FALSE(ping.skipped);
}

} // namespace

} // namespace kelmora_host::learn_values_test
