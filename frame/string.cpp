#include "frame/string.h"

#include "kelmora_json.h"

#include <cstdlib>
#include <cstring>

namespace kelmora {

std::size_t field_length(const char *field, std::size_t width)
{
    const void *end = std::memchr(field, '\0', width);
    return end != nullptr ? static_cast<std::size_t>(static_cast<const char *>(end) - field) : width;
}

json_t *string_of(const char *string, std::size_t width)
{
    if (width == 0)
        return json_string("");
    if (std::memchr(string, '\0', width) != nullptr)
        return json_string(string);

    auto *cut = static_cast<char *>(std::malloc(width));
    if (cut == nullptr)
        return nullptr;
    std::memcpy(cut, string, width - 1);
    cut[width - 1] = '\0';
    json_t *value = json_string(cut);
    std::free(cut);
    return value;
}

namespace {

/// How many bytes follow a lead byte, and the first code point that may be written with them; 0 for no lead byte.
struct Sequence {
    unsigned continuations;
    unsigned first_code_point;
};

constexpr Sequence sequence_of(unsigned lead)
{
    if (lead >= 0xC2 && lead <= 0xDF)
        return {1, 0x80};
    if (lead >= 0xE0 && lead <= 0xEF)
        return {2, 0x800};
    if (lead >= 0xF0 && lead <= 0xF4)
        return {3, 0x10000};
    return {0, 0};
}

} // namespace

bool is_utf8(const char *bytes, std::size_t length)
{
    const char *const end = bytes + length;
    while (bytes != end) {
        const auto lead = static_cast<unsigned char>(*bytes++);
        if (lead < 0x80)
            continue;
        const Sequence sequence = sequence_of(lead);
        if (sequence.continuations == 0 || static_cast<std::size_t>(end - bytes) < sequence.continuations)
            return false;
        unsigned code_point = lead & (0x3FU >> sequence.continuations);
        for (unsigned i = 0; i < sequence.continuations; ++i) {
            const auto byte = static_cast<unsigned char>(*bytes++);
            if ((byte & 0xC0U) != 0x80)
                return false;
            code_point = code_point << 6U | (byte & 0x3FU);
        }
        const bool surrogate = code_point >= 0xD800 && code_point <= 0xDFFF;
        if (code_point < sequence.first_code_point || surrogate || code_point > 0x10FFFF)
            return false;
    }
    return true;
}

bool store_string(char *field, const char *source, std::size_t width)
{
    if (width == 0)
        return false;
    std::strncpy(field, source != nullptr ? source : "", width);
    const bool fitted = field[width - 1] == '\0';
    field[width - 1] = '\0';
    return fitted;
}

} // namespace kelmora

json_t *libkelmora_json_string(const char *text, size_t width)
{
    return text != nullptr ? kelmora::string_of(text, width) : nullptr;
}

int kelmora_strncpy(char *field, const char *source, size_t width)
{
    return kelmora::store_string(field, source, width) ? 1 : 0;
}
