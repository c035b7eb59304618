#include "host/names.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace kelmora_host {

namespace {

bool contains(std::string_view name, std::string_view part)
{
    return part.size() >= 3 && name.find(part) != std::string_view::npos; // one or two letters are in many names
}

} // namespace

std::string in_quotes(std::string_view name) { return std::string("\"").append(name).append("\""); }

std::string in_small_letters(std::string_view text)
{
    std::string small(text);
    std::ranges::transform(small, small.begin(), [](char letter) {
        return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
    });
    return small;
}

std::string enumeration(const std::vector<std::string> &names, std::string_view last)
{
    std::string text;
    for (std::size_t i = 0; i < names.size(); ++i) {
        if (i > 0 && i + 1 < names.size())
            text.append(", ");
        else if (i > 0)
            text.append(" ").append(last).append(" ");
        text.append(names[i]);
    }
    return text;
}

std::size_t edit_distance(std::string_view a, std::string_view b)
{
    // rows[i][j]: the distance of the first i letters of a from the first j of b.
    std::vector<std::vector<std::size_t>> rows(a.size() + 1, std::vector<std::size_t>(b.size() + 1));
    for (std::size_t i = 0; i <= a.size(); ++i) {
        for (std::size_t j = 0; j <= b.size(); ++j) {
            if (i == 0 || j == 0) {
                rows[i][j] = i + j;
                continue;
            }
            rows[i][j] = std::min(
                {rows[i - 1][j] + 1, rows[i][j - 1] + 1, rows[i - 1][j - 1] + (a[i - 1] == b[j - 1] ? 0U : 1U)});
            if (i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1])
                rows[i][j] = std::min(rows[i][j], rows[i - 2][j - 2] + 1);
        }
    }
    return rows[a.size()][b.size()];
}

std::vector<std::string> similar_names(std::string_view name, const std::vector<std::string> &names)
{
    const std::string given = in_small_letters(name);
    std::vector<std::pair<std::size_t, std::string>> found;
    for (const std::string &candidate : names) {
        const std::string other = in_small_letters(candidate);
        const std::size_t distance = edit_distance(given, other);
        if (distance * 3 < std::max(given.size(), other.size()) || contains(other, given) || contains(given, other))
            found.emplace_back(distance, candidate);
    }
    std::ranges::stable_sort(found, {}, &std::pair<std::size_t, std::string>::first);
    std::vector<std::string> similar;
    std::ranges::transform(found, std::back_inserter(similar), &std::pair<std::size_t, std::string>::second);
    return similar;
}

} // namespace kelmora_host
