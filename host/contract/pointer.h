#ifndef KELMORA_HOST_CONTRACT_POINTER_H
#define KELMORA_HOST_CONTRACT_POINTER_H

#include <string>
#include <string_view>
#include <vector>

namespace kelmora_host {

// JSON Pointers (RFC 6901).

/// A key or "*" as a token of a pointer: "a/b" as "a~1b".
[[nodiscard]] std::string escaped_token(std::string_view key);

/// A pointer's tokens, unescaped: "/lan_list/*/lan_id" has three, "" has none.
[[nodiscard]] std::vector<std::string> tokens_of(std::string_view pointer);

/// What stands behind the last slash, as it stands there.
[[nodiscard]] std::string_view last_token(std::string_view pointer);

} // namespace kelmora_host

#endif
