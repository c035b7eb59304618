#include "frame/direct/escape.h"

#include "frame/string.h"

#include <bit>

namespace kelmora {

namespace {

/// What follows the backslash in an escape of two characters; 0 for a character that has none.
char escape_letter(unsigned char c, Escapes escapes)
{
    if (c == '"' || c == '\\' || (c == '/' && escapes == Escapes::ascii_and_slash))
        return static_cast<char>(c);
    return c >= '\b' && c <= '\r' ? "btn\0fr"[c - '\b'] : '\0';
}

/// Whether a character is ASCII and needs no escape.
bool is_plain(unsigned char c, Escapes escapes) { return c >= 0x20 && c < 0x80 && escape_letter(c, escapes) == '\0'; }

using Word = std::size_t;
constexpr Word each_byte = ~Word{0} / 0xFF;
constexpr Word high_bits = each_byte * 0x80;

/// The high bits of those bytes of a word that are not plain.
Word not_plain(Word word, Escapes escapes)
{
    const Word low_bits = word & ~high_bits;
    const auto differs_from = [&](unsigned char c) { return (low_bits ^ each_byte * c) + each_byte * 0x7F; };
    const Word no_slash = escapes == Escapes::ascii_and_slash ? differs_from('/') : high_bits;
    const Word printable = low_bits + each_byte * (0x80 - 0x20);
    return (~(printable & differs_from('"') & differs_from('\\') & no_slash) | word) & high_bits;
}

} // namespace

std::size_t length_without_escapes(const char *bytes, std::size_t length, Escapes escapes)
{
    std::size_t plain = 0;
    for (Word word = 0; length - plain >= sizeof word; plain += sizeof word) {
        __builtin_memcpy(&word, bytes + plain, sizeof word); // for x86-64 the library has no other one inline
        word = not_plain(word, escapes);
        if (word != 0) {
            const bool little = std::endian::native == std::endian::little;
            return plain + static_cast<unsigned>(little ? std::countr_zero(word) : std::countl_zero(word)) / 8;
        }
    }
    while (plain != length && is_plain(static_cast<unsigned char>(bytes[plain]), escapes))
        ++plain;
    return plain;
}

std::size_t escape(char *to, const char *bytes, std::size_t length, Escapes escapes)
{
    std::size_t size = 0;
    const auto put = [&](unsigned c) {
        if (to != nullptr)
            to[size] = static_cast<char>(c);
        ++size;
    };
    const auto put_unit = [&](unsigned unit) {
        put('\\');
        put('u');
        for (unsigned shift = 16; shift != 0; shift -= 4)
            put(static_cast<unsigned char>("0123456789ABCDEF"[unit >> (shift - 4) & 0xFU]));
    };

    for (const char *const end = bytes + length;;) {
        const std::size_t plain = length_without_escapes(bytes, static_cast<std::size_t>(end - bytes), escapes);
        if (to != nullptr)
            copy(to + size, bytes, plain);
        size += plain;
        bytes += plain;
        if (bytes == end)
            return size;
        const auto lead = static_cast<unsigned char>(*bytes);
        const std::size_t sequence = lead < 0xC0 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
        if (lead >= 0x80 && (sequence > static_cast<std::size_t>(end - bytes) || !is_utf8(bytes, sequence)))
            return 0;
        if (const char letter = escape_letter(lead, escapes); letter != '\0') {
            put('\\');
            put(static_cast<unsigned char>(letter));
        } else if (lead >= 0x20 && escapes == Escapes::necessary) {
            for (std::size_t i = 0; i < sequence; ++i)
                put(static_cast<unsigned char>(bytes[i]));
        } else {
            unsigned code = sequence == 1 ? lead : lead & 0x7FU >> sequence;
            for (std::size_t i = 1; i < sequence; ++i)
                code = code << 6U | (static_cast<unsigned char>(bytes[i]) & 0x3FU);
            if (code >= 0x10000) {
                put_unit(0xD800 + ((code - 0x10000) >> 10U));
                code = 0xDC00 + (code & 0x3FFU);
            }
            put_unit(code);
        }
        bytes += sequence;
    }
}

} // namespace kelmora
