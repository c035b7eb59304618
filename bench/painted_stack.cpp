#include "bench/painted_stack.h"

#include <array>
#include <cstdint>
#include <pthread.h>
#include <stdexcept>

namespace kelmora_bench {

namespace {

using Word = std::uintptr_t;
constexpr Word paint = 0xA5A5A5A5;

constexpr std::size_t words = (std::size_t{512} * 1024) / sizeof(Word);
alignas(4096) std::array<Word, words> stack;

/// For the frame of who paints: it is not painted over, and so counts as used.
constexpr std::size_t spared = 256;

/// Paints what lies below the caller. Through volatile, as a call of memset would have its frame there.
[[gnu::noinline]] void paint_below()
{
    volatile Word here = 0;
    const auto end = reinterpret_cast<std::uintptr_t>(&here) - spared;
    for (volatile Word *word = stack.data(); reinterpret_cast<std::uintptr_t>(word) < end; ++word)
        *word = paint;
}

/// The lowest word that is no longer as it was painted.
[[gnu::noinline]] std::uintptr_t deepest_use()
{
    const volatile Word *word = stack.data();
    while (*word == paint)
        ++word;
    return reinterpret_cast<std::uintptr_t>(word);
}

void *start(void *argument)
{
    (*static_cast<const std::function<void()> *>(argument))();
    return nullptr;
}

} // namespace

void run_on_painted_stack(const std::function<void()> &function)
{
    std::function<void()> copy = function;
    pthread_attr_t attributes;
    pthread_t thread{};
    if (pthread_attr_init(&attributes) != 0 || pthread_attr_setstack(&attributes, stack.data(), sizeof stack) != 0 ||
        pthread_create(&thread, &attributes, start, &copy) != 0)
        throw std::runtime_error("no thread with a stack of its own");
    pthread_join(thread, nullptr);
    pthread_attr_destroy(&attributes);
}

std::size_t stack_use(const std::function<void()> &call)
{
    volatile Word here = 0;
    paint_below();
    call();
    return reinterpret_cast<std::uintptr_t>(&here) - deepest_use();
}

} // namespace kelmora_bench
