#include "host/contract/learn_key_fields.h"

#include "host/contract/learn_records.h"
#include "host/contract/pointer.h"
#include "host/gateway/blank.h"

#include <algorithm>
#include <utility>

namespace kelmora_host {

namespace {

using Kind = Given::Kind;

} // namespace

/// The document with this key, and without the others that need not be there.
Answers KeyFieldLearner::alone(const std::string &path) const
{
    Answers answers = keys_.home_of(path);
    for (const auto &[other, known] : keys_.all) {
        const bool has_value = keys_.is_leaf(other) || known.uses.text;
        if (other != path && has_value && !is_element(other) && needs_.is_optional(other) && !is_within(path, other))
            answers[other] = {};
    }
    return answers;
}

/// The fields that differ when a key has one value or another in the document. looked_same: nothing when the plug-in
/// looks for other keys then.
std::vector<KeyField> KeyFieldLearner::compare(const Answers &answers, const std::string &path, const Given &one,
                                               const Given &two, bool looked_same) const
{
    for (const Record *record : {&subject_.poisoned, &subject_.blank}) {
        const Probe first = subject_.prober.probe(with_answer(answers, path, one), *record, true);
        const Probe second = subject_.prober.probe(with_answer(answers, path, two), *record, true);
        if (!first.accepted || !second.accepted || (looked_same && first.looked != second.looked))
            continue;
        std::vector<KeyField> fields = differing_fields(*first.image, *second.image, path);
        if (!fields.empty())
            return fields;
    }
    return {};
}

std::vector<KeyField> KeyFieldLearner::fields_between(const std::string &path, const Given &one, const Given &two) const
{
    return compare(keys_.home_of(path), path, one, two, true);
}

void KeyFieldLearner::learn_fields(InputKey &key) const
{
    const std::string &path = key.path;
    const Given &good = keys_.at(path).good;
    std::vector<std::pair<Given, Given>> pairs;
    switch (good.kind) {
    case Kind::yes:
        pairs = {{{.kind = Kind::yes}, {.kind = Kind::no}}};
        break;
    case Kind::integer:
        pairs = {{given_integer(1), given_integer(0)},
                 {given_integer(1), given_integer(2)},
                 {given_integer(3), given_integer(4)}};
        break;
    case Kind::real:
        pairs = {{{.kind = Kind::real, .real = 1}, {.kind = Kind::real, .real = 2}}};
        break;
    default:
        pairs = {{given_string("1"), given_string("2")}};
        break;
    }
    if (key.type == InputType::text)
        pairs = {{{.kind = Kind::object}, given_array(1)}};
    for (const auto &[one, two] : pairs) {
        if (key.fields.empty())
            key.fields = fields_between(path, one, two);
    }
    for (const auto &[one, two] : pairs) {
        if (key.fields.empty())
            key.fields = compare(alone(path), path, one, two, false);
    }
}

void KeyFieldLearner::learn_only_with(InputKey &key) const
{
    if (key.fields.empty() || key.type == InputType::any)
        return;
    const std::string parent = parent_of(key.path);
    std::vector<std::string> siblings;
    Answers answers = keys_.home_of(key.path);
    for (const std::string &sibling : keys_.members.at(parent)) {
        if (sibling != key.path && keys_.is_leaf(sibling) && needs_.is_optional(sibling)) {
            siblings.push_back(sibling);
            answers[sibling] = {};
        }
    }
    if (siblings.empty() || is_stored(key, answers))
        return;
    for (const std::string &sibling : siblings) {
        Answers without = keys_.home_of(key.path);
        without[sibling] = {};
        if (!is_stored(key, without))
            key.only_with.push_back(sibling);
    }
}

/// Whether a key's field differs from what it was.
bool KeyFieldLearner::is_stored(const InputKey &key, const Answers &answers) const
{
    const KeyField &field = key.fields.front();
    const Given one = keys_.at(key.path).good;
    Given two = one;
    two.kind = one.kind == Kind::yes ? Kind::no : one.kind;
    two.integer = 0;
    two.real = 5;
    two.string.assign(1, '2');
    const auto stored = [&](const Given &given) {
        const Probe probe = subject_.prober.probe(with_answer(answers, key.path, given), subject_.poisoned, true);
        return bytes_of(*probe.image, field);
    };
    const std::string first = stored(one);
    return first != stored(two) || first.find_first_not_of(static_cast<char>(poisoned_byte)) != std::string::npos;
}

void KeyFieldLearner::learn_also_sets(InputKey &key) const
{
    if (!needs_.is_optional(key.path) || is_element(key.path) || key.type == InputType::any || key.fields.empty())
        return;
    const Answers answers = alone(key.path);
    const Probe absent = subject_.prober.probe(with_answer(answers, key.path, {}), subject_.poisoned, true);
    const Probe there = subject_.prober.probe(answers, subject_.poisoned, true);
    if (!absent.accepted || !there.accepted || !absent.image->same_shape(*there.image))
        return;
    for (KeyField &field : differing_fields(*absent.image, *there.image, key.path)) {
        if (std::ranges::find(key.fields, field.path, &KeyField::path) == key.fields.end())
            key.also_sets.push_back(std::move(field));
    }
}

void KeyFieldLearner::learn_absence(InputKey &key) const
{
    if (key.required)
        return;
    const Answers answers = keys_.at_home(key.path, {});
    const Probe absent = subject_.prober.probe(answers, subject_.poisoned, true);
    const Probe there = subject_.prober.probe(keys_.home_of(key.path), subject_.poisoned, true);
    key.marked_when_absent = absent.accepted && absent.missing.size() > there.missing.size();
    if (keys_.is_leaf(key.path) && !key.fields.empty() && absent.accepted &&
        is_cleared(*absent.image, key.fields.front())) {
        // What is cleared because another key is there is that key's doing.
        const Probe neither =
            subject_.prober.probe(with_answer(alone(key.path), key.path, {}), subject_.poisoned, true);
        key.cleared_when_absent = !bytes_of(*absent.image, key.fields.front()).empty() &&
                                  (!neither.accepted || is_cleared(*neither.image, key.fields.front()));
    }
}

} // namespace kelmora_host
