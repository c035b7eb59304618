#include "host/contract/pointer.h"

namespace kelmora_host {

std::string escaped_token(std::string_view key)
{
    std::string token;
    for (const char c : key)
        token += c == '~' ? "~0" : c == '/' ? "~1" : std::string(1, c);
    return token;
}

std::vector<std::string> tokens_of(std::string_view pointer)
{
    std::vector<std::string> tokens;
    for (std::size_t i = 0; i < pointer.size(); ++i) {
        if (pointer[i] == '/') {
            tokens.emplace_back();
        } else if (pointer[i] == '~' && i + 1 < pointer.size()) {
            tokens.back() += pointer[++i] == '1' ? '/' : '~';
        } else {
            tokens.back() += pointer[i];
        }
    }
    return tokens;
}

std::string_view last_token(std::string_view pointer) { return pointer.substr(pointer.rfind('/') + 1); }

std::string parent_of(std::string_view pointer) { return std::string(pointer.substr(0, pointer.rfind('/'))); }

bool is_element(std::string_view pointer) { return pointer.ends_with("/*"); }

bool is_within(std::string_view pointer, std::string_view ancestor)
{
    return pointer.size() > ancestor.size() && pointer.starts_with(ancestor) && pointer[ancestor.size()] == '/';
}

} // namespace kelmora_host
