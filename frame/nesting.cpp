#include "frame/nesting.h"

namespace kelmora {

namespace {

/// The value of a hexadecimal digit.
unsigned digit(char c)
{
    if (c <= '9')
        return static_cast<unsigned>(c - '0');
    return static_cast<unsigned>((c | 0x20) - 'a') + 10;
}

/// The character that an escape stands for, and the escape's length. Of \u only ASCII matters here: for anything else
/// the character is 0, which is in no name.
struct Escape {
    char character;
    std::size_t length;
};

/// The escape that begins with this backslash.
Escape escape_at(const char *backslash)
{
    const char letter = backslash[1];
    switch (letter) {
    case 'u': {
        unsigned code = 0;
        for (const char *at = backslash + 2; at != backslash + 6; ++at)
            code = code << 4U | digit(*at);
        return {static_cast<char>(code < 0x80 ? code : 0), 6};
    }
    case 'b':
        return {'\b', 2};
    case 'f':
        return {'\f', 2};
    case 'n':
        return {'\n', 2};
    case 'r':
        return {'\r', 2};
    case 't':
        return {'\t', 2};
    default:
        return {letter, 2};
    }
}

/// A JSON string as it is written, without its quotes.
struct Written {
    const char *begin;
    const char *end;

    /// Whether the string, its escapes decoded, is this name.
    [[nodiscard]] bool operator==(const char *name) const
    {
        for (const char *at = begin; at != end; ++name) {
            const Escape character = *at == '\\' ? escape_at(at) : Escape{*at, 1};
            if (character.character != *name || *name == '\0')
                return false;
            at += character.length;
        }
        return *name == '\0';
    }
};

/// The string that begins behind this quote.
Written string_at(const char *begin)
{
    const char *end = begin;
    for (; *end != '"'; ++end) {
        if (*end == '\\')
            ++end; // what is escaped ends no string
    }
    return {begin, end};
}

} // namespace

std::size_t nesting_of_member(const char *json, const char *name)
{
    std::size_t depth = 0; // of what is around, the root included
    std::size_t deepest = 0;
    bool counted = false; // what comes is in the member
    Written string{json, json};
    for (; *json != '\0'; ++json) {
        if (*json == '"') {
            string = string_at(json + 1);
            json = string.end;
        } else if (*json == ':' && depth == 1) { // the string was a member's name
            counted = string == name;
            if (counted)
                deepest = 0;
        } else if (*json == '{' || *json == '[') {
            if (counted && depth > deepest)
                deepest = depth;
            ++depth;
        } else if (*json == '}' || *json == ']') {
            --depth;
        }
    }
    return deepest;
}

} // namespace kelmora
