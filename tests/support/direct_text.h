#ifndef KELMORA_TESTS_SUPPORT_DIRECT_TEXT_H
#define KELMORA_TESTS_SUPPORT_DIRECT_TEXT_H

#include <algorithm>
#include <cstddef>

namespace kelmora_test {

/// Whether the library that the program is linked with writes text without jansson's values (KELMORA_DIRECT_TEXT).
extern const bool direct_text;

/// How often a text that is rendered first would have reallocated the buffer: once, where one that is written directly
/// enlarged it on its way.
inline std::size_t enlargements(std::size_t reallocations)
{
    return direct_text ? std::min(reallocations, std::size_t{1}) : reallocations;
}

} // namespace kelmora_test

#endif
