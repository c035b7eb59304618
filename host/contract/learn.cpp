#include "host/contract/contract.h"
#include "host/contract/learn_output.h"
#include "host/contract/learned.h"

namespace kelmora_host {

Contract learn(const Resource &resource, const Registration &translators)
{
    Contract contract{&resource, std::nullopt, std::nullopt};
    if (is_raw(resource))
        return contract;
    if (resource.directions != Directions::to_only)
        contract.input = learned_input(resource, translators);
    if (resource.directions != Directions::from_only)
        contract.output = learn_output(resource, translators);
    return contract;
}

} // namespace kelmora_host
