#ifndef KELMORA_FRAME_VALIDATION_H
#define KELMORA_FRAME_VALIDATION_H

#include "kelmora_json.h"

#include <jansson.h>

namespace kelmora {

/// What is wrong with a value that must be of a type, as a message; NULL when nothing is. A missing value (NULL) is of
/// no type.
[[nodiscard]] const char *type_fault(const json_t *value, int type);

/// The same for a value that must be there as well. A type that is none of kelmora_json_type asks for presence only.
[[nodiscard]] const char *value_fault(const json_t *value, int type);

} // namespace kelmora

#endif
