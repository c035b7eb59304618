#ifndef KELMORA_HOST_CONTRACT_LATER_ERRORS_H
#define KELMORA_HOST_CONTRACT_LATER_ERRORS_H

#include "host/gateway/record.h"
#include "host/gateway/resources.h"
#include "host/plugin/errors.h"
#include "host/plugin/registry.h"

#include <string>
#include <vector>

namespace kelmora_host {

/// An error that the plug-in reports of a rejected document once those before it are mended.
struct LaterError {
    Error error;
    std::string pointer; ///< a JSON Pointer of what it is about, which may be absent

    bool operator==(const LaterError &) const = default;
};

/// So many are found at most: who mends a hundred will ask again.
inline constexpr std::size_t most_later_errors = 100;

/// The errors of a document behind its first one, in the order in which they would come one at a time. Found by mending
/// one after the other, that is by giving the plug-in something else for what an error is about until it reports
/// another one. What is looked for only because of a value that was given so is not told: it is the sender's choice.
/// text: an object that the plug-in rejects. The process must have host/plugin/interpose.cpp.
[[nodiscard]] std::vector<LaterError> later_errors(const Resource &resource, const Registration &translators,
                                                   const Record &record, const std::string &text);

} // namespace kelmora_host

#endif
