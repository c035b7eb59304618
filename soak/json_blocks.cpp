#include "soak/json_blocks.h"

#include <atomic>
#include <cstddef>
#include <cstdlib>
#include <jansson.h>
#include <malloc.h>
#include <unordered_set>

// The library frees the texts that jansson renders with free, as jansson's manual has it, so that jansson's own
// function never hears of them. The linker sends the library's calls of free here.
// NOLINTBEGIN(bugprone-reserved-identifier,readability-identifier-naming): the names are the linker's
extern "C" {
void __real_free(void *block);
void __wrap_free(void *block);
}
// NOLINTEND(bugprone-reserved-identifier,readability-identifier-naming)

namespace kelmora_soak {

namespace {

// No lock, and no order between the threads: either would hide a race of the library's from ThreadSanitizer.
std::atomic<std::ptrdiff_t> alive_blocks{0};
std::atomic<std::ptrdiff_t> alive_bytes{0};
thread_local Amount own;
thread_local std::unordered_set<void *> places;

void count(std::ptrdiff_t blocks, std::ptrdiff_t bytes)
{
    own += {blocks, bytes};
    alive_blocks.fetch_add(blocks, std::memory_order_relaxed);
    alive_bytes.fetch_add(bytes, std::memory_order_relaxed);
}

std::ptrdiff_t size_of(void *block) { return static_cast<std::ptrdiff_t>(malloc_usable_size(block)); }

void *allocate(std::size_t size)
{
    void *block = std::malloc(size);
    if (block != nullptr) {
        count(1, size_of(block));
        places.insert(block);
    }
    return block;
}

void release(void *block)
{
    if (block == nullptr)
        return;
    count(-1, -size_of(block));
    places.erase(block);
    __real_free(block);
}

} // namespace

namespace json_blocks {

void watch() { json_set_alloc_funcs(allocate, release); }

Amount of_this_thread() { return own; }

Amount alive() { return {alive_blocks.load(std::memory_order_relaxed), alive_bytes.load(std::memory_order_relaxed)}; }

void forget_blocks() { places.clear(); }

} // namespace json_blocks

} // namespace kelmora_soak

void __wrap_free(void *block) // NOLINT(bugprone-reserved-identifier)
{
    if (kelmora_soak::places.erase(block) != 0)
        kelmora_soak::count(-1, -kelmora_soak::size_of(block));
    __real_free(block);
}
