#ifndef KELMORA_HOST_CLI_USAGE_H
#define KELMORA_HOST_CLI_USAGE_H

#include <CLI/CLI.hpp>
#include <string>
#include <vector>

namespace kelmora_host {

/// What is wrong with a command line that the parser refused, as a line for the user, with the help that has the
/// answer. app: the parser after it threw `error`. arguments: what it was given, without the program.
[[nodiscard]] std::string usage_fault(const CLI::App &app, const CLI::ParseError &error,
                                      const std::vector<std::string> &arguments);

/// "; see kelmora-host COMMAND --help": where to read on about a command, or about the program as a whole.
[[nodiscard]] std::string see_help(const CLI::App *command = nullptr);

} // namespace kelmora_host

#endif
