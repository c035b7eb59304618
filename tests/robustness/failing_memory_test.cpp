#include "tests/robustness/residues.h"
#include "tests/robustness/resources.h"

#include "tests/support/document.h"

#include "records/diagnostics.h"

#include <algorithm>
#include <cstdlib>
#include <gtest/gtest.h>
#include <jansson.h>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace kelmora_test {

namespace {

Names residues_of(const Resource &resource, const Residues &residues)
{
    const auto found = residues.find(resource.name);
    return found != residues.end() ? found->second : Names{};
}

/// The strings of a JSON text, quotes included: where they begin and end.
std::vector<std::pair<std::size_t, std::size_t>> strings_of(const std::string &json)
{
    std::vector<std::pair<std::size_t, std::size_t>> strings;
    for (std::size_t begin = json.find('"'); begin != std::string::npos;) {
        std::size_t end = begin + 1;
        while (json[end] != '"')
            end += json[end] == '\\' ? 2U : 1U;
        strings.emplace_back(begin, ++end);
        begin = json.find('"', end);
    }
    return strings;
}

/// The key of the right text of which this one lacks the end, and nothing else: what jansson 2.14 renders when the
/// memory for a key runs out.
std::optional<std::string> broken_key(const std::string &right, const std::string &text)
{
    for (const auto &[begin, end] : strings_of(right)) {
        const std::size_t missing = right.size() - text.size();
        if (right[end] != ':' || missing == 0 || missing > end - begin)
            continue;
        if (text.compare(0, end - missing, right, 0, end - missing) == 0 &&
            text.compare(end - missing, std::string::npos, right, end, std::string::npos) == 0)
            return right.substr(begin + 1, end - begin - 2);
    }
    return std::nullopt;
}

/// Fails each allocation of a call in turn, that one alone or all from there on.
/// call(FailingAllocation) -> how many allocations were asked for.
template <class Call> void fail_each_allocation(Call call)
{
    for (const Failing failing : {Failing::once, Failing::from_then_on}) {
        std::size_t n = 1;
        while (call(FailingAllocation{n, failing}) >= n)
            ++n;
        EXPECT_GT(n, 1U) << "no allocation failed";
    }
}

std::string which(FailingAllocation memory)
{
    return "with allocation " + std::to_string(memory.number) +
           (memory.failing == Failing::once ? " failing" : " and all later ones failing");
}

/// Returns the keys that came out broken.
Names write_with_failing_memory(const Resource &resource, Nodes &nodes, bool as_list)
{
    Names broken;
    const Written right = write_out(resource, nodes, as_list);
    EXPECT_EQ(right.result, 1);
    EXPECT_TRUE(parses(right.text)) << right.text;
    const char *empty = right.text.front() == '[' ? "[]" : "{}"; // not every root is what was asked for
    fail_each_allocation([&](FailingAllocation memory) {
        const Written written = write_out(resource, nodes, as_list, memory);
        const bool passing = memory.failing == Failing::once && written.allocations >= memory.number;
        if (written.result == 0) {
            EXPECT_EQ(written.text, empty) << which(memory);
        } else {
            EXPECT_EQ(written.result, 1) << which(memory);
        }
        if (written.result != 0 && written.text != right.text) {
            const std::optional<std::string> key = passing ? broken_key(right.text, written.text) : std::nullopt;
            EXPECT_TRUE(key) << which(memory) << "\n" << written.text << "\ninstead of\n" << right.text;
            broken.insert(key.value_or("?"));
        }
        if (written.allocations < memory.number) {
            EXPECT_EQ(written.result, 1) << "though no allocation failed";
        }
        return written.allocations;
    });
    return broken;
}

class FailingMemoryWhileWriting : public testing::TestWithParam<Resource> {};

TEST_P(FailingMemoryWhileWriting, GivesTheRightTextOrTheEmptyDocument)
{
    Nodes nodes = samples_of(GetParam());
    Names broken = write_with_failing_memory(GetParam(), nodes, true);
    broken.merge(write_with_failing_memory(GetParam(), nodes, false));
    EXPECT_EQ(broken, residues_of(GetParam(), broken_keys));
}

INSTANTIATE_TEST_SUITE_P(Every, FailingMemoryWhileWriting, testing::ValuesIn(written_resources()), test_name);

/// A byte of a JSON text that jansson 2.14 loses when its buffer for a string or key, 16 bytes at first and doubled
/// each time, cannot grow.
struct Loss {
    std::size_t position;
    std::string name; ///< the string's or key's
    bool aborts;      ///< it is the closing quote, for which jansson then looks behind its buffer
};

std::vector<Loss> losses_of(const std::string &json)
{
    std::vector<Loss> losses;
    std::size_t size = 16;
    for (const auto &[begin, end] : strings_of(json)) {
        for (; end - begin >= size; size *= 2)
            losses.push_back({begin + size - 1, json.substr(begin + 1, end - begin - 2), end - begin == size});
    }
    return losses;
}

/// The document, or where jansson's parser would abort at a closing quote the same behind a long key of nobody's, which
/// makes the buffer grow before.
std::string without_abort(const std::string &document)
{
    for (const Loss &loss : losses_of(document)) {
        if (loss.aborts)
            return "{\"" + std::string(1000, 'k') + "\": 0," + document.substr(document.find('{') + 1);
    }
    return document;
}

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

/// http_request renders a part of its document, its body, into the record: there a key can come out broken as well.
std::optional<std::string> broken_key_of_body(const Resource &resource, const Answer &right, const Answer &answer)
{
    constexpr std::size_t body = sizeof(kelmora_http_request); // where it begins in the image
    if (resource.name != "http_request" || right.image.compare(0, body, answer.image, 0, body) != 0)
        return std::nullopt;
    const std::optional<std::string> key = broken_key(right.image.substr(body), answer.image.substr(body));
    return key ? std::optional("body." + *key) : std::nullopt;
}

/// Returns the texts and keys that lost a character, and the keys that came out broken.
Names read_with_failing_memory(const Resource &resource, const std::string &document)
{
    const Answer right = read_in(resource, document);
    EXPECT_EQ(right.result, 1) << document;

    std::vector<std::pair<std::string, Answer>> losses;
    for (const Loss &loss : losses_of(document)) {
        EXPECT_FALSE(loss.aborts) << loss.name;
        std::string lacking = document;
        lacking.erase(loss.position, 1);
        losses.emplace_back(loss.name, read_in(resource, lacking));
    }

    Names lost;
    fail_each_allocation([&](FailingAllocation memory) {
        const Answer answer = read_in(resource, document, memory);
        const bool reached = answer.allocations >= memory.number;
        const bool rejected =
            reached && answer.result == 0 && answer.errors.size() == 1 &&
            (answer.errors[0].message == "invalid json data" || answer.errors[0].message == "out of memory");
        if (!(answer == right) && !rejected) {
            const bool passing = reached && memory.failing == Failing::once;
            const auto loss = std::find_if(losses.begin(), losses.end(),
                                           [&](const auto &candidate) { return candidate.second == answer; });
            const std::optional<std::string> residue =
                loss != losses.end() ? loss->first : broken_key_of_body(resource, right, answer);
            EXPECT_TRUE(passing && residue) << which(memory) << " the result is " << answer.result << " with "
                                            << (answer.errors.empty() ? "no error" : answer.errors[0].message);
            lost.insert(residue.value_or("?"));
        }
        return answer.allocations;
    });
    return lost;
}

class FailingMemoryWhileReading : public testing::TestWithParam<Resource> {};

TEST_P(FailingMemoryWhileReading, GivesTheRightRecordOrOneError)
{
    const std::string document = without_abort(example_of(GetParam()));
    Names lost = read_with_failing_memory(GetParam(), document);
    const std::string longer = without_abort(with_longer_lists(example_of(GetParam()), 5));
    if (longer.find('[') != std::string::npos)
        lost.merge(read_with_failing_memory(GetParam(), longer));
    EXPECT_EQ(lost, residues_of(GetParam(), lost_characters));
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
        for (const std::size_t length : {4095U, 4096U, 4097U, 8192U, 70000U, 1U << 20U}) {
            Nodes nodes = request_with_body(length - rest);
            const Written right = write_out(resource, nodes, as_list);
            ASSERT_EQ(right.text.size(), length);
            ASSERT_EQ(right.reallocations, length < 4096 ? 0U : 1U);
            for (const Failing failing : {Failing::once, Failing::from_then_on}) {
                // The reallocation is a call's last request for memory.
                const Written written = write_out(resource, nodes, as_list, {right.allocations, failing});
                EXPECT_EQ(written.allocations, right.allocations);
                EXPECT_EQ(written.result, 0);
                EXPECT_EQ(written.text, as_list ? "[]" : "{}") << length;
            }
            EXPECT_EQ(write_with_failing_memory(resource, nodes, as_list), (Names{"dest", "method"})) << length;
        }
    }
}

} // namespace

} // namespace kelmora_test
