#ifndef KELMORA_HOST_GATEWAY_LISTS_H
#define KELMORA_HOST_GATEWAY_LISTS_H

#include "kelmora_host.h"

#include <cstdint>
#include <functional>
#include <limits>
#include <string_view>

namespace kelmora_host {

/// While it lives, the host refuses to allocate longer chains than this for a plug-in, as if memory ran out there.
/// There is no limit otherwise. Of the process as a whole; one at a time.
class ListLimit {
public:
    explicit ListLimit(std::uint32_t longest) { longest_ = longest; }
    ListLimit(const ListLimit &) = delete;
    ListLimit &operator=(const ListLimit &) = delete;
    ~ListLimit() { longest_ = none; }

    static std::uint32_t longest() { return longest_; }

private:
    static constexpr std::uint32_t none = std::numeric_limits<std::uint32_t>::max();
    static inline std::uint32_t longest_ = none;
};

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
