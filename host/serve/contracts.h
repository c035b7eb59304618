#ifndef KELMORA_HOST_SERVE_CONTRACTS_H
#define KELMORA_HOST_SERVE_CONTRACTS_H

#include "host/contract/contract.h"

#include <array>
#include <cstddef>
#include <mutex>
#include <optional>
#include <vector>

namespace kelmora_host {

/// The resources' contracts, for many threads: each is learned once, by the first that asks for it, for whom the others
/// wait. The translators are those of Registry::instance().
class Contracts {
public:
    [[nodiscard]] const Contract &of(const Resource &resource);

    /// Those of all resources, by number.
    [[nodiscard]] const std::vector<Contract> &all();

private:
    struct Slot {
        std::once_flag once;
        std::optional<Contract> contract;
    };

    std::array<Slot, KELMORA_RESOURCE_COUNT> slots_;
    std::once_flag all_once_;
    std::vector<Contract> all_;
};

} // namespace kelmora_host

#endif
