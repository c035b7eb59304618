#ifndef KELMORA_HOST_CLI_REPORT_H
#define KELMORA_HOST_CLI_REPORT_H

#include "host/cli/style.h"
#include "host/contract/findings.h"
#include "host/json.h"

#include <optional>
#include <string>
#include <string_view>

namespace kelmora_host {

/// A document as messages and programs are told of it.
struct CheckedFile {
    std::string file; ///< as it was named, or "<stdin>"
    std::string_view resource;
    Check check;
    std::optional<std::string> record; ///< as JSON text, where the record is told as well; empty when there is none
    bool raw = false;                  ///< the record is a raw resource's, and no JSON
};

/// A line "FILE:LINE:COLUMN: SEVERITY: POINTER: MESSAGE [CODE]" for each error and finding, in the order of the text;
/// of what has no place in the text without it.
[[nodiscard]] std::string diagnostics(const CheckedFile &checked, const Style &style);

/// The same as a JSON object, for programs.
[[nodiscard]] Json as_json(const CheckedFile &checked);

} // namespace kelmora_host

#endif
