#include "host/contract/learn_condition.h"

#include <algorithm>

namespace kelmora_host {

namespace {

/// The values of a key that is there.
std::vector<std::string> condition_values(const std::vector<Given> &values)
{
    std::vector<std::string> all;
    for (const Given &value : values) {
        if (value.kind != Given::Kind::absent)
            all.push_back(condition_value(value));
    }
    return all;
}

} // namespace

std::string condition_value(const Given &given)
{
    switch (given.kind) {
    case Given::Kind::integer:
        return std::to_string(given.integer);
    case Given::Kind::yes:
        return "true";
    case Given::Kind::no:
        return "false";
    default:
        return "null";
    }
}

std::optional<Condition> Split::condition(const std::string &path, const Given &other) const
{
    if (so.empty() || not_so.empty())
        return std::nullopt;
    if (condition_values(not_so).empty())
        return Condition{path, "", {}, false};
    if (condition_values(so).empty())
        return std::nullopt; // its absence alone
    if (std::ranges::find(so, other) != so.end())
        return Condition{path, "", condition_values(not_so), true};
    return Condition{path, "", condition_values(so), false};
}

} // namespace kelmora_host
