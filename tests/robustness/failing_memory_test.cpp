#include "tests/robustness/resources.h"

#include "tests/support/direct_text.h"
#include "tests/support/document.h"

#include "harness/jansson_alone.h"

#include "records/diagnostics.h"

#include <cstdlib>
#include <gtest/gtest.h>
#include <jansson.h>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace kelmora_test::failing_memory_test {

namespace {

/// Fails each allocation of a call in turn, that one alone or all from there on.
/// call(FailingAllocation) -> how many allocations were asked for.
template <class Call> void fail_each_allocation(Call call, bool allocates = true)
{
    for (const Failing failing : {Failing::once, Failing::from_then_on}) {
        std::size_t n = 1;
        while (call(FailingAllocation{n, failing}) >= n)
            ++n;
        EXPECT_TRUE(n > 1 || !allocates) << "no allocation failed";
    }
}

std::string which(FailingAllocation memory)
{
    return "with allocation " + std::to_string(memory.number) +
           (memory.failing == Failing::once ? " failing" : " and all later ones failing");
}

/// A wrong text that is reported as success must be one that jansson alone renders, and each of those must occur: an
/// explanation that explains nothing would hide something else. Of a text that jansson does not render there is none.
void write_with_failing_memory(const Resource &resource, Nodes &nodes, bool as_list)
{
    const Written right = write_out(resource, nodes, as_list);
    EXPECT_EQ(right.result, 1);
    EXPECT_TRUE(parses(right.text)) << right.text;
    const char *empty = right.text.front() == '[' ? "[]" : "{}"; // not every root is what was asked for
    std::map<Failing, std::set<std::string>> damaged;
    fail_each_allocation(
        [&](FailingAllocation memory) {
            const Written written = write_out(resource, nodes, as_list, memory);
            const bool reached = written.allocations >= memory.number;
            if (written.result == 0) {
                EXPECT_EQ(written.text, empty) << which(memory);
            } else {
                EXPECT_EQ(written.result, 1) << which(memory);
            }
            if (written.result != 0 && written.text != right.text) {
                EXPECT_TRUE(reached) << written.text;
                damaged[memory.failing].insert(written.text);
            }
            if (!reached) {
                EXPECT_EQ(written.result, 1) << "though no allocation failed";
            }
            if (direct_text) {
                EXPECT_EQ(written.result, reached ? 0 : 1) << which(memory);
            }
            return written.allocations;
        },
        !direct_text);
    for (const Failing failing : {Failing::once, Failing::from_then_on}) {
        const std::set<std::string> explained =
            direct_text ? std::set<std::string>{} : kelmora_harness::damaged_renderings(right.text, failing);
        EXPECT_EQ(damaged[failing], explained) << "instead of\n" << right.text;
    }
}

class FailingMemoryWhileWriting : public testing::TestWithParam<Resource> {};

TEST_P(FailingMemoryWhileWriting, GivesTheRightTextOrTheEmptyDocument)
{
    Nodes nodes = samples_of(GetParam());
    write_with_failing_memory(GetParam(), nodes, true);
    write_with_failing_memory(GetParam(), nodes, false);
}

INSTANTIATE_TEST_SUITE_P(Every, FailingMemoryWhileWriting, testing::ValuesIn(written_resources()), test_name);

struct Release {
    void operator()(json_t *json) const { json_decref(json); }
};
using Json = std::unique_ptr<json_t, Release>;

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

std::string with_longer_lists(const std::string &document, std::size_t count)
{
    const Json json(json_loads(document.c_str(), 0, nullptr));
    lengthen(json.get(), count);
    char *rendered = json_dumps(json.get(), JSON_INDENT(4));
    std::string text = rendered;
    std::free(rendered);
    return text;
}

bool is_rejected_for_want_of_memory(const Answer &answer)
{
    return answer.result == 0 && answer.errors.size() == 1 &&
           (answer.errors[0].message == "invalid json data" || answer.errors[0].message == "out of memory");
}

void read_with_failing_memory(const Resource &resource, const std::string &document)
{
    const Answer right = read_in(resource, document);
    EXPECT_EQ(right.result, 1) << document;
    const std::optional<std::string> whole = kelmora_harness::parse_alone(document).text;
    std::map<Failing, std::set<std::string>> damaged_images; // found out when they are needed
    fail_each_allocation([&](FailingAllocation memory) {
        const Answer answer = read_in(resource, document, memory);
        const bool reached = answer.allocations >= memory.number;
        const kelmora_harness::Parsed parsed = kelmora_harness::parse_alone(document, memory);
        if (!parsed.text) {
            EXPECT_EQ(answer.result, 0) << which(memory);
            EXPECT_EQ(answer.errors, (std::vector<kelmora_host::Error>{{"", "invalid json data", "json"}}))
                << which(memory);
        } else if (parsed.text != whole) {
            // What jansson parses instead is the document that counts.
            EXPECT_TRUE(answer == read_in(resource, *parsed.text)) << which(memory) << " of " << *parsed.text;
        } else if (!(answer == right) && !(reached && is_rejected_for_want_of_memory(answer))) {
            const Failing failing = memory.failing;
            if (!damaged_images.contains(failing))
                damaged_images[failing] = kelmora_harness::damaged_images(document, right.image, failing);
            EXPECT_TRUE(reached && answer.result == 1 && answer.errors.empty() &&
                        damaged_images[failing].contains(answer.image))
                << which(memory) << " the result is " << answer.result << " with "
                << (answer.errors.empty() ? "no error" : answer.errors[0].message);
        }
        return answer.allocations;
    });
}

class FailingMemoryWhileReading : public testing::TestWithParam<Resource> {};

TEST_P(FailingMemoryWhileReading, GivesTheRightRecordOrOneError)
{
    const std::string document = example_of(GetParam());
    read_with_failing_memory(GetParam(), document);
    if (const std::string longer = with_longer_lists(document, 5); longer.find('[') != std::string::npos)
        read_with_failing_memory(GetParam(), longer);
}

INSTANTIATE_TEST_SUITE_P(Every, FailingMemoryWhileReading, testing::ValuesIn(read_resources()), test_name);

/// A node of http_request: the resource whose text is as long as its body.
Nodes request_with_body(std::size_t length)
{
    Nodes nodes;
    nodes.emplace_back("0", kelmora_host::Record(kelmora_http_request{
                                .dest = "192.0.2.1", .body = kelmora_host::make_text(std::string(length, 'b'))}));
    return nodes;
}

TEST(FailingMemoryForALargerBuffer, LeavesTheBufferAsItWasWithTheEmptyDocument)
{
    const Resource &resource = *kelmora_host::find_resource("http_request");
    for (const bool as_list : {true, false}) {
        Nodes nobody = request_with_body(0);
        const std::size_t rest = write_out(resource, nobody, as_list).text.size();
        for (const std::size_t length : {4095U, 4096U, 4097U, 8192U, 70000U, slow ? 70001U : 1U << 20U}) {
            Nodes nodes = request_with_body(length - rest);
            const Written right = write_out(resource, nodes, as_list);
            ASSERT_EQ(right.text.size(), length);
            ASSERT_EQ(right.reallocations, length < 4096 ? 0U : 1U);
            for (const Failing failing : {Failing::once, Failing::from_then_on}) {
                if (right.reallocations == 0)
                    continue;
                // The reallocation is a call's last request for memory.
                const Written written = write_out(resource, nodes, as_list, {right.allocations, failing});
                EXPECT_EQ(written.allocations, right.allocations);
                EXPECT_EQ(written.result, 0);
                EXPECT_EQ(written.text, as_list ? "[]" : "{}") << length;
            }
            write_with_failing_memory(resource, nodes, as_list);
        }
    }
}

} // namespace

} // namespace kelmora_test::failing_memory_test
