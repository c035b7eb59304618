#ifndef KELMORA_HOST_CLI_INPUT_H
#define KELMORA_HOST_CLI_INPUT_H

#include <string>

namespace kelmora_host {

/// A document as the user gave it.
struct InputText {
    std::string name; ///< what messages call it: the file as it was named, or "<stdin>"
    std::string text;
};

/// Reads a file to its end, or the standard input when `file` is "-": when that is a terminal, stderr says that a
/// document is waited for. Throws Failure (environment) when that fails.
InputText read_input(const std::string &file);

} // namespace kelmora_host

#endif
