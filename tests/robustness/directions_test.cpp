#include "tests/robustness/resources.h"

#include "tests/support/faults.h"

#include "harness/call.h"

#include <gtest/gtest.h>
#include <string>
#include <utility>
#include <vector>

namespace kelmora_test::directions_test {

namespace {

using kelmora_host::Directions;

std::vector<Resource> all_resources() { return {kelmora_host::resources().begin(), kelmora_host::resources().end()}; }

/// The directions in the list of resources, held against what the functions do.
class DirectionsColumn : public testing::TestWithParam<Resource> {
protected:
    /// Hands the text to the from-translator. Whether it answered that all is well and left the record as it was.
    static bool ignores(const std::string &text)
    {
        kelmora_host::Node node("0", kelmora_harness::poisoned_record(GetParam()));
        const std::string before = kelmora_harness::image_of(GetParam(), node.record());
        const kelmora_harness::FromAnswer answer = kelmora_harness::call_from(GetParam(), node, text);
        expect_none(answer.faults);
        return answer.result == 1 && answer.errors.empty() && answer.fetches == 0 && node.missing().empty() &&
               kelmora_harness::image_of(GetParam(), node.record()) == before;
    }

    /// Whether the to-translator answered that all is well and left the buffer as it was.
    static bool writes_nothing(Nodes &nodes, bool as_list)
    {
        const kelmora_harness::ToAnswer answer =
            kelmora_harness::call_to(kelmora_harness::translators_of(GetParam()).to, nodes,
                                     {.as_list = as_list, .raw_bytes = kelmora_host::raw_size});
        const std::string untouched =
            '\0' + std::string(kelmora_host::raw_size - 1, static_cast<char>(kelmora_harness::guard_byte));
        return answer.result == 1 && answer.text == untouched && answer.faults.empty();
    }
};

TEST_P(DirectionsColumn, SaysWhetherTheFromTranslatorReads)
{
    const bool reads = GetParam().directions != Directions::to_only;
    if (is_raw(GetParam())) {
        EXPECT_NE(ignores("8 bytes."), reads);
        return;
    }
    std::vector<std::string> texts = {"{", "nonsense", "[]", "{}", "1"};
    texts.push_back(reads ? example_of(GetParam()) : "");
    for (const std::string &text : texts)
        EXPECT_NE(ignores(text), reads) << text;
}

TEST_P(DirectionsColumn, SaysWhetherTheToTranslatorWrites)
{
    const bool writes = GetParam().directions != Directions::from_only;
    for (const bool as_list : {true, false}) {
        Nodes nodes = samples_of(GetParam());
        EXPECT_NE(writes_nothing(nodes, as_list), writes);
        for (kelmora_host::Node &node : nodes)
            EXPECT_TRUE(writes || node.fetches() == 0);
    }
}

INSTANTIATE_TEST_SUITE_P(Every, DirectionsColumn, testing::ValuesIn(all_resources()), test_name);

} // namespace

} // namespace kelmora_test::directions_test
