#ifndef KELMORA_HOST_CLI_SERVE_H
#define KELMORA_HOST_CLI_SERVE_H

#include <iosfwd>
#include <optional>
#include <string>

namespace kelmora_host {

/// What the verb was given.
struct ServeArguments {
    int port = 8098;
    std::optional<std::string> state; ///< a folder of documents
    std::optional<std::string> cors_origin;
};

/// Serves the sample gateway until a signal ends it. The plug-in must be loaded. out: a line with the URL, once
/// requests are answered; err: what became of the folder's documents, and a line for each request. Throws Failure
/// (environment) when the port or the folder cannot be used.
void serve(const ServeArguments &given, std::ostream &out, std::ostream &err);

} // namespace kelmora_host

#endif
