#ifndef KELMORA_FRAME_OUTPUT_H
#define KELMORA_FRAME_OUTPUT_H

#include <cstddef>

namespace kelmora {

/// Bytes that the host's output buffer has at least.
inline constexpr std::size_t smallest_buffer = 4096;

/// Makes room in the host's output buffer for a text of `length` bytes and its NUL. The buffer is reallocated only for
/// a text that the smallest buffer cannot hold, and then to exactly what the text needs. Returns false, with *out as it
/// was, when there is no memory.
[[nodiscard]] bool make_room(char **out, std::size_t length);

/// Copies a text into the host's output buffer. Returns false when there is no text (NULL) or no room for it.
[[nodiscard]] bool hand_over(const char *text, char **out);

} // namespace kelmora

#endif
