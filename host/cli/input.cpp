#include "host/cli/input.h"

#include "host/cli/diagnostics.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>
#include <unistd.h>

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

} // namespace

InputText read_input(const std::string &file)
{
    if (file == "-" && isatty(STDIN_FILENO) == 1)
        std::fprintf(stderr, "kelmora-host: type the document, and end it with Ctrl-D\n");
    if (file == "-")
        return {"<stdin>", read_all(stdin, "<stdin>")};
    const std::unique_ptr<std::FILE, decltype(&std::fclose)> stream(std::fopen(file.c_str(), "rb"), &std::fclose);
    if (!stream)
        throw Failure(Status::environment, std::strerror(errno), file);
    return {file, read_all(stream.get(), file)};
}

} // namespace kelmora_host
