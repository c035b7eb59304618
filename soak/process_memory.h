#ifndef KELMORA_SOAK_PROCESS_MEMORY_H
#define KELMORA_SOAK_PROCESS_MEMORY_H

#include <cstdint>

namespace kelmora_soak {

/// The process's resident memory in bytes, without what the allocator only holds in store. Throws
/// std::runtime_error when the system does not say.
[[nodiscard]] std::int64_t resident_memory();

/// The bytes of all blocks from malloc, each with the allocator's head.
[[nodiscard]] std::int64_t heap_in_use();

} // namespace kelmora_soak

#endif
