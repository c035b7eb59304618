#include "host/json.h"

#include <cstdlib>
#include <new>

namespace kelmora_host {

std::string to_text(const Json &value)
{
    const std::unique_ptr<char, decltype(&std::free)> text(json_dumps(value.get(), JSON_ENCODE_ANY), &std::free);
    if (!text)
        throw std::bad_alloc();
    return text.get();
}

} // namespace kelmora_host
