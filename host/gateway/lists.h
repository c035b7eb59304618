#ifndef KELMORA_HOST_GATEWAY_LISTS_H
#define KELMORA_HOST_GATEWAY_LISTS_H

#include "kelmora_host.h"

#include <cstdint>
#include <functional>
#include <string_view>

namespace kelmora_host {

/// The longest chain that this host allocates for a plug-in. It refuses a longer one.
inline constexpr std::uint32_t longest_list = 65536;

/// An entry for a record's list, as the plug-in hands it over.
struct AddedEntry {
    const void *record;                        ///< the one whose list it is for
    std::string_view list;                     ///< the name of the list
    std::string_view text = {};                ///< whole, of any length; empty where the entry is a node
    const void *node = nullptr;                ///< the node that is to be copied; NULL where the entry is a text
    int reserved = 0;                          ///< 0 as well where the call has no such argument
    const kelmora_errorlist *errors = nullptr; ///< NULL as well where the call has no such argument
};

/// Called, when set, before each entry is added, for those who want to look at that very moment. Of the process as a
/// whole.
extern std::function<void(const AddedEntry &)> on_add_entry;

} // namespace kelmora_host

#endif
