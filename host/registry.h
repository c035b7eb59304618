#ifndef KELMORA_HOST_REGISTRY_H
#define KELMORA_HOST_REGISTRY_H

#include "kelmora_host.h"
#include "kelmora_resources.h"

#include <array>
#include <cstddef>
#include <functional>
#include <string_view>
#include <vector>

namespace kelmora_host {

/// Which ways a resource goes: records to JSON, JSON to records.
enum class Directions { both, to_only, from_only };

/// What is known of a resource before any plug-in is loaded.
struct Resource {
    int number;
    std::string_view name;
    std::string_view group;
    Directions directions;
};

/// All resources, by number.
[[nodiscard]] const std::array<Resource, KELMORA_RESOURCE_COUNT> &resources();

/// The resource of this name, or NULL.
[[nodiscard]] const Resource *find_resource(std::string_view name);

/// Whether the resource's payload is no JSON but a block of bytes, which may be zero: raw_size of them.
[[nodiscard]] bool is_raw(const Resource &resource);
inline constexpr std::size_t raw_size = 8;

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
