#ifndef KELMORA_HOST_GATEWAY_RESOURCES_H
#define KELMORA_HOST_GATEWAY_RESOURCES_H

#include "kelmora_resources.h"

#include <array>
#include <cstddef>
#include <string_view>

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

} // namespace kelmora_host

#endif
