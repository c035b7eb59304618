#ifndef KELMORA_FRAME_TEXT_H
#define KELMORA_FRAME_TEXT_H

#include <cstddef>
#include <jansson.h>

namespace kelmora {

/// The length of a text field: up to its NUL, or its whole width when it has none.
[[nodiscard]] std::size_t field_length(const char *field, std::size_t width);

/// A new JSON string of a text field, cut to width - 1 bytes; empty for a width of 0. NULL when the text is not UTF-8
/// or memory ran out.
[[nodiscard]] json_t *string_of_field(const char *field, std::size_t width);

/// Whether jansson takes the bytes as text: well-formed UTF-8, no surrogates, nothing above U+10FFFF.
[[nodiscard]] bool is_utf8(const char *text, std::size_t length);

/// Copies a text into a field: cut to width - 1 bytes, the rest of the field filled with NULs. NULL counts as empty.
/// Returns whether the whole text fitted.
bool store_text(char *field, const char *source, std::size_t width);

} // namespace kelmora

#endif
