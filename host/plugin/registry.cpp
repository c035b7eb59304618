#include "host/plugin/registry.h"

#include <algorithm>

namespace kelmora_host {

Registry &Registry::instance()
{
    static Registry registry;
    return registry;
}

int Registry::add(const Registration &registration)
{
    log_.push_back(registration);
    return answer ? answer(registration) : 1;
}

void Registry::clear()
{
    log_.clear();
    answer = nullptr;
}

const Registration *Registry::find(int number) const
{
    const auto latest = std::find_if(log_.rbegin(), log_.rend(), [number](const Registration &registration) {
        return registration.number == number;
    });
    return latest != log_.rend() ? &*latest : nullptr;
}

} // namespace kelmora_host

int kelmora_set_translators(int number, kelmora_from_translator from, kelmora_to_translator to)
{
    return kelmora_host::Registry::instance().add({number, from, to});
}
