#ifndef KELMORA_HOST_CONTRACT_LEARN_NEEDS_H
#define KELMORA_HOST_CONTRACT_LEARN_NEEDS_H

#include "host/contract/contract.h"
#include "host/contract/learn_courses.h"
#include "host/contract/learn_keys.h"
#include "host/contract/learn_probe.h"

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace kelmora_host {

/// Whether a key must be there.
struct Need {
    bool always = false;
    std::vector<Condition> when; ///< or when one of these holds
    std::optional<Error> error;  ///< of its absence
    std::string alternative;     ///< the key whose presence does as well; empty when there is none
};

/// The keys that must be there, and when. Asks without the key: first with all others; then with other values of all
/// others, and with as few keys as are taken, which shows whose necessity depends on something; and of those with each
/// value of each other key and with other records, which shows what it depends on.
class Needs {
public:
    /// Asks.
    Needs(const InputSubject &subject, const FoundKeys &keys, const Courses &courses);

    [[nodiscard]] const Need &of(const std::string &path) const { return needs_.at(path); }

    /// Whether the key need never be there.
    [[nodiscard]] bool is_optional(const std::string &path) const;

    /// Of an integer that is no element: adds the values on which it depends whether another key must be there.
    void add_decisions(InputKey &key) const;

    /// Numbers the groups of keys of which at least one must be there.
    void find_groups(std::vector<InputKey> &keys) const;

private:
    std::map<std::string, Need, std::less<>> needs_;
};

} // namespace kelmora_host

#endif
