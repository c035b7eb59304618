#ifndef KELMORA_BENCH_HEAP_H
#define KELMORA_BENCH_HEAP_H

#include <cstddef>

namespace kelmora_bench {

/// What a stretch of the program asked of the heap.
struct HeapUse {
    std::size_t allocations; ///< reallocations included
    std::size_t peak;        ///< the most bytes that were in use at once, above those in use at the beginning
};

/// Watches the heap of the whole process from one call to the other. Stretches do not nest.
void watch_heap();
[[nodiscard]] HeapUse heap_use();

} // namespace kelmora_bench

#endif
