#ifndef KELMORA_HOST_PLUGIN_REGISTRY_H
#define KELMORA_HOST_PLUGIN_REGISTRY_H

#include "kelmora_host.h"

#include <functional>
#include <vector>

namespace kelmora_host {

/// A pair of translators under its number.
struct Registration {
    int number;
    kelmora_from_translator from;
    kelmora_to_translator to;
};

/// The pairs that plug-ins registered in this process.
class Registry {
public:
    /// The process's own.
    static Registry &instance();

    /// Files a pair; a later one of the same number replaces it. Returns 1, or what `answer` says.
    int add(const Registration &registration);

    /// Forgets everything.
    void clear();

    /// The pair filed under a number, or NULL.
    [[nodiscard]] const Registration *find(int number) const;

    /// All registrations so far, in the order in which they came.
    [[nodiscard]] const std::vector<Registration> &log() const { return log_; }

    /// Answers registrations in this host's stead, when set.
    std::function<int(const Registration &)> answer;

private:
    std::vector<Registration> log_;
};

} // namespace kelmora_host

#endif
