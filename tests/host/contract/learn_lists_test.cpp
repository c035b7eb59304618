#include "host/contract/learn_lists.h"

#include "from_translator.h"
#include "kelmora_records.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <gtest/gtest.h>

namespace kelmora_host::learn_lists_test {

namespace {

using Limits = kelmora_limits;
using Limit = kelmora_limits_wifi_limit;
using Detection = kelmora_loop_back_detect;

template <class T, auto take> InputKey list_of(const char *resource)
{
    const InputSubject subject(*find_resource(resource), taking<T, take>);
    const FoundKeys keys = find_keys(subject);
    const Courses courses(subject, keys);
    const Needs needs(subject, keys, courses);
    const KeyFieldLearner fields(subject, keys, needs);
    InputKey key;
    key.path = "/list";
    key.type = InputType::array;
    key.required = needs.of("/list").always;
    ListLearner(subject, keys, fields).learn_list(key);
    return key;
}

Limit *new_limit(const json_t *list, std::size_t index)
{
    auto *limit = static_cast<Limit *>(std::calloc(1, sizeof(Limit)));
    limit->value = static_cast<std::int32_t>(json_integer_value(json_object_get(json_array_get(list, index), "value")));
    return limit;
}

/// Puts each element in front; takes 3 at most.
bool in_front(const json_t *root, Limits &limits, kelmora_errorlist *errors)
{
    const json_t *list = json_object_get(root, "list");
    if (json_array_size(list) > 3) {
        kelmora_errorlist_add_error(errors, "list", "too many", "json");
        return false;
    }
    for (std::size_t i = 0; i < json_array_size(list); ++i) {
        Limit *limit = new_limit(list, i);
        limit->next = limits.wifi_limits;
        limits.wifi_limits = limit;
    }
    return true;
}

TEST(ListLearner, FindsAChainThatGrowsInFront)
{
    const InputKey key = list_of<Limits, in_front>("limits");
    ASSERT_EQ(key.fields.size(), 1);
    EXPECT_EQ(key.fields.front().path, "wifi_limits");
    EXPECT_EQ(key.effect, ListEffect::prepends);
    EXPECT_TRUE(key.empty_keeps);
    EXPECT_FALSE(key.cleared_when_absent);
}

TEST(ListLearner, FindsHowManyElementsAreTaken)
{
    const InputKey key = list_of<Limits, in_front>("limits");
    EXPECT_EQ(key.least, 0);
    EXPECT_EQ(key.most, 3);
    EXPECT_EQ(key.too_many, Excess::rejected);
    ASSERT_TRUE(key.out_of_size);
    EXPECT_EQ(key.out_of_size->message, "too many");
}

/// Replaces the chain, with nothing too.
bool in_place(const json_t *root, Limits &limits, kelmora_errorlist * /*errors*/)
{
    const json_t *list = json_object_get(root, "list");
    limits.wifi_limits = nullptr;
    Limit **end = &limits.wifi_limits;
    for (std::size_t i = 0; i < json_array_size(list); ++i) {
        *end = new_limit(list, i);
        end = &(*end)->next;
    }
    return true;
}

TEST(ListLearner, FindsAChainThatIsReplaced)
{
    const InputKey key = list_of<Limits, in_place>("limits");
    EXPECT_EQ(key.effect, ListEffect::replaces);
    EXPECT_FALSE(key.empty_keeps);
    EXPECT_TRUE(key.cleared_when_absent);
    EXPECT_FALSE(key.most);
    EXPECT_EQ(key.too_many, Excess::none);
}

/// Writes the elements over the first slots, which are then in use.
bool into_slots(const json_t *root, Detection &detection, kelmora_errorlist *errors)
{
    const json_t *list = json_object_get(root, "list");
    if (list == nullptr)
        return is_missing(errors, "list");
    for (std::size_t i = 0; i < std::min<std::size_t>(json_array_size(list), 16); ++i) {
        detection.vlan_list[i].vlan_id =
            static_cast<std::uint16_t>(json_integer_value(json_object_get(json_array_get(list, i), "vlan")));
        detection.vlan_list[i].in_use = 1;
    }
    return true;
}

TEST(ListLearner, FindsSlotsThatAreWrittenOver)
{
    const InputKey key = list_of<Detection, into_slots>("loop_back_detect");
    ASSERT_EQ(key.fields.size(), 1);
    EXPECT_EQ(key.fields.front().path, "vlan_list");
    EXPECT_EQ(key.effect, ListEffect::overwrites);
    EXPECT_EQ(key.most, 16);
    EXPECT_EQ(key.too_many, Excess::ignored);
    ASSERT_EQ(key.also_sets.size(), 1);
    EXPECT_EQ(key.also_sets.front().path, "vlan_list[].in_use");
}

} // namespace

} // namespace kelmora_host::learn_lists_test
