#include "host/hexadecimal.h"

namespace kelmora_host {

std::string hexadecimal(std::string_view bytes, std::string_view separator)
{
    constexpr std::string_view digits = "0123456789abcdef";
    std::string text;
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        if (!text.empty())
            text += separator;
        text += digits[byte >> 4U];
        text += digits[byte & 0xFU];
    }
    return text;
}

} // namespace kelmora_host
