#include "host/contract/learn_keys.h"

#include "host/contract/pointer.h"

#include <algorithm>
#include <array>

namespace kelmora_host {

namespace {

using Kind = Given::Kind;

constexpr std::size_t most_tried = 20; ///< lists of 0 up to so many elements are tried, until one is taken

class KeyFinder {
public:
    explicit KeyFinder(const InputSubject &subject) : subject_(subject) {}

    /// The keys, which the finder then has no more.
    FoundKeys find()
    {
        settle({});
        refit();
        for (std::size_t i = 0; i < found_.size(); ++i) {
            const std::string path = found_[i];
            for (const Given &value : values_of(keys_.at(path))) {
                Answers home = keys_.at(path).home;
                home[path] = value;
                if (!first_unknown(ask(home)).empty())
                    settle(home);
            }
        }
        refit();
        return std::move(keys_);
    }

private:
    /// The document with these answers, into the blank record.
    [[nodiscard]] Probe ask(const Answers &others) const
    {
        return subject_.prober.probe(keys_.document(others), subject_.blank);
    }

    /// Finds a value for each key that is looked for with these answers, one after the other.
    void settle(const Answers &home)
    {
        for (;;) {
            Probe probe = ask(home);
            take_order(probe);
            auto unknown = first_unknown(probe);
            if (unknown.empty()) {
                const Probe poisoned = subject_.prober.probe(keys_.document(home), subject_.poisoned);
                take_order(poisoned);
                unknown = first_unknown(poisoned);
            }
            if (!unknown.empty()) {
                add(unknown, home);
            } else if (probe.accepted || !resize(home)) {
                break;
            }
        }
    }

    /// The first path that was looked up and is not yet known; empty when there is none.
    [[nodiscard]] std::string first_unknown(const Probe &probe) const
    {
        const auto unknown =
            std::ranges::find_if(probe.looked, [this](const std::string &path) { return !keys_.all.contains(path); });
        return unknown != probe.looked.end() ? *unknown : std::string();
    }

    /// home: the answers with which the key was looked for.
    void add(const std::string &path, const Answers &home)
    {
        FoundKey known;
        known.home = home;
        fit(path, known);
        keys_.all[path] = known;
        found_.push_back(path);
    }

    /// Finds a value that the plug-in takes for a key.
    void fit(const std::string &path, FoundKey &known) const
    {
        static const std::array tried{given_string("1"),        given_integer(1), Given{.kind = Kind::real},
                                      Given{.kind = Kind::yes}, given_array(2),   Given{.kind = Kind::object}};
        known.uses = {};
        std::vector<Given> taken;
        for (const Given &given : tried) {
            const Probe probe =
                subject_.prober.probe(with_answer(keys_.document(known.home), path, given), subject_.blank);
            if (const auto uses = probe.uses.find(path); uses != probe.uses.end())
                known.uses = uses->second;
            const HowUsed &uses = known.uses;
            known.good = uses.array                    ? given_array(2)
                         : uses.object                 ? Given{.kind = Kind::object}
                         : uses.text                   ? Given{.kind = Kind::object}
                         : uses.real                   ? Given{.kind = Kind::real}
                         : uses.integer || uses.number ? given_integer(1)
                         : uses.string                 ? given_string("1")
                                                       : Given{};
            if (known.good.kind != Kind::absent)
                return;
            if (probe.accepted || probe.culprit != path)
                taken.push_back(given);
        }
        known.refused = taken.empty();
        known.boolean = taken.size() == 1;
        known.good.kind = taken.empty() ? Kind::absent : Kind::yes;
    }

    /// What seemed to be looked at alone may be used once the keys behind it are there.
    void refit()
    {
        for (auto &[path, known] : keys_.all) {
            if (known.good.kind != Kind::yes || known.boolean)
                continue;
            fit(path, known);
            if (known.good.kind == Kind::yes)
                known.boolean = matters(path, {.kind = Kind::yes}, {.kind = Kind::no});
        }
    }

    /// Whether it makes a difference which of two values a key has.
    [[nodiscard]] bool matters(const std::string &path, const Given &one, const Given &two) const
    {
        for (const Record *record : {&subject_.blank, &subject_.poisoned}) {
            const Probe first = subject_.prober.probe(keys_.at_home(path, one), *record, true);
            const Probe second = subject_.prober.probe(keys_.at_home(path, two), *record, true);
            if (first.looked != second.looked || first.accepted != second.accepted || !first.image->same(*second.image))
                return true;
        }
        return false;
    }

    /// Tries lists of other lengths until the document is taken.
    bool resize(const Answers &home)
    {
        const std::string culprit = ask(home).culprit;
        for (auto &[path, known] : keys_.all) {
            if (known.good.kind != Kind::array)
                continue;
            for (std::size_t size = 0; size <= most_tried; ++size) {
                Answers tried = home;
                tried[path] = given_array(size);
                const Probe probe = ask(tried);
                if (probe.accepted || probe.culprit != culprit) {
                    if (size == known.good.size)
                        break;
                    known.good = given_array(size);
                    return true;
                }
            }
        }
        return false;
    }

    /// Puts what is looked up for the first time behind the sibling that was looked up before.
    void take_order(const Probe &probe)
    {
        std::map<std::string, std::string> before; // by parent, the sibling looked up before
        for (const std::string &path : probe.looked) {
            const std::string parent = parent_of(path);
            std::vector<std::string> &siblings = keys_.members[parent];
            if (std::ranges::find(siblings, path) == siblings.end()) {
                const auto previous = std::ranges::find(siblings, before[parent]);
                siblings.insert(previous == siblings.end() ? (before[parent].empty() ? siblings.begin() : previous)
                                                           : previous + 1,
                                path);
            }
            before[parent] = path;
        }
    }

    const InputSubject &subject_;
    FoundKeys keys_;
    std::vector<std::string> found_; // in the order in which they were found
};

} // namespace

bool FoundKey::is_leaf() const
{
    return good.kind != Kind::array && good.kind != Kind::object && good.kind != Kind::absent;
}

InputType type_of(const FoundKey &key)
{
    const HowUsed &uses = key.uses;
    return uses.array     ? InputType::array
           : uses.object  ? InputType::object
           : uses.text    ? InputType::text
           : uses.real    ? InputType::real
           : uses.integer ? InputType::integer
           : uses.number  ? InputType::number
           : uses.string  ? InputType::string
           : key.boolean  ? InputType::boolean
                          : InputType::any;
}

bool is_of_type(Kind kind, InputType type)
{
    switch (type) {
    case InputType::boolean:
        return kind == Kind::yes || kind == Kind::no;
    case InputType::integer:
        return kind == Kind::integer;
    case InputType::real:
        return kind == Kind::real;
    case InputType::number:
        return kind == Kind::integer || kind == Kind::real;
    case InputType::string:
        return kind == Kind::string;
    case InputType::object:
        return kind == Kind::object;
    case InputType::array:
        return kind == Kind::array;
    case InputType::text:
        return kind == Kind::object || kind == Kind::array;
    case InputType::any:
        return true;
    }
    return true;
}

std::vector<Given> values_of(const FoundKey &key)
{
    std::vector<Given> values;
    if (key.good.kind == Kind::yes) {
        values = {{.kind = Kind::yes}, {.kind = Kind::no}};
    } else if (key.good.kind == Kind::integer) {
        for (std::int64_t value = 0; value <= most_varied; ++value)
            values.push_back(given_integer(value));
        values.push_back(given_integer(any_other));
    }
    return values;
}

Given other_of(const FoundKey &key)
{
    return key.good.kind == Kind::yes ? Given{.kind = Kind::no} : given_integer(any_other);
}

Given another_value(Given good, std::int64_t number)
{
    good.kind = good.kind == Kind::yes ? Kind::no : good.kind;
    good.integer = number;
    good.string = std::to_string(number);
    return good;
}

Answers with_answer(Answers answers, const std::string &path, const Given &given)
{
    answers[path] = given;
    return answers;
}

std::vector<std::string> FoundKeys::ordered() const
{
    std::vector<std::string> paths;
    const std::function<void(const std::string &)> add_members = [&](const std::string &parent) {
        const auto found = members.find(parent);
        if (found == members.end())
            return;
        for (const std::string &path : found->second) {
            paths.push_back(path);
            add_members(path);
        }
    };
    add_members("");
    return paths;
}

Answers FoundKeys::document(const Answers &others) const
{
    Answers answers;
    for (const auto &[path, key] : all) {
        if (key.good.kind != Kind::absent)
            answers.emplace_hint(answers.end(), path, key.good);
    }
    for (const auto &[path, given] : others)
        answers[path] = given;
    return answers;
}

FoundKeys find_keys(const InputSubject &subject) { return KeyFinder(subject).find(); }

} // namespace kelmora_host
