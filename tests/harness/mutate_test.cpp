#include "harness/mutate.h"

#include "host/json.h"

#include <gtest/gtest.h>
#include <set>
#include <string>

namespace kelmora_harness::mutate_test {

namespace {

using kelmora_host::Json;

constexpr const char *document = R"({"a": 1, "list": [{"b": "x"}, {"b": "y"}], "c": {"d": true}})";

TEST(Mutated, IsStillJsonAndOfTheSameRoot)
{
    Random random(1);
    for (const char *text : {document, "{}", "[]", "[1, 2]"}) {
        for (int i = 0; i < 2000; ++i) {
            const Json json(json_loads(mutated(text, random).c_str(), 0, nullptr));
            ASSERT_TRUE(json);
            EXPECT_EQ(json_is_array(json.get()), text[0] == '[');
        }
    }
}

TEST(Mutated, ReachesEveryDepth)
{
    Random random(1);
    bool lost_a_root_member = false;
    bool changed_a_nested_member = false;
    bool grew_the_list = false;
    for (int i = 0; i < 2000; ++i) {
        const Json json(json_loads(mutated(document, random).c_str(), 0, nullptr));
        lost_a_root_member |= json_object_get(json.get(), "a") == nullptr;
        const json_t *list = json_object_get(json.get(), "list");
        changed_a_nested_member |= json_is_integer(json_object_get(json_array_get(list, 1), "b"));
        grew_the_list |= json_array_size(list) > 20;
    }
    EXPECT_TRUE(lost_a_root_member);
    EXPECT_TRUE(changed_a_nested_member);
    EXPECT_TRUE(grew_the_list);
}

TEST(Mutated, IsTheSameForTheSameRandomNumbers)
{
    Random one(7);
    Random other(7);
    for (int i = 0; i < 20; ++i)
        EXPECT_EQ(mutated(document, one), mutated(document, other));
}

TEST(RandomValue, IsOfEveryKind)
{
    Random random(1);
    std::set<json_type> kinds;
    for (int i = 0; i < 1000; ++i) {
        const Json value(random_value(random));
        ASSERT_TRUE(value);
        kinds.insert(json_typeof(value.get()));
    }
    EXPECT_EQ(kinds, (std::set<json_type>{JSON_OBJECT, JSON_ARRAY, JSON_STRING, JSON_INTEGER, JSON_REAL, JSON_TRUE,
                                          JSON_FALSE, JSON_NULL}));
}

TEST(Broken, DiffersByAByteOrIsCutShortAndHasNoNul)
{
    Random random(1);
    const std::string text = document;
    int unparsable = 0;
    for (int i = 0; i < 1000; ++i) {
        const std::string wrong = broken(text, random);
        EXPECT_LE(wrong.size(), text.size() + 1);
        EXPECT_EQ(wrong.find('\0'), std::string::npos);
        unparsable += Json(json_loads(wrong.c_str(), 0, nullptr)) ? 0 : 1;
    }
    EXPECT_GT(unparsable, 500);
}

TEST(DeepDocument, IsOnBothSidesOfWhatJanssonParses)
{
    Random random(1);
    std::set<bool> parsed;
    for (int i = 0; i < 200; ++i)
        parsed.insert(Json(json_loads(deep_document(random).c_str(), 0, nullptr)) != nullptr);
    EXPECT_EQ(parsed.size(), 2U);
}

} // namespace

} // namespace kelmora_harness::mutate_test
