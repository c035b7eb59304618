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

/// What stands before the last slash: the object or list that a key or an element is in.
[[nodiscard]] std::string parent_of(std::string_view pointer);

/// Whether it is any element of a list: "/lan_list/*".
[[nodiscard]] bool is_element(std::string_view pointer);

/// Whether it leads to something in the ancestor, however deep: not to the ancestor itself.
[[nodiscard]] bool is_within(std::string_view pointer, std::string_view ancestor);

} // namespace kelmora_host

#endif
