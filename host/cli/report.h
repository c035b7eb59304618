#ifndef KELMORA_HOST_CLI_REPORT_H
#define KELMORA_HOST_CLI_REPORT_H

#include "host/cli/style.h"
#include "host/contract/findings_json.h"

#include <string>

namespace kelmora_host {

/// A line "FILE:LINE:COLUMN: SEVERITY: POINTER: MESSAGE [CODE]" for each error and finding, in the order of the text;
/// of what has no place in the text without it.
[[nodiscard]] std::string diagnostics(const CheckedFile &checked, const Style &style);

} // namespace kelmora_host

#endif
