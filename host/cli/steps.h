#ifndef KELMORA_HOST_CLI_STEPS_H
#define KELMORA_HOST_CLI_STEPS_H

#include "host/cli/style.h"
#include "host/contract/trace.h"

#include <string>

namespace kelmora_host {

/// A trace as a table with a row for each look-up, and what came of it all.
[[nodiscard]] std::string steps_as_table(const Trace &trace, const Style &style);

} // namespace kelmora_host

#endif
