#ifndef KELMORA_HOST_CONTRACT_LEARN_KEY_FIELDS_H
#define KELMORA_HOST_CONTRACT_LEARN_KEY_FIELDS_H

#include "host/contract/contract.h"
#include "host/contract/learn_keys.h"
#include "host/contract/learn_needs.h"
#include "host/contract/learn_probe.h"

#include <string>
#include <vector>

namespace kelmora_host {

/// Learns which fields a key stores. Asks with two values of the key, or with and without it, and compares the records
/// afterwards.
class KeyFieldLearner {
public:
    /// All must live as long.
    KeyFieldLearner(const InputSubject &subject, const FoundKeys &keys, const Needs &needs)
        : subject_(subject), keys_(keys), needs_(needs)
    {
    }

    /// Of a key that holds a value: the fields that hang on its value.
    void learn_fields(InputKey &key) const;

    /// Of a key whose fields are known: the siblings without which its value is not stored.
    void learn_only_with(InputKey &key) const;

    /// Of a key whose fields are known: further fields, which its presence sets.
    void learn_also_sets(InputKey &key) const;

    /// Of a key whose fields are known, and that may be there: whether its absence clears or marks something.
    void learn_absence(InputKey &key) const;

    /// The fields that hang on which of two values the key has, where the plug-in looks for the same keys with both.
    [[nodiscard]] std::vector<KeyField> fields_between(const std::string &path, const Given &one,
                                                       const Given &two) const;

private:
    [[nodiscard]] std::vector<KeyField> compare(const Answers &answers, const std::string &path, const Given &one,
                                                const Given &two, bool looked_same) const;
    [[nodiscard]] Answers alone(const std::string &path) const;
    [[nodiscard]] bool is_stored(const InputKey &key, const Answers &answers) const;

    const InputSubject &subject_;
    const FoundKeys &keys_;
    const Needs &needs_;
};

} // namespace kelmora_host

#endif
