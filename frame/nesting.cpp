#include "frame/nesting.h"

#include <cstring>

namespace kelmora {

namespace {

/// A JSON string as it is written, without its quotes.
struct Written {
    const char *begin;
    const char *end;

    [[nodiscard]] bool operator==(const char *name) const
    {
        const char *at = begin;
        for (; at != end && *at == *name; ++at)
            ++name;
        return at == end && *name == '\0';
    }

    [[nodiscard]] bool has_escape() const
    {
        return std::memchr(begin, '\\', static_cast<std::size_t>(end - begin)) != nullptr;
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
    bool counted = false; // what comes is in such a member
    Written string{json, json};
    for (; *json != '\0'; ++json) {
        if (*json == '"') {
            string = string_at(json + 1);
            json = string.end;
        } else if (*json == ':' && depth == 1) { // the string was a member's name
            if (string == name)
                deepest = 0;
            counted = string == name || string.has_escape();
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
