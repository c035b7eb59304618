#ifndef KELMORA_HOST_CLI_CLI_H
#define KELMORA_HOST_CLI_CLI_H

#include <iosfwd>

namespace kelmora_host {

/// The command line program: does what the arguments say and returns the exit status. out: data; err: messages.
int run(int argc, const char *const *argv, std::ostream &out, std::ostream &err);

} // namespace kelmora_host

#endif
