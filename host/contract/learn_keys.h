#ifndef KELMORA_HOST_CONTRACT_LEARN_KEYS_H
#define KELMORA_HOST_CONTRACT_LEARN_KEYS_H

#include "host/contract/contract.h"
#include "host/contract/learn_probe.h"

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <vector>

namespace kelmora_host {

constexpr std::int64_t any_other = 1000; ///< the integer that stands for all that are not tried

/// A key that a from-translator looks for.
struct FoundKey {
    Given good;           ///< a value that is taken; absent where none is
    Answers home;         ///< the values of other keys with which it is looked at
    bool refused = false; ///< no value is taken
    bool boolean = false; ///< true and false are told apart, and nothing else
    HowUsed uses;         ///< how its value is used

    /// Whether it holds a value, and no members or elements.
    [[nodiscard]] bool is_leaf() const;
};

/// What the key takes, as its value is used.
[[nodiscard]] InputType type_of(const FoundKey &key);

/// Whether a value of this kind is of the type.
[[nodiscard]] bool is_of_type(Given::Kind kind, InputType type);

/// The values of a key that are tried one by one, where something may hang on them: both of a boolean, small integers
/// and one that stands for all others; none of other keys.
[[nodiscard]] std::vector<Given> values_of(const FoundKey &key);

/// The one of them that stands for all others.
[[nodiscard]] Given other_of(const FoundKey &key);

/// A good value, and another of its kind: false for true, else the number or its text.
[[nodiscard]] Given another_value(Given good, std::int64_t number);

/// The answers with one more, or another in its place.
[[nodiscard]] Answers with_answer(Answers answers, const std::string &path, const Given &given);

/// All keys of a from-translator, by their paths, and the documents that they make.
struct FoundKeys {
    std::map<std::string, FoundKey, std::less<>> all;

    /// By the parent's path (of the root ""): the paths of what is in it, in the order in which they are looked up.
    std::map<std::string, std::vector<std::string>, std::less<>> members;

    [[nodiscard]] const FoundKey &at(const std::string &path) const { return all.at(path); }
    [[nodiscard]] bool is_leaf(const std::string &path) const { return at(path).is_leaf(); }

    /// All paths, members and elements behind what they are in, else in the order in which they are looked up.
    [[nodiscard]] std::vector<std::string> ordered() const;

    /// All keys with values that are taken, but for some.
    [[nodiscard]] Answers document(const Answers &others = {}) const;

    /// The document in which a key is looked at.
    [[nodiscard]] Answers home_of(const std::string &path) const { return document(at(path).home); }

    /// The same with another value of the key, or without it.
    [[nodiscard]] Answers at_home(const std::string &path, const Given &given) const
    {
        return with_answer(home_of(path), path, given);
    }
};

/// Finds the keys: answers whatever is looked for, one key after the other, with a value that the plug-in takes, until
/// it looks for nothing new and takes the document; and then varies the values of each, which may lead to others.
[[nodiscard]] FoundKeys find_keys(const InputSubject &subject);

} // namespace kelmora_host

#endif
