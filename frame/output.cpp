#include "frame/output.h"

#include "kelmora_json.h"

#include <cstdlib>
#include <cstring>

namespace kelmora {

bool make_room(char **out, std::size_t length)
{
    if (length < smallest_buffer)
        return true;
    auto *grown = static_cast<char *>(std::realloc(*out, length + 1));
    if (grown == nullptr)
        return false;
    *out = grown;
    return true;
}

bool hand_over(const char *text, char **out)
{
    if (text == nullptr)
        return false;
    const std::size_t length = std::strlen(text);
    if (!make_room(out, length))
        return false;
    std::memcpy(*out, text, length + 1);
    return true;
}

} // namespace kelmora

uintptr_t libkelmora_json_check_data_size(const char *text, char **out)
{
    const std::size_t length = std::strlen(text);
    if (!kelmora::make_room(out, length))
        return 0;
    return length < kelmora::smallest_buffer ? length : reinterpret_cast<uintptr_t>(*out);
}
