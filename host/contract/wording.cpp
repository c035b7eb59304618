#include "host/contract/wording.h"

#include "host/contract/key_tree.h"

#include <cstdint>
#include <fmt/format.h>
#include <fmt/ranges.h>

namespace kelmora_host {

namespace {

/// "a", "a or b", "a, b or c".
std::string alternatives(const std::vector<std::string> &words)
{
    std::string text;
    for (std::size_t i = 0; i < words.size(); ++i)
        text += (i == 0 ? "" : i + 1 == words.size() ? " or " : ", ") + words[i];
    return text;
}

std::string integers(unsigned bits, bool is_signed)
{
    if (bits == 0)
        return "";
    const std::uint64_t half = std::uint64_t{1} << (bits - 1);
    return is_signed ? fmt::format("-{}..{}", half, half - 1) : fmt::format("0..{}", half - 1 + half);
}

std::string bytes(std::size_t longest) { return fmt::format("up to {} byte{}", longest, longest == 1 ? "" : "s"); }

std::string elements(std::size_t least, const std::optional<std::size_t> &most)
{
    if (!most)
        return least == 0 ? "" : fmt::format("{} or more", least);
    return least == *most ? fmt::format("{}", least)
           : least == 0   ? fmt::format("up to {}", *most)
                          : fmt::format("{} to {}", least, *most);
}

std::string condition(const Condition &condition)
{
    std::string name(last_token(condition.path));
    if (!condition.field.empty())
        name = (name.empty() ? "" : name + " is absent and ") + "the stored " + condition.field;
    if (condition.values.empty())
        return name + " is there";
    return name + (condition.except ? " is not " : " is ") + alternatives(condition.values);
}

std::string conditions(const std::vector<Condition> &all)
{
    std::vector<std::string> words;
    words.reserve(all.size());
    for (const Condition &each : all)
        words.push_back(condition(each));
    return "when " + alternatives(words);
}

} // namespace

std::string_view type_of(const InputKey &key)
{
    return key.type == InputType::array ? "list" : key.type == InputType::text ? "object or list" : name_of(key.type);
}

std::string types_of(const OutputKey &key)
{
    std::vector<std::string> names;
    for (const OutputType type : key.types)
        names.emplace_back(type == OutputType::array ? "list" : name_of(type));
    return alternatives(names);
}

std::string range_of(const InputKey &key)
{
    if (key.longest)
        return bytes(*key.longest);
    if (key.most || key.least != 0)
        return elements(key.least, key.most);
    return integers(key.bits, key.is_signed);
}

std::string range_of(const OutputKey &key)
{
    // Of a key of several types there is one of each.
    std::vector<std::string> ranges;
    if (key.bits != 0)
        ranges.push_back(integers(key.bits, key.is_signed));
    if (key.longest)
        ranges.push_back(*key.longest == 0 ? "empty" : bytes(*key.longest));
    if (key.most)
        ranges.push_back(elements(0, key.most));
    return ranges.empty() ? "" : alternatives(ranges);
}

std::string required_of(const InputKey &key, const Input &input)
{
    if (key.refused)
        return "refused";
    if (key.at_least_one != 0) {
        std::vector<std::string> names;
        for (const InputKey &each : input.keys) {
            if (each.at_least_one == key.at_least_one)
                names.emplace_back(last_token(each.path));
        }
        return "at least " + alternatives(names);
    }
    if (!key.required_when.empty())
        return conditions(key.required_when);
    return key.required ? "yes" : "no";
}

std::string looked_at_of(const InputKey &key)
{
    return key.looked_at_when.empty() ? "" : conditions(key.looked_at_when);
}

std::string others_of(const InputKey &key)
{
    std::vector<std::string> names;
    for (const std::string &path : key.only_with)
        names.emplace_back(last_token(path));
    return fmt::format("{}", fmt::join(names, " and "));
}

std::string presence_of(const OutputKey &key)
{
    if (key.always)
        return "always";
    return key.when.empty() ? "sometimes" : conditions(key.when);
}

std::string effect_of(const InputKey &key)
{
    switch (key.effect) {
    case ListEffect::none:
        return "";
    case ListEffect::replaces:
        return key.empty_keeps ? "the new ones replace those that were there; an empty list changes nothing"
                               : "the new ones replace those that were there";
    case ListEffect::appends:
        return "the new ones go behind those that were there";
    case ListEffect::prepends:
        return "each new one goes in front of those that were there";
    case ListEffect::keeps_first:
        return "the first that was there stays, the new ones go behind it, the others are let go";
    case ListEffect::overwrites:
        break;
    }
    return "the new ones are written over the first of those that were there; the others stay";
}

std::string fields_of(const std::vector<KeyField> &fields)
{
    std::string text;
    for (const KeyField &field : fields)
        text += (text.empty() ? "" : ", ") + field.path;
    return text;
}

std::string_view meaning_of(const InputKey &key) { return key.fields.empty() ? "" : key.fields.front().meaning; }

std::string_view meaning_of(const OutputKey &key)
{
    if (key.id)
        return "the record's identifier";
    return key.fields.empty() ? "" : key.fields.front().meaning;
}

} // namespace kelmora_host
