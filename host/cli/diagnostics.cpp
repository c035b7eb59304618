#include "host/cli/diagnostics.h"

namespace kelmora_host {

std::string error_line(std::string_view about, std::string_view message)
{
    return std::string(about) + ": error: " + std::string(message);
}

std::string warning_line(std::string_view message, std::string_view about)
{
    return std::string(about) + ": warning: " + std::string(message);
}

} // namespace kelmora_host
