#include "host/contract/syntax.h"

#include "host/json.h"

#include <algorithm>
#include <string_view>

namespace kelmora_host {

namespace {

bool starts_character(char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U; }

} // namespace

std::optional<SyntaxError> find_nul_byte(const std::string &text)
{
    const std::size_t nul = text.find('\0');
    if (nul == std::string::npos)
        return std::nullopt;
    const std::string_view before = std::string_view(text).substr(0, nul);
    const std::string_view line = before.substr(before.rfind('\n') + 1); // npos + 1 is 0
    return SyntaxError{{static_cast<std::uint32_t>(std::ranges::count(before, '\n')) + 1,
                        static_cast<std::uint32_t>(std::ranges::count_if(line, starts_character)) + 1},
                       "NUL byte in the text"};
}

std::optional<SyntaxError> find_syntax_error(const std::string &text)
{
    json_error_t error;
    if (Json(json_loadb(text.data(), text.size(), 0, &error)))
        return std::nullopt;
    // Column 0 is the end of the text right behind a line's end.
    return SyntaxError{{static_cast<std::uint32_t>(error.line), static_cast<std::uint32_t>(std::max(error.column, 1))},
                       error.text};
}

} // namespace kelmora_host
