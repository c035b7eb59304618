#ifndef KELMORA_HOST_CLI_PRETTY_H
#define KELMORA_HOST_CLI_PRETTY_H

#include "host/cli/style.h"

#include <string>

namespace kelmora_host {

/// A JSON document for a reader's eyes: a line for each value, indented, in colours where the style has them. Values
/// are as they stand in the text. What is no document is returned as it is.
[[nodiscard]] std::string pretty(const std::string &json, const Style &style);

} // namespace kelmora_host

#endif
