#ifndef KELMORA_FRAME_DIRECT_ESCAPE_H
#define KELMORA_FRAME_DIRECT_ESCAPE_H

#include <cstddef>

namespace kelmora {

/// How strings stand in a text: as they are but for what must be escaped, or all in ASCII and with "/" escaped too.
enum class Escapes : bool { necessary, ascii_and_slash };

/// The length of the beginning of a string that needs no escapes. It ends before a NUL at the latest. All `length`
/// bytes may be read.
[[nodiscard]] std::size_t length_without_escapes(const char *bytes, std::size_t length, Escapes escapes);

/// Writes a string's bytes with their escapes, as jansson does, unless `to` is NULL. Returns the size of that, or 0
/// when they are not UTF-8.
std::size_t escape(char *to, const char *bytes, std::size_t length, Escapes escapes);

/// As memcpy, for what is short as a rule: a call costs more.
inline void copy(char *to, const char *from, std::size_t size)
{
    constexpr std::size_t word = sizeof(std::size_t);
    char *const end = to + size;
    if (size < word) {
        while (to != end)
            *to++ = *from++;
        return;
    }
    for (char *const last = end - word; to < last; to += word, from += word)
        __builtin_memcpy(to, from, word);
    __builtin_memcpy(end - word, from - (to - (end - word)), word); // some bytes once more
}

} // namespace kelmora

#endif
