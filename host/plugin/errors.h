#ifndef KELMORA_HOST_PLUGIN_ERRORS_H
#define KELMORA_HOST_PLUGIN_ERRORS_H

#include <string>
#include <vector>

namespace kelmora_host {

/// One error as a translator reported it.
struct Error {
    std::string field;
    std::string message;
    std::string source;

    bool operator==(const Error &) const = default;
};

} // namespace kelmora_host

/// A request's errors, in the order in which they were reported.
struct kelmora_errorlist {
    std::vector<kelmora_host::Error> errors;
};

#endif
