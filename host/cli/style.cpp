#include "host/cli/style.h"

#include <cstdlib>
#include <unistd.h>

namespace kelmora_host {

Style Style::of(int file_descriptor)
{
    const char *no_color = std::getenv("NO_COLOR");
    return Style(isatty(file_descriptor) == 1 && (no_color == nullptr || *no_color == '\0'));
}

} // namespace kelmora_host
