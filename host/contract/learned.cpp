#include "host/contract/learned.h"

#include "host/contract/learn_input.h"

#include <map>
#include <mutex>
#include <tuple>

namespace kelmora_host {

namespace {

struct Learned {
    std::once_flag input_once;
    Input input;
    std::once_flag once;
    Contract contract{};
};

/// What is known, or is going to be, of these translators.
Learned &known(const Resource &resource, const Registration &translators)
{
    static std::mutex mutex;
    static std::map<std::tuple<int, kelmora_from_translator, kelmora_to_translator>, Learned> all;
    const std::lock_guard lock(mutex);
    return all[{resource.number, translators.from, translators.to}];
}

} // namespace

const Contract &learned(const Resource &resource, const Registration &translators)
{
    Learned &learned = known(resource, translators);
    // The contract refers to the resource: to the one of the table, which stays.
    const Resource &lasting = resources().at(static_cast<std::size_t>(resource.number));
    std::call_once(learned.once, [&] { learned.contract = learn(lasting, translators); });
    return learned.contract;
}

const Input &learned_input(const Resource &resource, const Registration &translators)
{
    Learned &learned = known(resource, translators);
    std::call_once(learned.input_once, [&] { learned.input = learn_input(resource, translators); });
    return learned.input;
}

std::vector<Contract> learned_contracts()
{
    std::vector<Contract> contracts;
    for (const Resource &resource : resources()) {
        if (const Registration *translators = Registry::instance().find(resource.number))
            contracts.push_back(learned(resource, *translators));
    }
    return contracts;
}

} // namespace kelmora_host
