#include "tests/robustness/resources.h"

#include "tests/support/direct_text.h"
#include "tests/support/faults.h"

#include "harness/call.h"
#include "host/gateway/gateway.h"

#include <fstream>
#include <iterator>
#include <utility>

namespace kelmora_test {

using kelmora_host::Directions;

namespace {

std::vector<Resource> resources_without(Directions other_direction)
{
    std::vector<Resource> chosen;
    for (const Resource &resource : kelmora_host::resources()) {
        if (resource.directions != other_direction && !is_raw(resource))
            chosen.push_back(resource);
    }
    return chosen;
}

} // namespace

std::vector<Resource> written_resources() { return resources_without(Directions::from_only); }

std::vector<Resource> read_resources() { return resources_without(Directions::to_only); }

std::string test_name(const testing::TestParamInfo<Resource> &info) { return std::string(info.param.name); }

Nodes samples_of(const Resource &resource)
{
    static kelmora_host::Gateway gateway = kelmora_host::sample_gateway();
    return gateway.nodes(resource.name);
}

std::string example_of(const Resource &resource)
{
    const std::string path = KELMORA_EXAMPLES_DIR "/" + std::string(resource.name) + ".json";
    std::ifstream file(path);
    EXPECT_TRUE(file.is_open()) << path;
    return {std::istreambuf_iterator<char>(file), {}};
}

Written write_out(const Resource &resource, Nodes &nodes, bool as_list, FailingAllocation memory)
{
    kelmora_harness::ToAnswer answer =
        kelmora_harness::call_to(kelmora_harness::translators_of(resource).to, nodes,
                                 {.as_list = as_list, .memory = memory, .may_leave_half = direct_text});
    expect_none(answer.faults);
    return {answer.result, std::move(answer.text), answer.allocations, enlargements(answer.reallocations),
            answer.reallocated_size};
}

Answer read_in(const Resource &resource, const std::string &text, FailingAllocation memory,
               const std::function<void(Nodes &)> &look)
{
    const auto library_blocks = [] { return allocations::alive() - allocations::json_alive(); };
    const std::size_t blocks_before = library_blocks();
    Answer answer{};
    {
        Nodes nodes;
        nodes.emplace_back("node under test", kelmora_harness::poisoned_record(resource));
        kelmora_harness::FromAnswer call = kelmora_harness::call_from(resource, nodes.front(), text, memory);
        expect_none(call.faults);
        answer = {call.result, std::move(call.errors), kelmora_harness::image_of(resource, nodes.front().record()),
                  call.allocations};
        if (look)
            look(nodes);
    }
    EXPECT_EQ(library_blocks(), blocks_before) << "memory outlives the node";
    return answer;
}

} // namespace kelmora_test
