// Any bytes, as a document of any resource, into a record of any content: no crash, nothing outlives the call, the
// result and the errors fit together, and what is stored can be written.

#include "fuzz/input.h"

#include "harness/call.h"

#include <jansson.h>
#include <vector>

using namespace kelmora_fuzz;

// NOLINTNEXTLINE(readability-identifier-naming): libFuzzer's name
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const Input input = parse_input(data, size);
    if (input.resource == nullptr)
        return 0;
    kelmora_host::Node node("a node", record_before(input));
    require_none(kelmora_harness::call_from(*input.resource, node, input.document).faults, input);

    for (const bool as_list : {false, true}) {
        std::vector<kelmora_host::Node> nodes{node};
        const bool raw = is_raw(*input.resource);
        const kelmora_harness::ToAnswer answer = kelmora_harness::call_to(
            input.translators.to, nodes, {.as_list = as_list, .raw_bytes = raw ? kelmora_host::raw_size : 0});
        require_none(answer.faults, input);
        require(answer.result == 1, input, "the record cannot be written");
        if (!raw && !answer.text.empty()) {
            json_t *parsed = json_loads(answer.text.c_str(), 0, nullptr);
            require(parsed != nullptr, input, answer.text.c_str());
            json_decref(parsed);
        }
    }
    return 0;
}
