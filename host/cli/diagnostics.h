#ifndef KELMORA_HOST_CLI_DIAGNOSTICS_H
#define KELMORA_HOST_CLI_DIAGNOSTICS_H

#include "host/contract/positions.h"

#include <stdexcept>
#include <string>
#include <string_view>

namespace kelmora_host {

/// The program as its messages call it.
inline constexpr std::string_view program_name = "kelmora-host";

/// How the program ends.
enum class Status { done = 0, rejected = 1, usage = 2, lossy = 3, environment = 4 };

/// "ABOUT: error: MESSAGE". about: the file concerned, with the place in it when that is known, or the program.
std::string error_line(std::string_view about, std::string_view message);

/// "ABOUT: warning: MESSAGE", with the same.
std::string warning_line(std::string_view message, std::string_view about = program_name);

/// "kelmora-host: note: MESSAGE".
std::string note_line(std::string_view message);

/// "FILE:LINE:COLUMN", which editors jump to.
std::string place_in(std::string_view file, const Position &position);

/// Why a command came to nothing, and how the program ends then; what() is the line for the user.
class Failure : public std::runtime_error {
public:
    Failure(Status status, std::string_view message, std::string_view about = program_name)
        : std::runtime_error(error_line(about, message)), status_(status), message_(message)
    {
    }

    [[nodiscard]] Status status() const { return status_; }

    /// What the line says, without what it is about.
    [[nodiscard]] const std::string &message() const { return message_; }

private:
    Status status_;
    std::string message_;
};

} // namespace kelmora_host

#endif
