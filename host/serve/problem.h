#ifndef KELMORA_HOST_SERVE_PROBLEM_H
#define KELMORA_HOST_SERVE_PROBLEM_H

#include "host/contract/findings.h"
#include "host/serve/http.h"

#include <string_view>

namespace kelmora_host {

// Errors as problem documents (RFC 9457): application/problem+json.

/// A problem of which the status says all but the detail.
[[nodiscard]] Answer problem(int status, std::string_view detail);

/// A document that was not stored: its errors, with the plug-in's triples, and its findings. The status is 422, the
/// type "urn:kelmora-host:rejected" where the plug-in does not take it, else "urn:kelmora-host:lossy".
[[nodiscard]] Answer document_problem(const Check &check, std::string_view detail);

} // namespace kelmora_host

#endif
