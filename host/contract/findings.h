#ifndef KELMORA_HOST_CONTRACT_FINDINGS_H
#define KELMORA_HOST_CONTRACT_FINDINGS_H

#include "host/contract/positions.h"
#include "host/gateway/node.h"
#include "host/gateway/resources.h"
#include "host/plugin/errors.h"
#include "host/plugin/registry.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kelmora_host {

enum class Severity { note, warning, error };

[[nodiscard]] std::string_view name_of(Severity severity);

/// What became of a part of a document otherwise than who sent it may expect.
struct Finding {
    std::string_view code; ///< "cut", "wrapped", ...: the list is in the program's manual
    Severity severity;
    std::string pointer;               ///< a JSON Pointer
    Position position;                 ///< of the value, or of the key where the key itself is what is wrong
    std::optional<std::string> sent;   ///< JSON text
    std::optional<std::string> stored; ///< JSON text; nothing where nothing was stored
    std::string message;               ///< in English, without an end
};

/// An error of the plug-in's, and where in the document its reason is: of an absent key the object that lacks it.
struct LocatedError {
    Error error;
    std::optional<std::string>
        pointer; ///< a JSON Pointer, the absent key included: "" for the whole; nothing when it is not known
    std::optional<Position> position; ///< nothing when it is not about a place in the text
    std::string detail;               ///< why a text is no document; else empty
    bool later = false;               ///< the plug-in reports it only once those before it are mended

    bool operator==(const LocatedError &) const = default;
};

enum class CheckResult { lossless, lossy, rejected };

[[nodiscard]] std::string_view name_of(CheckResult result);

/// What becomes of a document.
struct Check {
    CheckResult result;
    std::vector<LocatedError> errors;
    std::vector<Finding> findings; ///< in the order of the text
};

/// Has the plug-in read a text into a copy of the node's record, and finds what is lost. A text with a NUL byte is
/// rejected without asking the plug-in, and for a raw resource one of another size than raw_size.
/// The process must have host/plugin/interpose.cpp.
[[nodiscard]] Check check(const Resource &resource, const Registration &translators, const Node &node,
                          const std::string &text);

} // namespace kelmora_host

#endif
