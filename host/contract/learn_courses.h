#ifndef KELMORA_HOST_CONTRACT_LEARN_COURSES_H
#define KELMORA_HOST_CONTRACT_LEARN_COURSES_H

#include "host/contract/contract.h"
#include "host/contract/learn_keys.h"
#include "host/contract/learn_probe.h"

#include <functional>
#include <map>
#include <string>
#include <vector>

namespace kelmora_host {

/// What the plug-in did with a document in which one key has this value.
struct Course {
    Given value; ///< absent: the document is without the key
    Probe probe;
};

/// What depends on the values of single keys. Asks, once for each key that may be there, with each of its values
/// (values_of) and without it, all other keys as in its home, and with the blank record.
class Courses {
public:
    /// Asks. The keys must live as long.
    Courses(const InputSubject &subject, const FoundKeys &keys);

    /// The one without the key, which must not be refused, nor an element.
    [[nodiscard]] const Probe &without(const std::string &path) const { return courses_.at(path).back().probe; }

    /// With which values of other keys a key is looked at, where that is not so for what it is in already; nothing when
    /// it always is.
    [[nodiscard]] std::vector<Condition> looked_at_when(const std::string &path) const;

    /// Of an integer that is no element: the values with which the plug-in does something else than with all others,
    /// and the error that it reports of those, though it takes the document.
    void learn_decisions(InputKey &key) const;

private:
    [[nodiscard]] bool decides(const std::string &decider, const std::string &path) const;

    const FoundKeys &keys_;
    std::map<std::string, std::vector<Course>, std::less<>> courses_;
};

} // namespace kelmora_host

#endif
