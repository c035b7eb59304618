#include "host/plugin/observer.h"

#include "host/json.h"
#include "host/plugin/translate.h"

#include "kelmora_host.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>
#include <thread>
#include <vector>

namespace kelmora_host::observer_test {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// Takes down what it is told, a word each.
class Scribe : public Observer {
public:
    std::vector<std::string> words;
    json_t *substitute = nullptr;

    void parsed(const char *text, const json_t *root) override
    {
        words.push_back(std::string("parsed ") + text + (root != nullptr ? "" : ", no document"));
        EXPECT_EQ(json_object_get(root, "what an observer does itself"), nullptr);
    }
    json_t *member(const json_t * /*object*/, const char *key, json_t *found) override
    {
        words.push_back(std::string("member ") + key + (found != nullptr ? "" : ", absent"));
        return substitute != nullptr ? substitute : found;
    }
    json_t *element(const json_t * /*array*/, std::size_t index, json_t *found) override
    {
        words.push_back("element " + std::to_string(index) + (found != nullptr ? "" : ", absent"));
        return found;
    }
    void counted(const json_t * /*array*/, std::size_t size) override
    {
        words.push_back("counted " + std::to_string(size));
    }
    void read(const json_t * /*value*/, Accessor accessor) override
    {
        words.push_back("read " + std::to_string(static_cast<int>(accessor)));
    }
    void rendered(const json_t * /*value*/) override { words.emplace_back("rendered"); }
    void failed(const kelmora_errorlist &errors) override { words.push_back("failed " + errors.errors.back().field); }
};

void use_jansson()
{
    const Json root(json_loads(R"({"a": [1, "x"], "b": 1.5})", 0, nullptr));
    json_t *array = json_object_get(root.get(), "a");
    (void)json_array_size(array);
    (void)json_integer_value(json_array_get(array, 0));
    (void)json_string_value(json_array_get(array, 1));
    EXPECT_EQ(json_array_get(array, 2), nullptr);
    (void)json_real_value(json_object_get(root.get(), "b"));
    (void)json_number_value(json_object_get(root.get(), "c"));
    json_malloc_t allocate = nullptr;
    json_free_t release = nullptr;
    json_get_alloc_funcs(&allocate, &release);
    release(json_dumps(root.get(), 0));
}

TEST(Observer, IsToldOfEachCallInOrder)
{
    Scribe scribe;
    {
        const Observation observation(scribe);
        use_jansson();
    }
    EXPECT_THAT(scribe.words, ElementsAre(R"(parsed {"a": [1, "x"], "b": 1.5})", "member a", "counted 2", "element 0",
                                          "read 1", "element 1", "read 0", "element 2, absent", "member b", "read 2",
                                          "member c, absent", "read 3", "rendered"));
}

TEST(Observer, IsToldOfTextsThatAreNoDocuments)
{
    Scribe scribe;
    const Observation observation(scribe);
    EXPECT_EQ(json_loads("{", 0, nullptr), nullptr);
    EXPECT_THAT(scribe.words, ElementsAre("parsed {, no document"));
}

TEST(Observer, IsToldNothingBeforeOrAfter)
{
    Scribe scribe;
    use_jansson();
    {
        const Observation observation(scribe);
    }
    use_jansson();
    EXPECT_THAT(scribe.words, IsEmpty());
}

TEST(Observer, IsToldNothingOfOtherThreads)
{
    Scribe scribe;
    const Observation observation(scribe);
    std::thread(use_jansson).join();
    EXPECT_THAT(scribe.words, IsEmpty());
}

TEST(Observer, MayHandOutAnotherValue)
{
    Scribe scribe;
    const Json other(json_integer(7));
    scribe.substitute = other.get();
    const Json object(json_object());
    const Observation observation(scribe);
    EXPECT_EQ(json_object_get(object.get(), "a"), other.get());
}

TEST(Observer, IsToldRightAfterEachError)
{
    Scribe scribe;
    kelmora_errorlist errors;
    const Observation observation(scribe);
    kelmora_errorlist_add_error(&errors, "a", "first", "json");
    kelmora_errorlist_add_error(&errors, "b", "second", "json");
    EXPECT_THAT(scribe.words, ElementsAre("failed a", "failed b"));
}

TEST(Observer, NestsAndAllAreTold)
{
    Scribe outer;
    Scribe inner;
    const Observation observation(outer);
    kelmora_errorlist errors;
    {
        const Observation nested(inner);
        kelmora_errorlist_add_error(&errors, "a", "first", "json");
    }
    kelmora_errorlist_add_error(&errors, "b", "second", "json");
    EXPECT_THAT(outer.words, ElementsAre("failed a", "failed b"));
    EXPECT_THAT(inner.words, ElementsAre("failed a"));
}

} // namespace

} // namespace kelmora_host::observer_test
