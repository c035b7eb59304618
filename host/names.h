#ifndef KELMORA_HOST_NAMES_H
#define KELMORA_HOST_NAMES_H

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace kelmora_host {

/// "a", "a and b", "a, b and c"; empty without names. last: the word before the last one.
[[nodiscard]] std::string enumeration(const std::vector<std::string> &names, std::string_view last = "and");

/// "name" with its quotes.
[[nodiscard]] std::string in_quotes(std::string_view name);

/// "SSID" as "ssid": of the letters of ASCII.
[[nodiscard]] std::string in_small_letters(std::string_view text);

/// How many letters must be added, taken away, replaced or exchanged with their neighbours to make one name the other.
[[nodiscard]] std::size_t edit_distance(std::string_view a, std::string_view b);

/// Those of the names that somebody who gave this one may have meant, the nearest first: less than a third of the
/// letters differ, capitals not counted, or one name contains the other.
[[nodiscard]] std::vector<std::string> similar_names(std::string_view name, const std::vector<std::string> &names);

} // namespace kelmora_host

#endif
