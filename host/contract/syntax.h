#ifndef KELMORA_HOST_CONTRACT_SYNTAX_H
#define KELMORA_HOST_CONTRACT_SYNTAX_H

#include "host/contract/positions.h"

#include <optional>
#include <string>

namespace kelmora_host {

/// What is wrong at a place in a text that is no document.
struct SyntaxError {
    Position position;
    std::string what;

    bool operator==(const SyntaxError &) const = default;
};

/// The first NUL byte, if any: a text with one would end there for whoever takes it as NUL-terminated.
[[nodiscard]] std::optional<SyntaxError> find_nul_byte(const std::string &text);

/// Why the text is no JSON document, if it is none. The column is where reading stopped: the last character of what
/// was not expected.
[[nodiscard]] std::optional<SyntaxError> find_syntax_error(const std::string &text);

} // namespace kelmora_host

#endif
