#include "harness/ledger.h"

#include "harness/poison.h"

#include <atomic>
#include <cstdlib>
#include <cstring>
#include <jansson.h>
#include <malloc.h>
#include <unordered_set>

// What the linker puts behind the wrapped names: the C library's functions.
// NOLINTBEGIN(bugprone-reserved-identifier,readability-identifier-naming): the names are the linker's
extern "C" {
void *__real_malloc(std::size_t size);
void *__real_calloc(std::size_t count, std::size_t size);
void *__real_realloc(void *block, std::size_t size);
void __real_free(void *block);
void *__wrap_malloc(std::size_t size);
void *__wrap_calloc(std::size_t count, std::size_t size);
void *__wrap_realloc(void *block, std::size_t size);
void __wrap_free(void *block);
}
// NOLINTEND(bugprone-reserved-identifier,readability-identifier-naming)

namespace kelmora_harness {

namespace {

/// What a thread asked for since it last chose the allocation that is to fail.
struct Requests {
    std::size_t asked_for;
    std::size_t reallocations;
    std::size_t reallocated_size;
    const void *followed;
    FailingAllocation failing;

    /// Counts one; whether it is to fail.
    bool fails()
    {
        ++asked_for;
        if (failing.number == 0)
            return false;
        return failing.failing == Failing::once ? asked_for == failing.number : asked_for >= failing.number;
    }
};

thread_local Requests requests;
thread_local Amount json_amount;
std::atomic<std::ptrdiff_t> json_blocks_of_process{0};
std::atomic<std::ptrdiff_t> json_bytes_of_process{0};

/// Where a thread's blocks are, which tells the ones from jansson apart when they come to free: the library frees what
/// jansson rendered with free, as jansson's manual has it, so that jansson's own function never hears of it.
struct Places {
    std::unordered_set<void *> of_jansson;
    std::unordered_set<void *> of_the_library;
    ~Places();
};

thread_local bool places_are_gone = false; ///< the thread has ended, and blocks are still freed
thread_local Places places;

Places::~Places() { places_are_gone = true; }

void count_json(std::int64_t blocks, void *block)
{
    const auto size = static_cast<std::int64_t>(malloc_usable_size(block));
    json_amount += {blocks, blocks * size};
    json_blocks_of_process.fetch_add(static_cast<std::ptrdiff_t>(blocks), std::memory_order_relaxed);
    json_bytes_of_process.fetch_add(static_cast<std::ptrdiff_t>(blocks * size), std::memory_order_relaxed);
}

/// Before the block is freed.
void forget(void *block)
{
    if (places_are_gone || block == nullptr)
        return;
    if (places.of_jansson.erase(block) != 0)
        count_json(-1, block);
    else
        places.of_the_library.erase(block);
}

void release(void *block)
{
    forget(block);
    __real_free(block);
}

/// Behind each block of jansson's while an allocation is to fail. jansson's parser does not notice when its buffer for
/// a string cannot grow, and loses the character; where that is the closing quote it goes on to look for one behind the
/// buffer. Here it finds one: the string then ends with the buffer's NUL, and no memory but its own is touched.
constexpr char closing_quote = '"';

void *allocate_json(std::size_t size)
{
    if (requests.fails())
        return nullptr;
    const bool quoted = requests.failing.number != 0;
    void *block = __real_malloc(size + (quoted ? 1 : 0));
    if (block == nullptr)
        return nullptr;
    std::memset(block, poison, size);
    if (quoted)
        static_cast<char *>(block)[size] = closing_quote;
    if (!places_are_gone) {
        places.of_jansson.insert(block);
        count_json(1, block);
    }
    return block;
}

/// From the start of the process: jansson's blocks must all come from here.
const bool jansson_watched = [] {
    json_set_alloc_funcs(allocate_json, release);
    return true;
}();

} // namespace

namespace ledger {

std::size_t alive() { return json_alive() + places.of_the_library.size(); }

std::size_t json_alive() { return static_cast<std::size_t>(json_amount.blocks); }

Amount json() { return json_amount; }

Amount json_of_process()
{
    return {json_blocks_of_process.load(std::memory_order_relaxed),
            json_bytes_of_process.load(std::memory_order_relaxed)};
}

void forget_json() { places.of_jansson.clear(); }

std::size_t asked_for() { return requests.asked_for; }

std::size_t reallocations() { return requests.reallocations; }

std::size_t reallocated_size() { return requests.reallocated_size; }

void follow(const void *block) { requests.followed = block; }

void fail(std::size_t n, Failing failing)
{
    requests.asked_for = 0;
    requests.reallocations = 0;
    requests.failing = {n, failing};
}

FailingAllocation chosen() { return requests.failing; }

void pass() { fail(0, Failing::once); }

} // namespace ledger

} // namespace kelmora_harness

// NOLINTBEGIN(bugprone-reserved-identifier): the names are the linker's
void *__wrap_malloc(std::size_t size)
{
    using namespace kelmora_harness;
    if (requests.fails())
        return nullptr;
    void *block = __real_malloc(size);
    if (block == nullptr)
        return nullptr;
    std::memset(block, poison, size);
    if (!places_are_gone)
        places.of_the_library.insert(block);
    return block;
}

void *__wrap_calloc(std::size_t count, std::size_t size)
{
    using namespace kelmora_harness;
    void *block = __real_calloc(count, size);
    if (block != nullptr && !places_are_gone)
        places.of_the_library.insert(block);
    return block;
}

void *__wrap_realloc(void *block, std::size_t size)
{
    using namespace kelmora_harness;
    const bool followed = requests.followed != nullptr && requests.followed == block;
    if (followed || requests.followed == nullptr) {
        ++requests.reallocations;
        requests.reallocated_size = size;
    }
    if (requests.fails())
        return nullptr;
    void *moved = __real_realloc(block, size);
    if (moved == nullptr)
        return nullptr;
    if (followed)
        requests.followed = moved;
    if (!places_are_gone) {
        places.of_the_library.erase(block);
        places.of_the_library.insert(moved);
    }
    return moved;
}

void __wrap_free(void *block) { kelmora_harness::release(block); }
// NOLINTEND(bugprone-reserved-identifier)
