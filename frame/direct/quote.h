#ifndef KELMORA_FRAME_DIRECT_QUOTE_H
#define KELMORA_FRAME_DIRECT_QUOTE_H

#include <cstddef>

namespace kelmora {

/// How strings stand in a text: as they are but for what must be escaped, or all in ASCII and with "/" escaped too.
enum class Escapes : bool { necessary, ascii_and_slash };

/// Whether a string of at most `length` bytes, or up to its NUL, is ASCII. All `length` bytes may be read.
[[nodiscard]] bool is_ascii(const char *string, std::size_t length);

/// The length of the beginning of a string that needs no escapes. It ends before a NUL at the latest. All `length`
/// bytes may be read.
[[nodiscard]] std::size_t length_without_escapes(const char *string, std::size_t length, Escapes escapes);

/// Writes a string of at most `length` bytes, or up to its NUL, between quotes and with its escapes, as jansson does.
/// Returns the size of that, or 0 when the string is not UTF-8. Where it is more than `room`, what was written is of no
/// use; nothing is written behind the room. All `length` bytes may be read.
std::size_t quote(char *to, std::size_t room, const char *string, std::size_t length, Escapes escapes);

/// As memcpy, for what is short as a rule: a call costs more. Returns the end of what was written.
inline char *copy(char *to, const char *from, std::size_t size)
{
    constexpr std::size_t word = sizeof(std::size_t);
    char *const end = to + size;
    if (size < word) {
        while (to != end)
            *to++ = *from++;
        return end;
    }
    const char *const last = from + (size - word); // which may have some bytes that are written already
    for (; from < last; from += word, to += word)
        __builtin_memcpy(to, from, word);
    __builtin_memcpy(end - word, last, word);
    return end;
}

} // namespace kelmora

#endif
