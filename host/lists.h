#ifndef KELMORA_HOST_LISTS_H
#define KELMORA_HOST_LISTS_H

#include <cstdint>

namespace kelmora_host {

/// The longest chain that this host allocates for a plug-in. It refuses a longer one.
inline constexpr std::uint32_t longest_list = 65536;

} // namespace kelmora_host

#endif
