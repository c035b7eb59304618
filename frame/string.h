#ifndef KELMORA_FRAME_STRING_H
#define KELMORA_FRAME_STRING_H

#include <cstddef>
#include <jansson.h>

namespace kelmora {

/// The length of a string field: up to its NUL, or its whole width when it has none.
[[nodiscard]] std::size_t field_length(const char *field, std::size_t width);

/// A new JSON string of a C string, cut to width - 1 bytes; empty for a width of 0. NULL when it is not UTF-8 or memory
/// ran out. Reads neither behind the string's NUL nor behind the width.
[[nodiscard]] json_t *string_of(const char *string, std::size_t width);

/// The same of a string field, all of whose bytes may be read. width: not 0.
[[nodiscard]] inline json_t *string_of_field(const char *field, std::size_t width)
{
    // A NUL in the last byte spares the search for one: most fields end so.
    return field[width - 1] == '\0' ? json_string(field) : string_of(field, width);
}

/// Whether jansson takes the bytes for a string: well-formed UTF-8, no surrogates, nothing above U+10FFFF.
[[nodiscard]] bool is_utf8(const char *bytes, std::size_t length);

/// Copies a string into a field: cut to width - 1 bytes, the rest of the field filled with NULs. NULL counts as empty.
/// Returns whether the whole string fitted.
bool store_string(char *field, const char *source, std::size_t width);

} // namespace kelmora

#endif
