#ifndef KELMORA_HOST_CLI_INPUT_H
#define KELMORA_HOST_CLI_INPUT_H

#include <optional>
#include <string>

namespace kelmora_host {

/// A document as the user gave it.
struct Input {
    std::string name; ///< what messages call it: the file as it was named, or "<stdin>"
    std::string text;
};

/// Reads a file to its end, or the standard input when `file` is "-". Throws Failure (environment) when that fails.
Input read_input(const std::string &file);

/// What is wrong at a place in a text. Lines and columns count from 1, columns in characters.
struct Fault {
    int line;
    int column;
    std::string what;

    bool operator==(const Fault &) const = default;
};

/// The first NUL byte, if any: a text with one would end there for whoever takes it as NUL-terminated.
std::optional<Fault> find_nul(const std::string &text);

/// Why the text is no JSON document, if it is none. The column is where reading stopped: the last character of what
/// was not expected.
std::optional<Fault> find_parse_fault(const std::string &text);

} // namespace kelmora_host

#endif
