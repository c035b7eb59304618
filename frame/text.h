#ifndef KELMORA_FRAME_TEXT_H
#define KELMORA_FRAME_TEXT_H

#include <cstddef>
#include <jansson.h>

namespace kelmora {

/// The length of a text field: up to its NUL, or its whole width when it has none.
[[nodiscard]] std::size_t field_length(const char *field, std::size_t width);

/// A new JSON string of a text, cut to width - 1 bytes; empty for a width of 0. NULL when the text is not UTF-8 or
/// memory ran out. Reads neither behind the text's NUL nor behind the width.
[[nodiscard]] json_t *string_of(const char *text, std::size_t width);

/// The same of a text field, all of whose bytes may be read. width: not 0.
[[nodiscard]] inline json_t *string_of_field(const char *field, std::size_t width)
{
    // A NUL in the last byte spares the search for one: most fields end so.
    return field[width - 1] == '\0' ? json_string(field) : string_of(field, width);
}

/// Whether jansson takes the bytes as text: well-formed UTF-8, no surrogates, nothing above U+10FFFF.
[[nodiscard]] bool is_utf8(const char *text, std::size_t length);

/// Copies a text into a field: cut to width - 1 bytes, the rest of the field filled with NULs. NULL counts as empty.
/// Returns whether the whole text fitted.
bool store_text(char *field, const char *source, std::size_t width);

} // namespace kelmora

#endif
