#include "frame/direct/quote.h"

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

Word load(const char *bytes)
{
    Word word;
    __builtin_memcpy(&word, bytes, sizeof word); // for x86-64 the library has no other one inline
    return word;
}

/// A word of which each byte is this one.
constexpr Word each_is(char c) { return each_byte * static_cast<unsigned char>(c); }

/// The high bits of those bytes of a word that are not ASCII or are to be escaped. slash: a word of "/", or where that
/// is not escaped of another character that is.
Word not_plain(Word word, Word slash)
{
    const Word low_bits = word & ~high_bits;
    const auto differs_from = [=](Word other) { return (low_bits ^ other) + each_is('\x7F'); };
    const Word printable = low_bits + each_byte * (0x80 - 0x20);
    const Word plain = printable & differs_from(each_is('"')) & differs_from(each_is('\\')) & differs_from(slash);
    return (~plain | word) & high_bits;
}

/// The UTF-16 unit as an escape.
void put_unit(char *to, unsigned unit)
{
    *to++ = '\\';
    *to++ = 'u';
    for (unsigned shift = 16; shift != 0; shift -= 4)
        *to++ = "0123456789ABCDEF"[unit >> (shift - 4) & 0xFU];
}

/// Writes a control character, or one of several bytes of UTF-8, as \u escapes. Returns the size of that.
unsigned put_units(char *to, const char *character, unsigned bytes)
{
    const auto lead = static_cast<unsigned char>(*character);
    unsigned code = bytes == 1 ? lead : lead & 0x7FU >> bytes;
    for (unsigned i = 1; i < bytes; ++i)
        code = code << 6U | (static_cast<unsigned char>(character[i]) & 0x3FU);
    if (code < 0x10000) {
        put_unit(to, code);
        return 6;
    }
    put_unit(to, 0xD800 + ((code - 0x10000) >> 10U));
    put_unit(to + 6, 0xDC00 + (code & 0x3FFU));
    return 12;
}

} // namespace

bool is_ascii(const char *string, std::size_t length)
{
    const char *const end = string + length;
    for (std::size_t words = length / sizeof(Word); words != 0; --words, string += sizeof(Word)) {
        const Word word = load(string);
        if ((((word - each_byte) | word) & high_bits) != 0)
            break; // not ASCII, or a NUL
    }
    while (string != end && *string != '\0' && static_cast<unsigned char>(*string) < 0x80)
        ++string;
    return string == end || *string == '\0';
}

std::size_t length_without_escapes(const char *string, std::size_t length, Escapes escapes)
{
    const Word slash = each_is(escapes == Escapes::ascii_and_slash ? '/' : '"');
    const char *at = string;
    for (std::size_t words = length / sizeof(Word); words != 0; --words, at += sizeof(Word)) {
        const Word marked = not_plain(load(at), slash);
        if (marked != 0) {
            const bool little = std::endian::native == std::endian::little;
            at += static_cast<unsigned>(little ? std::countr_zero(marked) : std::countl_zero(marked)) / 8;
            return static_cast<std::size_t>(at - string);
        }
    }
    for (const char *const end = string + length; at != end; ++at) {
        if (!is_plain(static_cast<unsigned char>(*at), escapes))
            break;
    }
    return static_cast<std::size_t>(at - string);
}

std::size_t quote(char *to, std::size_t room, const char *string, std::size_t length, Escapes escapes)
{
    std::size_t size = 0;
    const auto put = [&](char byte) {
        if (size < room)
            to[size] = byte;
        ++size;
    };
    const auto put_bytes = [&](const char *bytes, std::size_t count) {
        if (size + count <= room)
            copy(to + size, bytes, count);
        size += count;
    };

    put('"');
    for (const char *const end = string + length;;) {
        const std::size_t plain = length_without_escapes(string, static_cast<std::size_t>(end - string), escapes);
        put_bytes(string, plain);
        string += plain;
        if (string == end || *string == '\0')
            break;
        const auto lead = static_cast<unsigned char>(*string);
        if (const char letter = escape_letter(lead, escapes); letter != '\0') {
            put('\\');
            put(letter);
            ++string;
            continue;
        }
        const unsigned bytes = lead < 0xC0 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
        if (lead >= 0x80 && (bytes > static_cast<std::size_t>(end - string) || !is_utf8(string, bytes)))
            return 0;
        if (lead >= 0x20 && escapes == Escapes::necessary) {
            put_bytes(string, bytes);
        } else {
            char units[12];
            put_bytes(units, put_units(units, string, bytes));
        }
        string += bytes;
    }
    put('"');
    return size;
}

} // namespace kelmora
