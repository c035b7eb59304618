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

std::string note_line(std::string_view message)
{
    return std::string(program_name) + ": note: " + std::string(message);
}

std::string place_in(std::string_view file, const Position &position)
{
    return std::string(file) + ":" + std::to_string(position.line) + ":" + std::to_string(position.column);
}

} // namespace kelmora_host
