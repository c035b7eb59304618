#include "host/gateway/resources.h"

#include <algorithm>

namespace kelmora_host {

const std::array<Resource, KELMORA_RESOURCE_COUNT> &resources()
{
#define ROW(number, name, group, directions) Resource{number, #name, #group, Directions::directions},
    static constexpr std::array<Resource, KELMORA_RESOURCE_COUNT> table{{KELMORA_RESOURCES(ROW)}};
#undef ROW
    return table;
}

const Resource *find_resource(std::string_view name)
{
    const auto *found = std::ranges::find(resources(), name, &Resource::name);
    return found != resources().end() ? found : nullptr;
}

bool is_raw(const Resource &resource)
{
    return resource.name == "backup_restore" || resource.name == "upgrade_by_file";
}

} // namespace kelmora_host
