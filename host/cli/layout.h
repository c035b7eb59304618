#ifndef KELMORA_HOST_CLI_LAYOUT_H
#define KELMORA_HOST_CLI_LAYOUT_H

#include "host/cli/style.h"
#include "host/contract/layout.h"

#include <span>
#include <string>

namespace kelmora_host {

/// The layouts of a resource's record and of what belongs to it, for a terminal: a table each, with the columns of each
/// of the targets beside each other.
[[nodiscard]] std::string layouts_as_tables(const Resource &resource, std::span<const Target> on, const Style &style);

/// The same of the node and of all records, each once.
[[nodiscard]] std::string layouts_as_tables(std::span<const Target> on, const Style &style);

} // namespace kelmora_host

#endif
