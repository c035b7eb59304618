#include "bench/heap.h"

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <cstring>

// The C library's own functions, which those below stand before in the whole process. The ledger that the tests use
// (harness/ledger.h) would not do: the linker wraps the calls of the program's own objects, and here the plug-in is
// measured as it is shipped, loaded by dlopen, together with what jansson and the C library take for it.
// NOLINTBEGIN(bugprone-reserved-identifier,readability-identifier-naming): these are their names
extern "C" {
void *__libc_malloc(std::size_t size);
void *__libc_realloc(void *block, std::size_t size);
void __libc_free(void *block);
}
// NOLINTEND(bugprone-reserved-identifier,readability-identifier-naming)

namespace {

/// In front of each block: its size as it was asked for, which the C library does not tell.
struct alignas(std::max_align_t) Head {
    std::size_t size;
};

std::size_t allocations;
std::size_t in_use;
std::size_t in_use_before;
std::size_t peak;

Head *head_of(void *block) { return static_cast<Head *>(block) - 1; }

void *taken(void *raw, std::size_t size)
{
    if (raw == nullptr)
        std::abort();
    ++allocations;
    in_use += size;
    peak = std::max(peak, in_use);
    auto *head = static_cast<Head *>(raw);
    head->size = size;
    return head + 1;
}

} // namespace

extern "C" {

void *malloc(std::size_t size) { return taken(__libc_malloc(sizeof(Head) + size), size); }

void *calloc(std::size_t count, std::size_t size)
{
    void *block = malloc(count * size);
    return std::memset(block, 0, count * size);
}

void *realloc(void *block, std::size_t size)
{
    if (block == nullptr)
        return malloc(size);
    Head *head = head_of(block);
    in_use -= head->size;
    return taken(__libc_realloc(head, sizeof(Head) + size), size);
}

void free(void *block)
{
    if (block == nullptr)
        return;
    in_use -= head_of(block)->size;
    __libc_free(head_of(block));
}

// Nothing here asks for these; a block without a head must not come into the world.
int posix_memalign(void ** /*block*/, std::size_t /*alignment*/, std::size_t /*size*/) { std::abort(); }
void *aligned_alloc(std::size_t /*alignment*/, std::size_t /*size*/) { std::abort(); }
}

namespace kelmora_bench {

void watch_heap()
{
    allocations = 0;
    in_use_before = peak = in_use;
}

HeapUse heap_use() { return {allocations, peak - in_use_before}; }

} // namespace kelmora_bench
