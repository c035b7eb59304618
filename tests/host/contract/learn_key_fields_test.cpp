#include "host/contract/learn_key_fields.h"

#include "from_translator.h"
#include "kelmora_records.h"

#include <cstring>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace kelmora_host::learn_key_fields_test {

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using Access = kelmora_remote_web_access;

void store(char (&field)[17], const json_t *value)
{
    const char *text = json_string_value(value);
    std::strncpy(field, text != nullptr ? text : "", sizeof field - 1);
    field[sizeof field - 1] = '\0';
}

/// The start and the end are stored as a pair only; the port switches the access on; ping without a value is 0.
bool fields_of_all_sorts(const json_t *root, Access &access, kelmora_errorlist * /*errors*/)
{
    const json_t *start = json_object_get(root, "start");
    const json_t *end = json_object_get(root, "end");
    if (start != nullptr && end != nullptr) {
        store(access.rangeStart, start);
        store(access.rangeEnd, end);
    }
    if (const json_t *port = json_object_get(root, "port")) {
        access.port = static_cast<std::uint32_t>(json_integer_value(port));
        access.enabled = 1;
    }
    access.pingWan = json_is_true(json_object_get(root, "ping"));
    look_at(json_object_get(root, "unused"));
    return true;
}

struct LearnedKeys : Learned<Access, fields_of_all_sorts> {
    [[nodiscard]] InputKey key(const char *path) const
    {
        const KeyFieldLearner fields(subject, keys, needs);
        InputKey key;
        key.path = path;
        key.type = type_of(keys.at(path));
        fields.learn_fields(key);
        fields.learn_only_with(key);
        fields.learn_also_sets(key);
        fields.learn_absence(key);
        return key;
    }
};

std::vector<std::string> paths(const std::vector<KeyField> &fields)
{
    std::vector<std::string> all;
    all.reserve(fields.size());
    for (const KeyField &field : fields)
        all.push_back(field.path);
    return all;
}

TEST(KeyFieldLearner, FindsTheFieldThatAKeyIsStoredIn)
{
    const LearnedKeys learned;
    EXPECT_THAT(paths(learned.key("/start").fields), ElementsAre("rangeStart"));
    EXPECT_THAT(paths(learned.key("/ping").fields), ElementsAre("pingWan"));
    EXPECT_THAT(learned.key("/unused").fields, IsEmpty());
}

TEST(KeyFieldLearner, FindsTheKeyWithoutWhichNothingIsStored)
{
    const LearnedKeys learned;
    EXPECT_THAT(learned.key("/start").only_with, ElementsAre("/end"));
    EXPECT_THAT(learned.key("/end").only_with, ElementsAre("/start"));
    EXPECT_THAT(learned.key("/port").only_with, IsEmpty());
}

TEST(KeyFieldLearner, FindsTheFieldsThatThePresenceOfAKeySets)
{
    const LearnedKeys learned;
    EXPECT_THAT(paths(learned.key("/port").also_sets), ElementsAre("enabled"));
    EXPECT_THAT(learned.key("/ping").also_sets, IsEmpty());
}

TEST(KeyFieldLearner, FindsWhatIsClearedWithoutAKey)
{
    const LearnedKeys learned;
    EXPECT_TRUE(learned.key("/ping").cleared_when_absent);
    EXPECT_FALSE(learned.key("/port").cleared_when_absent);
}

} // namespace

} // namespace kelmora_host::learn_key_fields_test
