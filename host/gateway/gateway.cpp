#include "host/gateway/gateway.h"

#include "host/gateway/samples.h"

namespace kelmora_host {

const std::vector<Node> &Gateway::nodes(std::string_view resource) const
{
    static const std::vector<Node> none;
    const auto found = nodes_.find(resource);
    return found != nodes_.end() ? found->second : none;
}

Gateway sample_gateway()
{
    Gateway gateway;
#define PART(name) add_##name##_samples(gateway);
    KELMORA_SAMPLES(PART)
#undef PART
    return gateway;
}

} // namespace kelmora_host
