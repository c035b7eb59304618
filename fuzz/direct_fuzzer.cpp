// The same records to the plug-in that is shipped and to the one that writes text directly: nothing differs.
//
// An input is one byte each for the resource, the request's kind, the head's count and the nodes, and then what fills
// the records: two bytes of it say for each node which record it begins as and from which byte on it is filled.

#include "fuzz/input.h"

#include "harness/poison.h"
#include "harness/two_plugins.h"
#include "host/gateway/gateway.h"

#include <string_view>
#include <vector>

using namespace kelmora_fuzz;
using kelmora_host::Node;

namespace {

constexpr std::size_t head_size = 4;
constexpr std::size_t most_nodes = 24;

/// A node of the sample gateway, with its chains and strings, or one without any.
Node begin_node(const kelmora_host::Resource &resource, std::uint8_t choice)
{
    static kelmora_host::Gateway gateway = kelmora_host::sample_gateway();
    const std::vector<Node> &samples = gateway.nodes(resource.name);
    if (!samples.empty() && choice % 4 != 0)
        return samples[choice / 4 % samples.size()];
    return {"", choice % 8 == 0 ? kelmora_harness::poisoned_record(resource) : kelmora_harness::blank_record(resource)};
}

} // namespace

// NOLINTNEXTLINE(readability-identifier-naming): libFuzzer's name
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    static const kelmora_harness::TwoPlugins plugins(KELMORA_SHIPPED_PLUGIN, KELMORA_DIRECT_PLUGIN);
    if (size <= head_size)
        return 0;
    const kelmora_host::Resource &resource = kelmora_host::resources()[data[0] % kelmora_host::resources().size()];
    if (is_raw(resource))
        return -1; // of no use in the corpus
    const bool as_list = data[1] % 2 != 0;
    const std::size_t length = 1 + data[3] % most_nodes;
    const std::string_view pattern(reinterpret_cast<const char *>(data) + head_size, size - head_size);

    std::vector<Node> nodes;
    for (std::size_t i = 0; i < length; ++i) {
        const auto at = [&](std::size_t place) { return static_cast<std::uint8_t>(pattern[place % pattern.size()]); };
        nodes.push_back(begin_node(resource, at(2 * i)));
        if (at(2 * i + 1) % 8 != 0)
            kelmora_harness::fill(resource, nodes.back(), pattern, at(2 * i + 1));
    }
    const auto count = static_cast<std::uint32_t>(data[1] % 4 < 2 ? length : data[2]);
    if (const auto difference = plugins.difference(resource, nodes, as_list, count)) {
        const Input input{&resource, {}, data[1], ""};
        require(false, input, difference->c_str());
    }
    return 0;
}
