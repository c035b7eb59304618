// Any bytes, as a document of any resource, into a record of any content: no crash, nothing outlives the call, the
// result and the errors fit together, and what is stored can be written.

#include "fuzz/harness.h"

#include "host/plugin/translate.h"

#include <jansson.h>
#include <utility>
#include <vector>

using namespace kelmora_fuzz;

// NOLINTNEXTLINE(readability-identifier-naming): libFuzzer's name
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const Input input = parse_input(data, size);
    if (input.resource == nullptr)
        return 0;
    const std::int64_t alive = json_alive();

    // The record is a heap block of its own size: the sanitizer guards both its ends.
    kelmora_host::Node node("a node", record_before(input));
    const auto written = from_json(input.translators.from, node, input.document);
    require(json_alive() == alive, input, "JSON values outlive the from-translator");
    require(written.result == 1 || written.result == 0, input, "neither 1 nor 0");
    require(written.result == 1 || !written.errors.empty(), input, "rejected without an error");

    for (const bool as_list : {false, true}) {
        std::vector<kelmora_host::Node> nodes{node};
        const bool raw = is_raw(*input.resource);
        const auto answer = to_json(input.translators.to, nodes, as_list, raw ? kelmora_host::raw_size : 0);
        require(answer.result == 1, input, "the record cannot be written");
        require(json_alive() == alive, input, "JSON values outlive the to-translator");
        if (!raw && !answer.text.empty()) {
            json_t *parsed = json_loads(answer.text.c_str(), 0, nullptr);
            require(parsed != nullptr, input, answer.text.c_str());
            json_decref(parsed);
        }
    }
    return 0;
}
