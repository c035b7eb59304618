// What holds for every from-translator, tried with the resource's example.

#include "tests/robustness/resources.h"
#include "tests/support/from_test.h"

#include "harness/poison.h"

#include "kelmora_json.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <jansson.h>
#include <memory>
#include <utility>

namespace kelmora_test::reading_test {

namespace {

using kelmora_host::Record;

kelmora_from_translator translator_of(const Resource &resource)
{
#define FROM(number, name, group, directions) &name##_from_translator,
    static constexpr std::array<kelmora_from_translator, KELMORA_RESOURCE_COUNT> translators{KELMORA_RESOURCES(FROM)};
#undef FROM
    return translators[static_cast<std::size_t>(resource.number)];
}

/// The resources whose from-translator does nothing.
std::vector<Resource> read_only_resources()
{
    const std::vector<Resource> read = read_resources();
    std::vector<Resource> others;
    for (const Resource &resource : kelmora_host::resources()) {
        if (!is_raw(resource) && std::none_of(read.begin(), read.end(),
                                              [&](const Resource &other) { return other.number == resource.number; }))
            others.push_back(resource);
    }
    return others;
}

/// Repeats the elements of each array, also of nested ones, until it has this many.
void lengthen(json_t *json, std::size_t count)
{
    const char *key = nullptr;
    json_t *value = nullptr;
    json_object_foreach(json, key, value) lengthen(value, count);
    const std::size_t size = json_array_size(json);
    for (std::size_t i = 0; i < size; ++i)
        lengthen(json_array_get(json, i), count);
    for (std::size_t i = size; size != 0 && i < count; ++i)
        json_array_append_new(json, json_deep_copy(json_array_get(json, i - size)));
}

/// The example, its lists of three elements at least, behind a key of nobody's that makes jansson's parser enlarge its
/// buffer there and for no later string.
std::string document_of(const Resource &resource)
{
    json_t *json = json_loads(example_of(resource).c_str(), 0, nullptr);
    lengthen(json, 3);
    const std::unique_ptr<char, void (*)(void *)> text(json_dumps(json, 0), std::free);
    json_decref(json);
    return "{\"" + std::string(1000, 'k') + "\": 0, " + (text.get() + 1);
}

class Reading : public FromTestBase, public testing::WithParamInterface<Resource> {
protected:
    Reading(const std::string &document, Record guarded)
        : FromTestBase(translator_of(GetParam()), document, std::move(guarded))
    {
    }
    Reading() : Reading(document_of(GetParam()), kelmora_harness::poisoned_record(GetParam()))
    {
        leaks_document_on_success_ = GetParam().name == "dhcp_server" || GetParam().name == "loop_back_detect" ||
                                     GetParam().name == "tr369_local_agent_mtp";
        fetches_without_document_ = GetParam().name == "session" ? 1 : 0; // fetches it before it looks at the text
    }

    void poison() override { node_.record() = kelmora_harness::poisoned_record(GetParam()); }
    std::string image() override { return kelmora_harness::image_of(GetParam(), node_.record()); }
};

TEST_P(Reading, KeepsTheCommonContract) { expect_common_contract(); }

TEST_P(Reading, SurvivesFailingMemory) { expect_survives_failing_memory(); }

INSTANTIATE_TEST_SUITE_P(Every, Reading, testing::ValuesIn(read_resources()), test_name);

class ReadOnly : public Reading {
protected:
    ReadOnly() : Reading("", kelmora_harness::guarded_copy(GetParam(), samples_of(GetParam()).front().record())) {}
};

TEST_P(ReadOnly, AcceptsAnythingAndTouchesNothing)
{
    const std::string before = image();
    Nodes nodes = samples_of(GetParam());
    const std::string own = write_out(GetParam(), nodes, false).text;
    for (const std::string &text : {std::string(), std::string("{"), own, std::string("[]"), std::string("{}"),
                                    std::string("null"), std::string("nonsense")}) {
        EXPECT_TRUE(accepts(text));
        EXPECT_TRUE(image() == before) << "the record was written";
        EXPECT_EQ(fetches_, 0U);
    }
    EXPECT_EQ(translator_of(GetParam())(nullptr, nullptr, nullptr), 1);
}

INSTANTIATE_TEST_SUITE_P(Every, ReadOnly, testing::ValuesIn(read_only_resources()), test_name);

} // namespace

} // namespace kelmora_test::reading_test
