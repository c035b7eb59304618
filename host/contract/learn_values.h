#ifndef KELMORA_HOST_CONTRACT_LEARN_VALUES_H
#define KELMORA_HOST_CONTRACT_LEARN_VALUES_H

#include "host/contract/contract.h"
#include "host/contract/learn_keys.h"
#include "host/contract/learn_needs.h"
#include "host/contract/learn_probe.h"

#include <cstdint>
#include <optional>

namespace kelmora_host {

/// Learns what a key takes and what becomes of values that it does not take as they are. Asks with values of all types,
/// with large numbers and with long strings, and looks at the record afterwards.
class ValueLearner {
public:
    /// All must live as long.
    ValueLearner(const InputSubject &subject, const FoundKeys &keys, const Needs &needs)
        : subject_(subject), keys_(keys), needs_(needs)
    {
    }

    /// Whether values of other types are errors, and which; or whether they count as absent. Of a refused key the error
    /// of its presence.
    void learn_types(InputKey &key) const;

    /// Of a number whose fields are known: width, sign, and what becomes of one that does not fit. Of a string: its
    /// limit, and what becomes of a longer one. Of other keys nothing.
    void learn_range(InputKey &key) const;

private:
    [[nodiscard]] bool counts_as_absent(const InputKey &key) const;
    void learn_number(InputKey &key) const;
    void learn_length(InputKey &key) const;
    [[nodiscard]] std::optional<std::uint64_t> stored(const InputKey &key, const Given &given) const;

    const InputSubject &subject_;
    const FoundKeys &keys_;
    const Needs &needs_;
};

} // namespace kelmora_host

#endif
