#ifndef KELMORA_HOST_CONTRACT_WORDING_H
#define KELMORA_HOST_CONTRACT_WORDING_H

#include "host/contract/contract.h"

#include <string>
#include <string_view>

namespace kelmora_host {

// A contract in short phrases of English, for terminals and comments.

/// "integer", "list", "object or list".
[[nodiscard]] std::string_view type_of(const InputKey &key);

/// All types, "integer or string".
[[nodiscard]] std::string types_of(const OutputKey &key);

/// "0..4294967295", "up to 32 bytes", "up to 16, more are rejected"; empty where there is no limit.
[[nodiscard]] std::string range_of(const InputKey &key);
[[nodiscard]] std::string range_of(const OutputKey &key);

/// "yes", "no", "refused", "when protocol is 1", "one of a, b": of the contract's input, which has the key.
[[nodiscard]] std::string required_of(const InputKey &key, const Input &input);

/// "when mesh_session is false"; empty where the key is always looked at.
[[nodiscard]] std::string looked_at_of(const InputKey &key);

/// The keys without which it is not stored, "enabled and ip4".
[[nodiscard]] std::string others_of(const InputKey &key);

/// "always", "sometimes", "when type is 1 or 2".
[[nodiscard]] std::string presence_of(const OutputKey &key);

/// What becomes of the entries that a list had, "the new ones go behind those that were there"; empty for all that is
/// no list.
[[nodiscard]] std::string effect_of(const InputKey &key);

/// The fields' paths, "dmz_enabled, dmz_ip4"; empty when nothing is stored.
[[nodiscard]] std::string fields_of(const std::vector<KeyField> &fields);

/// The first field's meaning, or of the identifier what it is; may be empty.
[[nodiscard]] std::string_view meaning_of(const InputKey &key);
[[nodiscard]] std::string_view meaning_of(const OutputKey &key);

} // namespace kelmora_host

#endif
