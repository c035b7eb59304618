#include "fuzz/harness.h"

#include "host/gateway/blank.h"
#include "host/gateway/gateway.h"
#include "soak/json_blocks.h"

#include "kelmora_json.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace kelmora_fuzz {

using kelmora_host::Record;
using kelmora_host::Registry;
using kelmora_host::Resource;

namespace {

const bool ready = [] {
    kelmora_soak::json_blocks::watch();
    return kelmora_json_init() != 0;
}();

} // namespace

std::int64_t json_alive() { return kelmora_soak::json_blocks::alive().blocks; }

Input parse_input(const std::uint8_t *data, std::size_t size)
{
    if (!ready || size < prefix_size)
        return {nullptr, {}, 0, ""};
    const Resource &resource = kelmora_host::resources()[data[0] % kelmora_host::resources().size()];
    std::string document(reinterpret_cast<const char *>(data) + prefix_size, size - prefix_size);
    if (is_raw(resource))
        document.resize(kelmora_host::raw_size);
    else
        document.resize(std::strlen(document.c_str()));
    return {&resource, *Registry::instance().find(resource.number), data[1], document};
}

Record record_before(const Input &input)
{
    static kelmora_host::Gateway gateway = kelmora_host::sample_gateway();
    const auto &samples = gateway.nodes(input.resource->name);
    switch (input.state % 3) {
    case 0:
        return blank_record(*input.resource);
    case 1:
        return poisoned_record(*input.resource);
    default:
        break;
    }
    if (samples.empty())
        return blank_record(*input.resource);
    kelmora_host::Node sample = samples[input.state / 3 % samples.size()];
    return sample.record();
}

void require(bool holds, const Input &input, const char *what)
{
    if (holds)
        return;
    std::fprintf(stderr, "%.*s: %s: %s\n", static_cast<int>(input.resource->name.size()), input.resource->name.data(),
                 what, input.document.c_str());
    std::abort();
}

} // namespace kelmora_fuzz
