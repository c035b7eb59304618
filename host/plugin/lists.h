#ifndef KELMORA_HOST_PLUGIN_LISTS_H
#define KELMORA_HOST_PLUGIN_LISTS_H

#include <cstdint>
#include <limits>

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

} // namespace kelmora_host

#endif
