#include "host/serve/contracts.h"

namespace kelmora_host {

const Contract &Contracts::of(const Resource &resource)
{
    Slot &slot = slots_.at(static_cast<std::size_t>(resource.number));
    // The contract refers to the resource: to the one of the table, which stays.
    const Resource &known = resources().at(static_cast<std::size_t>(resource.number));
    std::call_once(slot.once, [&] { slot.contract = learn(known, *Registry::instance().find(known.number)); });
    return *slot.contract;
}

const std::vector<Contract> &Contracts::all()
{
    std::call_once(all_once_, [this] {
        std::vector<Contract> contracts;
        for (const Resource &resource : resources())
            contracts.push_back(of(resource));
        all_ = std::move(contracts);
    });
    return all_;
}

} // namespace kelmora_host
