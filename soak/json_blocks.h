#ifndef KELMORA_SOAK_JSON_BLOCKS_H
#define KELMORA_SOAK_JSON_BLOCKS_H

#include <cstdint>

namespace kelmora_soak {

/// An amount of memory: blocks, and the bytes that the allocator gave for them.
struct Amount {
    std::int64_t blocks = 0;
    std::int64_t bytes = 0;

    Amount &operator+=(const Amount &other)
    {
        blocks += other.blocks;
        bytes += other.bytes;
        return *this;
    }
    friend Amount operator-(const Amount &left, const Amount &right)
    {
        return {left.blocks - right.blocks, left.bytes - right.bytes};
    }
    bool operator==(const Amount &) const = default;
};

/// The blocks of jansson's: JSON values, and what they are made of.
namespace json_blocks {

/// Has them counted. Before the first JSON value.
void watch();

/// Those that the calling thread made, less those that it freed.
[[nodiscard]] Amount of_this_thread();

/// The same of all threads together.
[[nodiscard]] Amount alive();

/// The blocks that this thread left alive will never be freed: forgets where they are, not that they are there.
void forget_blocks();

} // namespace json_blocks

} // namespace kelmora_soak

#endif
