#include "host/cli/input.h"

#include "host/cli/diagnostics.h"
#include "host/json.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>
#include <string_view>

namespace kelmora_host {

namespace {

std::string read_all(std::FILE *stream, const std::string &name)
{
    std::string text;
    std::array<char, 4096> chunk;
    while (const std::size_t size = std::fread(chunk.data(), 1, chunk.size(), stream))
        text.append(chunk.data(), size);
    if (std::ferror(stream) != 0)
        throw Failure(Status::environment, std::strerror(errno), name);
    return text;
}

bool starts_character(char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U; }

} // namespace

Input read_input(const std::string &file)
{
    if (file == "-")
        return {"<stdin>", read_all(stdin, "<stdin>")};
    const std::unique_ptr<std::FILE, decltype(&std::fclose)> stream(std::fopen(file.c_str(), "rb"), &std::fclose);
    if (!stream)
        throw Failure(Status::environment, std::strerror(errno), file);
    return {file, read_all(stream.get(), file)};
}

std::optional<Fault> find_nul(const std::string &text)
{
    const std::size_t nul = text.find('\0');
    if (nul == std::string::npos)
        return std::nullopt;
    const std::string_view before = std::string_view(text).substr(0, nul);
    const std::string_view line = before.substr(before.rfind('\n') + 1); // npos + 1 is 0
    return Fault{static_cast<int>(std::ranges::count(before, '\n')) + 1,
                 static_cast<int>(std::ranges::count_if(line, starts_character)) + 1, "NUL byte in the text"};
}

std::optional<Fault> find_parse_fault(const std::string &text)
{
    json_error_t error;
    if (Json(json_loadb(text.data(), text.size(), 0, &error)))
        return std::nullopt;
    // Column 0 is the end of the text right behind a line's end.
    return Fault{error.line, std::max(error.column, 1), error.text};
}

} // namespace kelmora_host
