#include "host/contract/key_tree.h"

namespace kelmora_host {

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

} // namespace kelmora_host
