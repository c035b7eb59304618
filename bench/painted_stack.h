#ifndef KELMORA_BENCH_PAINTED_STACK_H
#define KELMORA_BENCH_PAINTED_STACK_H

#include <cstddef>
#include <functional>

namespace kelmora_bench {

/// Runs a function on a thread of its own, whose stack is 512 KiB.
void run_on_painted_stack(const std::function<void()> &function);

/// Bytes of stack that a call takes at its deepest, a little of the caller's included; about 256 for one that takes
/// less. Only within run_on_painted_stack.
[[nodiscard]] std::size_t stack_use(const std::function<void()> &call);

} // namespace kelmora_bench

#endif
