#ifndef KELMORA_HOST_HEXADECIMAL_H
#define KELMORA_HOST_HEXADECIMAL_H

#include <string>
#include <string_view>

namespace kelmora_host {

/// The bytes with two digits each, "007fff"; separator: between them.
[[nodiscard]] std::string hexadecimal(std::string_view bytes, std::string_view separator = "");

} // namespace kelmora_host

#endif
