#ifndef KELMORA_FRAME_NESTING_H
#define KELMORA_FRAME_NESTING_H

#include <cstddef>

namespace kelmora {

/// How deep the objects and arrays in a member of a document's root are nested; 0 for a member that is none, or absent.
/// Of several members of this name the last one counts. json: the text of a document that could be parsed; name: ASCII.
[[nodiscard]] std::size_t nesting_of_member(const char *json, const char *name);

} // namespace kelmora

#endif
