#ifndef KELMORA_HOST_CLI_STEPS_H
#define KELMORA_HOST_CLI_STEPS_H

#include "host/cli/style.h"
#include "host/contract/trace.h"
#include "host/json.h"

#include <string>
#include <string_view>

namespace kelmora_host {

/// A trace as a table with a row for each look-up, and what came of it all.
[[nodiscard]] std::string steps_as_table(const Trace &trace, const Style &style);

/// The same as a JSON object, for programs.
[[nodiscard]] Json steps_as_json(const Trace &trace, std::string_view file, std::string_view resource);

} // namespace kelmora_host

#endif
