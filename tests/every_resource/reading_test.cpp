// What holds for every from-translator, tried with the resource's example.

#include "tests/robustness/resources.h"
#include "tests/support/from_test.h"

#include "host/gateway/gateway.h"

#include "kelmora_json.h"
#include "kelmora_records.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <jansson.h>
#include <memory>

namespace kelmora_test {

namespace {

using kelmora_host::ChainRecord;
using kelmora_host::Directions;
using kelmora_host::Owned;
using kelmora_host::Record;

/// What is done with the record of a resource.
struct Type {
    kelmora_from_translator from;
    Record (*guarded)(Record sample);
    void (*poison)(Record &guarded, unsigned char stale);
    std::string (*image)(const Record &guarded);
};

template <class T> struct TypeOf {
    static Record guarded(Record sample)
    {
        const Guarded<T> guarded{sample.as<T>()};
        kelmora_host::Forget forget; // it owns them now
        Owned<T>::visit(sample.as<T>(), forget);
        return Record(guarded);
    }

    static void poison(Record &guarded, unsigned char stale)
    {
        kelmora_host::Free free;
        Owned<T>::visit(guarded.as<Guarded<T>>().record, free);
        std::memset(guarded.bytes(), stale, guarded.size());
        kelmora_host::Forget forget;
        Owned<T>::visit(guarded.as<Guarded<T>>().record, forget);
    }

    static std::string image(const Record &guarded)
    {
        Record copy = guarded;
        T bytes = copy.as<Guarded<T>>().record;
        Image image;
        Owned<T>::visit(bytes, image);
        return std::string(reinterpret_cast<const char *>(&bytes), sizeof bytes) + image.bytes();
    }
};

// A node's data is the chain itself.
template <> struct TypeOf<kelmora_qos_available_dscp> : TypeOf<ChainRecord<kelmora_qos_available_dscp>> {
};

const Type &type_of(const Resource &resource)
{
#define TYPE(number, name, group, directions)                                                                          \
    {&name##_from_translator, &TypeOf<kelmora_##name>::guarded, &TypeOf<kelmora_##name>::poison,                       \
     &TypeOf<kelmora_##name>::image},
    static constexpr std::array<Type, KELMORA_RESOURCE_COUNT> types{{KELMORA_RESOURCES(TYPE)}};
#undef TYPE
    return types[static_cast<std::size_t>(resource.number)];
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
    explicit Reading(const std::string &document)
        : FromTestBase(type_of(GetParam()).from, document,
                       type_of(GetParam()).guarded(samples_of(GetParam()).front().record()))
    {
    }
    Reading() : Reading(document_of(GetParam()))
    {
        leaks_document_on_success_ = GetParam().name == "dhcp_server" || GetParam().name == "loop_back_detect" ||
                                     GetParam().name == "tr369_local_agent_mtp";
        fetches_without_document_ = GetParam().name == "session" ? 1 : 0; // fetches it before it looks at the text
        Reading::poison();
    }

    void poison() override { type_of(GetParam()).poison(node_.record(), stale); }
    std::string image() override { return type_of(GetParam()).image(node_.record()); }
};

TEST_P(Reading, KeepsTheCommonContract) { expect_common_contract(); }

TEST_P(Reading, SurvivesFailingMemory) { expect_survives_failing_memory(); }

INSTANTIATE_TEST_SUITE_P(Every, Reading, testing::ValuesIn(read_resources()), test_name);

class ReadOnly : public Reading {
protected:
    ReadOnly() : Reading("") {}
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
    EXPECT_EQ(type_of(GetParam()).from(nullptr, nullptr, nullptr), 1);
}

INSTANTIATE_TEST_SUITE_P(Every, ReadOnly, testing::ValuesIn(read_only_resources()), test_name);

} // namespace

} // namespace kelmora_test
