#include "fuzz/input.h"

#include "harness/call.h"
#include "harness/poison.h"
#include "host/gateway/gateway.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace kelmora_fuzz {

using kelmora_host::Record;
using kelmora_host::Resource;

Input parse_input(const std::uint8_t *data, std::size_t size)
{
    if (size < prefix_size)
        return {nullptr, {}, 0, ""};
    const Resource &resource = kelmora_host::resources()[data[0] % kelmora_host::resources().size()];
    std::string document(reinterpret_cast<const char *>(data) + prefix_size, size - prefix_size);
    if (is_raw(resource))
        document.resize(kelmora_host::raw_size);
    else
        document.resize(std::strlen(document.c_str()));
    return {&resource, kelmora_harness::translators_of(resource), data[1], document};
}

Record record_before(const Input &input)
{
    static kelmora_host::Gateway gateway = kelmora_host::sample_gateway();
    const auto &samples = gateway.nodes(input.resource->name);
    switch (input.state % 3) {
    case 0:
        return kelmora_harness::blank_record(*input.resource);
    case 1:
        return kelmora_harness::poisoned_record(*input.resource);
    default:
        break;
    }
    if (samples.empty())
        return kelmora_harness::blank_record(*input.resource);
    kelmora_host::Node sample = samples[input.state / 3 % samples.size()];
    return kelmora_harness::guarded_copy(*input.resource, sample.record());
}

void require(bool holds, const Input &input, const char *what)
{
    if (holds)
        return;
    std::fprintf(stderr, "%.*s: %s: %s\n", static_cast<int>(input.resource->name.size()), input.resource->name.data(),
                 what, input.document.c_str());
    std::abort();
}

void require_none(const std::vector<std::string> &faults, const Input &input)
{
    for (const std::string &fault : faults)
        require(false, input, fault.c_str());
}

} // namespace kelmora_fuzz
