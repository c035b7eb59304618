#ifndef KELMORA_HOST_CLI_DOCTOR_H
#define KELMORA_HOST_CLI_DOCTOR_H

#include "host/cli/style.h"
#include "host/json.h"
#include "host/plugin/doctor.h"

#include <string>

namespace kelmora_host {

/// What an examination found, for a terminal: what the plug-in is, a line "FILE: error: MESSAGE [CODE]" for each fault,
/// and whether there are any.
[[nodiscard]] std::string examination_as_text(const Examination &examination, const Style &style);

/// The same as a JSON object, for programs.
[[nodiscard]] Json as_json(const Examination &examination);

} // namespace kelmora_host

#endif
