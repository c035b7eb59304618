#ifndef KELMORA_HARNESS_LEDGER_H
#define KELMORA_HARNESS_LEDGER_H

#include <cstddef>
#include <cstdint>

namespace kelmora_harness {

/// How an allocation that is to fail is followed: by ones that succeed again, or by none.
enum class Failing { once, from_then_on };

/// The allocation that is to fail in a call, counted from 1; 0 for none.
struct FailingAllocation {
    std::size_t number = 0;
    Failing failing = Failing::once;
};

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

/// The allocations of a program that is linked with the harness: every block of jansson's from the start of the
/// process on, and every malloc, realloc and free in the program's own objects, among them the library's (the linker
/// wraps them). What operator new takes is not among them. Fresh memory is poisoned. A calloc, which the library does
/// not call and the development host does, is in the books but no request that is counted or fails.
///
/// Everything is counted for the calling thread alone, unless it says otherwise, and without a lock: a lock would order
/// the threads and so hide a race of the library's from ThreadSanitizer. A block that another thread frees than the one
/// that made it stays in the books.
namespace ledger {

/// Blocks that are alive.
[[nodiscard]] std::size_t alive();

/// Blocks of jansson's that are alive: JSON values, and what they are made of.
[[nodiscard]] std::size_t json_alive();

/// The same with their bytes: of this thread, and of all threads together.
[[nodiscard]] Amount json();
[[nodiscard]] Amount json_of_process();

/// The blocks of jansson's that this thread left alive will never be freed: forgets where they are, not that they are
/// there.
void forget_json();

/// Allocations asked for since the last call of fail() or pass(), reallocations included.
[[nodiscard]] std::size_t asked_for();

/// The reallocations among them, and the size that the last of them asked for: of the block that is followed, or of any
/// where none is.
[[nodiscard]] std::size_t reallocations();
[[nodiscard]] std::size_t reallocated_size();

/// Follows a block, also where it is moved to; NULL follows none.
void follow(const void *block);

/// The n-th allocation from now on fails, counted from 1; 0 fails none.
void fail(std::size_t n, Failing failing);
inline void fail(FailingAllocation allocation) { fail(allocation.number, allocation.failing); }

/// The allocation that was chosen last.
[[nodiscard]] FailingAllocation chosen();

/// No allocation fails any more.
void pass();

} // namespace ledger

} // namespace kelmora_harness

#endif
