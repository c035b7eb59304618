#ifndef KELMORA_HOST_CONTRACT_FINDINGS_JSON_H
#define KELMORA_HOST_CONTRACT_FINDINGS_JSON_H

#include "host/contract/findings.h"
#include "host/json.h"

#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace kelmora_host {

// What becomes of a document, for programs.

/// A document as messages and programs are told of it.
struct CheckedFile {
    std::string file; ///< as it was named, or "<stdin>"; empty when it has no name
    std::string_view resource;
    Check check;
    std::optional<std::string> record; ///< as JSON text, where the record is told as well; empty when there is none
    bool raw = false;                  ///< the record is a raw resource's, and no JSON
};

/// What the plug-in wrote is no JSON; what() has it.
class UnreadableRecord : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// The key that an error is about, where its field is another one; else empty.
[[nodiscard]] std::string other_key(const LocatedError &located);

/// All that is known of the document as a JSON object. Throws UnreadableRecord.
[[nodiscard]] Json as_json(const CheckedFile &checked);

/// The errors as a JSON array, which is the caller's.
[[nodiscard]] json_t *errors_as_json(const std::vector<LocatedError> &errors);

/// The findings as a JSON array, which is the caller's.
[[nodiscard]] json_t *findings_as_json(const std::vector<Finding> &findings);

/// The record as the plug-in wrote it, or of a raw one its bytes in hexadecimal as a string; null when it is empty. It
/// is the caller's. Throws UnreadableRecord.
[[nodiscard]] json_t *record_as_json(const std::string &record, bool raw);

} // namespace kelmora_host

#endif
