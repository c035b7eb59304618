#ifndef KELMORA_HOST_CONTRACT_LEARN_LISTS_H
#define KELMORA_HOST_CONTRACT_LEARN_LISTS_H

#include "host/contract/contract.h"
#include "host/contract/learn_key_fields.h"
#include "host/contract/learn_keys.h"
#include "host/contract/learn_probe.h"

#include <cstddef>
#include <string>
#include <vector>

namespace kelmora_host {

/// Learns what becomes of lists. Asks with lists of many lengths, and with records whose own entries can be told from
/// new ones.
class ListLearner {
public:
    /// All must live as long.
    ListLearner(const InputSubject &subject, const FoundKeys &keys, const KeyFieldLearner &fields)
        : subject_(subject), keys_(keys), fields_(fields)
    {
    }

    /// Of a list: how many elements it may have, the field that they go into, what becomes of the entries that there
    /// were, and what an element sets beside the fields of its keys. Whether it is required must be known.
    void learn_list(InputKey &key) const;

    /// Of a string that is an element: whether an empty one makes no entry.
    [[nodiscard]] bool skips_empty(const std::string &element) const;

private:
    /// The chain or array that a list's elements go into.
    struct List {
        const Field *field = nullptr; ///< NULL where there is none
        std::size_t offset = 0;
        bool is_chain = false;
    };

    void learn_sizes(InputKey &key) const;
    void learn_effect(InputKey &key, const List &list) const;
    void learn_absence(InputKey &key, const List &list) const;
    void learn_slots(InputKey &key, const List &list) const;
    [[nodiscard]] List list_of(const std::string &path) const;
    [[nodiscard]] std::vector<std::string> within(const std::string &list) const;
    [[nodiscard]] std::vector<bool> old_entries(const InputKey &key, const List &list, std::size_t size) const;

    const InputSubject &subject_;
    const FoundKeys &keys_;
    const KeyFieldLearner &fields_;
};

} // namespace kelmora_host

#endif
