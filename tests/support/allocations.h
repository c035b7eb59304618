#ifndef KELMORA_TESTS_SUPPORT_ALLOCATIONS_H
#define KELMORA_TESTS_SUPPORT_ALLOCATIONS_H

#include <cstddef>

namespace kelmora_test {

/// How an allocation that a test wants to fail is followed: by ones that succeed again, or by none.
enum class Failing { once, from_then_on };

/// The memory of the code under test: every block of jansson's and every malloc, realloc and free of the library's own
/// (the linker wraps them). Of the process as a whole, so one test at a time.
namespace allocations {

/// Blocks that are alive.
[[nodiscard]] std::size_t alive();

/// Blocks of jansson's that are alive: JSON values, and what they are made of.
[[nodiscard]] std::size_t json_alive();

/// Allocations asked for since the last call of fail() or pass(), reallocations included.
[[nodiscard]] std::size_t asked_for();

/// The reallocations among them, and the size that the last of them asked for.
[[nodiscard]] std::size_t reallocations();
[[nodiscard]] std::size_t reallocated_size();

/// The n-th allocation from now on fails, counted from 1; 0 fails none.
void fail(std::size_t n, Failing failing);

/// No allocation fails any more.
void pass();

} // namespace allocations

} // namespace kelmora_test

#endif
