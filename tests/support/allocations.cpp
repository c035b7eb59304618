#include "tests/support/allocations.h"

#include <cstdlib>
#include <cstring>
#include <jansson.h>
#include <mutex>
#include <unordered_map>

extern "C" {
// What the linker puts behind the wrapped names: the C library's functions.
void *__real_malloc(std::size_t size);               // NOLINT(bugprone-reserved-identifier): the linker's name
void *__real_realloc(void *block, std::size_t size); // NOLINT(bugprone-reserved-identifier)
void __real_free(void *block);                       // NOLINT(bugprone-reserved-identifier)
}

namespace kelmora_test {

namespace {

enum class Owner { jansson, library };

/// The blocks and the counters, guarded by one lock.
struct State {
    std::mutex mutex;
    std::unordered_map<void *, Owner> blocks;
    std::size_t json_blocks = 0;
    std::size_t asked_for = 0;
    std::size_t reallocations = 0;
    std::size_t reallocated_size = 0;
    std::size_t failing_one = 0;
    Failing failing = Failing::once;

    /// Counts an allocation; whether it is to fail.
    bool fails()
    {
        ++asked_for;
        if (failing_one == 0)
            return false;
        return failing == Failing::once ? asked_for == failing_one : asked_for >= failing_one;
    }

    void *add(void *block, Owner owner)
    {
        if (block != nullptr) {
            blocks[block] = owner;
            json_blocks += owner == Owner::jansson ? 1U : 0U;
        }
        return block;
    }

    void remove(void *block)
    {
        const auto found = blocks.find(block);
        if (found == blocks.end())
            return;
        json_blocks -= found->second == Owner::jansson ? 1U : 0U;
        blocks.erase(found);
    }
};

/// Never destroyed: jansson may free a block after all static objects are gone.
State &state()
{
    static auto &state = *new State;
    return state;
}

void *allocate(std::size_t size, Owner owner)
{
    const std::lock_guard lock(state().mutex);
    if (state().fails())
        return nullptr;
    void *block = __real_malloc(size);
    if (block != nullptr)
        std::memset(block, 0xA5, size); // fresh memory is not zero
    return state().add(block, owner);
}

void release(void *block)
{
    const std::lock_guard lock(state().mutex);
    state().remove(block);
    __real_free(block);
}

/// From the start of the process: jansson's blocks must all come from here.
const bool jansson_watched = [] {
    json_set_alloc_funcs([](std::size_t size) { return allocate(size, Owner::jansson); }, release);
    return true;
}();

} // namespace

namespace allocations {

std::size_t alive()
{
    const std::lock_guard lock(state().mutex);
    return state().blocks.size();
}

std::size_t json_alive()
{
    const std::lock_guard lock(state().mutex);
    return state().json_blocks;
}

std::size_t asked_for()
{
    const std::lock_guard lock(state().mutex);
    return state().asked_for;
}

std::size_t reallocations()
{
    const std::lock_guard lock(state().mutex);
    return state().reallocations;
}

std::size_t reallocated_size()
{
    const std::lock_guard lock(state().mutex);
    return state().reallocated_size;
}

void fail(std::size_t n, Failing failing)
{
    const std::lock_guard lock(state().mutex);
    state().asked_for = 0;
    state().reallocations = 0;
    state().failing_one = n;
    state().failing = failing;
}

void pass() { fail(0, Failing::once); }

} // namespace allocations

} // namespace kelmora_test

// NOLINTBEGIN(bugprone-reserved-identifier): the names are the linker's
extern "C" {

void *__wrap_malloc(std::size_t size) { return kelmora_test::allocate(size, kelmora_test::Owner::library); }

void *__wrap_realloc(void *block, std::size_t size)
{
    const std::lock_guard lock(kelmora_test::state().mutex);
    ++kelmora_test::state().reallocations;
    kelmora_test::state().reallocated_size = size;
    if (kelmora_test::state().fails())
        return nullptr;
    void *moved = __real_realloc(block, size);
    if (moved != nullptr) {
        kelmora_test::state().remove(block);
        kelmora_test::state().add(moved, kelmora_test::Owner::library);
    }
    return moved;
}

void __wrap_free(void *block) { kelmora_test::release(block); }
}
// NOLINTEND(bugprone-reserved-identifier)
