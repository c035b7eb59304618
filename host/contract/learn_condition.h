#ifndef KELMORA_HOST_CONTRACT_LEARN_CONDITION_H
#define KELMORA_HOST_CONTRACT_LEARN_CONDITION_H

#include "host/contract/contract.h"
#include "host/contract/learn_probe.h"

#include <optional>
#include <string>
#include <vector>

namespace kelmora_host {

/// A value as it stands in a condition.
[[nodiscard]] std::string condition_value(const Given &given);

/// With which values of one key, or field of the record, something is so, and with which it is not. Values that tell
/// nothing are in neither.
struct Split {
    std::vector<Given> so;
    std::vector<Given> not_so;

    /// As a condition; nothing when the value does not matter, or when it is so without the key alone.
    ///
    /// path: the condition's. other: the value that stands for all others.
    [[nodiscard]] std::optional<Condition> condition(const std::string &path, const Given &other) const;
};

} // namespace kelmora_host

#endif
