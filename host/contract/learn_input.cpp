#include "host/contract/learn_input.h"

#include "host/contract/learn_probe.h"
#include "host/contract/learn_records.h"
#include "host/gateway/blank.h"

#include <algorithm>
#include <array>
#include <functional>
#include <limits>
#include <map>
#include <set>

namespace kelmora_host {

namespace {

using Kind = Given::Kind;

/// All kinds but absence, for the tries of other types.
constexpr std::array all_kinds{Kind::null, Kind::no,     Kind::yes,   Kind::integer,
                               Kind::real, Kind::string, Kind::array, Kind::object};

constexpr std::int64_t any_other = 1000;   ///< stands for all others
constexpr std::size_t most_elements = 20;  ///< lists of 0 up to so many elements are tried
constexpr std::size_t many_elements = 300; ///< and one of so many
constexpr std::size_t long_string = 70000; ///< bytes
constexpr std::size_t entries_before = 3;  ///< of a list that there is already

std::string parent_of(std::string_view path) { return std::string(path.substr(0, path.rfind('/'))); }

bool is_element(std::string_view path) { return path.ends_with("/*"); }

bool is_within(std::string_view path, std::string_view ancestor)
{
    return path.size() > ancestor.size() && path.starts_with(ancestor) && path[ancestor.size()] == '/';
}

Given given_integer(std::int64_t value) { return {.kind = Kind::integer, .integer = value}; }
Given given_string(std::string value) { return {.kind = Kind::string, .string = std::move(value)}; }
Given given_array(std::size_t size) { return {.kind = Kind::array, .size = size}; }

/// A value as it stands in a condition.
std::string json_of(const Given &given)
{
    switch (given.kind) {
    case Kind::integer:
        return std::to_string(given.integer);
    case Kind::yes:
        return "true";
    case Kind::no:
        return "false";
    default:
        return "null";
    }
}

/// With which values of one key something is so, and with which it is not.
struct Split {
    std::vector<Given> so;
    std::vector<Given> not_so;

    [[nodiscard]] static bool has(const std::vector<Given> &values, const Given &value)
    {
        return std::ranges::find(values, value) != values.end();
    }

    /// As a condition; nothing when the value does not matter. other: the value that stands for all others.
    [[nodiscard]] std::optional<Condition> condition(const std::string &path, const Given &other) const
    {
        const auto texts = [](const std::vector<Given> &values) {
            std::vector<std::string> all;
            for (const Given &value : values) {
                if (value.kind != Kind::absent)
                    all.push_back(json_of(value));
            }
            return all;
        };
        if (so.empty() || not_so.empty())
            return std::nullopt;
        if (texts(not_so).empty())
            return Condition{path, "", {}, false};
        if (texts(so).empty())
            return std::nullopt; // its absence alone
        if (has(so, other))
            return Condition{path, "", texts(not_so), true};
        return Condition{path, "", texts(so), false};
    }
};

/// A key as far as it is known.
struct Known {
    Given good;   ///< a value that is taken
    Answers home; ///< the values of other keys with which it is looked at
    bool refused = false;
    bool boolean = false;
    HowUsed uses;
};

class InputLearner {
public:
    InputLearner(const Resource &resource, const Registration &translators)
        : type_(*record_type(resource.name)), prober_(resource, translators), blank_(blank_record(resource)),
          poisoned_(poisoned_record(resource))
    {
    }

    Input learn()
    {
        explore();
        find_courses();
        find_required();
        Input input;
        for (const std::string &path : ordered())
            input.keys.push_back(describe(path));
        find_groups(input.keys);
        return input;
    }

private:
    // ---- finding the keys

    void explore()
    {
        settle({});
        refit();
        for (std::size_t i = 0; i < found_.size(); ++i) {
            const std::string path = found_[i];
            for (const Given &value : values_of(path)) {
                Answers home = known_.at(path).home;
                home[path] = value;
                const Probe probe = ask(home);
                if (!std::ranges::all_of(probe.looked,
                                         [this](const std::string &each) { return known_.contains(each); }))
                    settle(home);
            }
        }
        refit();
    }

    /// The values of a key that are tried one by one.
    [[nodiscard]] std::vector<Given> values_of(const std::string &path) const
    {
        const Known &known = known_.at(path);
        std::vector<Given> values;
        if (known.good.kind == Kind::yes) {
            values = {{.kind = Kind::yes}, {.kind = Kind::no}};
        } else if (known.good.kind == Kind::integer) {
            for (std::int64_t value = 0; value <= most_varied; ++value)
                values.push_back(given_integer(value));
            values.push_back(given_integer(any_other));
        }
        return values;
    }

    [[nodiscard]] static Given other_of(const Given &good)
    {
        return good.kind == Kind::yes ? Given{.kind = Kind::no} : given_integer(any_other);
    }

    /// All keys with values that are taken, some of them replaced.
    [[nodiscard]] Answers with(const Answers &replaced) const
    {
        Answers answers = good_;
        for (const auto &[path, given] : replaced)
            answers[path] = given;
        return answers;
    }

    [[nodiscard]] static Answers with(Answers answers, const std::string &path, const Given &given)
    {
        answers[path] = given;
        return answers;
    }

    /// The key's home, and its value another.
    [[nodiscard]] Answers at_home(const std::string &path, const Given &given) const
    {
        return with(with(known_.at(path).home), path, given);
    }

    [[nodiscard]] Probe ask(const Answers &replaced) const { return prober_.probe(with(replaced), blank_); }

    /// Finds a value for each key that is looked for, one after the other.
    void settle(const Answers &home)
    {
        for (;;) {
            Probe probe = ask(home);
            take_order(probe);
            auto unknown = first_unknown(probe);
            if (unknown.empty()) {
                const Probe poisoned = prober_.probe(with(home), poisoned_);
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

    [[nodiscard]] std::string first_unknown(const Probe &probe) const
    {
        const auto unknown =
            std::ranges::find_if(probe.looked, [this](const std::string &path) { return !known_.contains(path); });
        return unknown != probe.looked.end() ? *unknown : std::string();
    }

    void add(const std::string &path, const Answers &home)
    {
        Known known;
        known.home = home;
        fit(path, known);
        known_[path] = known;
        if (known.good.kind != Kind::absent)
            good_[path] = known.good;
        found_.push_back(path);
    }

    /// Finds a value that the plug-in takes for a key.
    void fit(const std::string &path, Known &known) const
    {
        static const std::array tried{given_string("1"),        given_integer(1), Given{.kind = Kind::real},
                                      Given{.kind = Kind::yes}, given_array(2),   Given{.kind = Kind::object}};
        known.uses = {};
        std::vector<Given> taken;
        for (const Given &given : tried) {
            const Probe probe = prober_.probe(with(with(known.home), path, given), blank_);
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
        for (auto &[path, known] : known_) {
            if (known.good.kind != Kind::yes || known.boolean)
                continue;
            fit(path, known);
            good_[path] = known.good;
            if (known.good.kind == Kind::yes)
                known.boolean = matters(path, {.kind = Kind::yes}, {.kind = Kind::no});
        }
    }

    /// Whether it makes a difference which of two values a key has.
    [[nodiscard]] bool matters(const std::string &path, const Given &one, const Given &two) const
    {
        for (const Record *record : {&blank_, &poisoned_}) {
            const Probe first = prober_.probe(at_home(path, one), *record, true);
            const Probe second = prober_.probe(at_home(path, two), *record, true);
            if (first.looked != second.looked || first.accepted != second.accepted ||
                !first.image->same_shape(*second.image) || first.image->bytes() != second.image->bytes())
                return true;
        }
        return false;
    }

    /// Tries lists of other lengths until the document is taken.
    bool resize(const Answers &home)
    {
        const std::string culprit = ask(home).culprit;
        for (const auto &[path, known] : known_) {
            if (known.good.kind != Kind::array)
                continue;
            for (std::size_t size = 0; size <= most_elements; ++size) {
                Answers tried = home;
                tried[path] = given_array(size);
                const Probe probe = ask(tried);
                if (probe.accepted || probe.culprit != culprit) {
                    if (size == known.good.size)
                        break;
                    good_[path] = given_array(size);
                    known_[path].good = given_array(size);
                    return true;
                }
            }
        }
        return false;
    }

    // ---- their order

    void take_order(const Probe &probe)
    {
        std::map<std::string, std::string> before; // by parent, the sibling looked up before
        for (const std::string &path : probe.looked) {
            const std::string parent = parent_of(path);
            std::vector<std::string> &siblings = members_[parent];
            if (std::ranges::find(siblings, path) == siblings.end()) {
                const auto previous = std::ranges::find(siblings, before[parent]);
                siblings.insert(previous == siblings.end() ? (before[parent].empty() ? siblings.begin() : previous)
                                                           : previous + 1,
                                path);
            }
            before[parent] = path;
        }
    }

    [[nodiscard]] std::vector<std::string> ordered() const
    {
        std::vector<std::string> paths;
        const std::function<void(const std::string &)> add_members = [&](const std::string &parent) {
            const auto members = members_.find(parent);
            if (members == members_.end())
                return;
            for (const std::string &path : members->second) {
                paths.push_back(path);
                add_members(path);
            }
        };
        add_members("");
        return paths;
    }

    // ---- what the values of a key decide

    struct Course {
        Given value;
        Probe probe;
    };

    [[nodiscard]] bool is_leaf(const std::string &path) const
    {
        const Kind kind = known_.at(path).good.kind;
        return kind != Kind::array && kind != Kind::object && kind != Kind::absent;
    }

    void find_courses()
    {
        for (const auto &[path, known] : known_) {
            if (known.refused || is_element(path))
                continue;
            std::vector<Course> &courses = courses_[path];
            for (const Given &value : values_of(path))
                courses.push_back({value, prober_.probe(at_home(path, value), blank_)});
            courses.push_back({Given{}, prober_.probe(at_home(path, {}), blank_)});
        }
    }

    /// When a key is looked at.
    [[nodiscard]] std::vector<Condition> looked_at_when(const std::string &path) const
    {
        std::vector<Condition> conditions;
        for (const auto &[decider, courses] : courses_) {
            if (decider == path || is_within(path, decider) || is_within(decider, path))
                continue;
            Split split;
            for (const Course &course : courses) {
                if (course.probe.accepted)
                    (course.probe.has_looked(path) ? split.so : split.not_so).push_back(course.value);
            }
            std::optional<Condition> condition = split.condition(decider, other_of(known_.at(decider).good));
            const std::string parent = parent_of(path);
            const bool inherited = condition && known_.contains(parent) && decides(decider, parent);
            if (condition && !inherited)
                conditions.push_back(std::move(*condition));
        }
        return conditions;
    }

    /// Whether the decider decides about whether a key is looked at.
    [[nodiscard]] bool decides(const std::string &decider, const std::string &path) const
    {
        const std::vector<Course> &courses = courses_.at(decider);
        const auto accepted = [](const Course &course) { return course.probe.accepted; };
        const auto looked = [&](const Course &course) { return !accepted(course) || course.probe.has_looked(path); };
        const auto unlooked = [&](const Course &course) { return !accepted(course) || !course.probe.has_looked(path); };
        return !std::ranges::all_of(courses, looked) && !std::ranges::all_of(courses, unlooked);
    }

    // ---- which keys must be there

    struct Need {
        bool always = false;
        std::vector<Condition> when;
        std::optional<Error> error;
        std::string alternative; ///< the key whose presence does as well
    };

    [[nodiscard]] bool is_optional(const std::string &path) const
    {
        return !needs_.at(path).always && needs_.at(path).when.empty() && !needs_.at(path).error;
    }

    void find_required()
    {
        for (const auto &[path, known] : known_) {
            Need &need = needs_[path];
            if (known.refused || is_element(path))
                continue;
            const Probe &absent = courses_.at(path).back().probe;
            const Probe home = prober_.probe(with(known.home), blank_);
            if (absent.accepted || !home.accepted || absent.errors.empty())
                continue;
            need.error = absent.errors.front();
            need.always = !depends(path);
        }
        for (const std::string &path : needed_by_others())
            find_conditions(path);
        for (auto &[path, need] : needs_) {
            if (need.error && !need.always && need.when.empty() && need.alternative.empty())
                find_conditions(path);
            if (need.error && need.when.empty() && need.alternative.empty())
                need.always = true;
        }
    }

    /// Whether a key that must be there need not be when all others have other values.
    [[nodiscard]] bool depends(const std::string &path) const
    {
        for (const Given &number : {given_integer(0), given_integer(any_other)}) {
            for (const Given &flag : {Given{.kind = Kind::no}, Given{.kind = Kind::yes}}) {
                Answers answers = with(known_.at(path).home);
                for (const auto &[other, known] : known_) {
                    if (known.good.kind == Kind::yes)
                        answers[other] = flag;
                    else if (known.good.kind == Kind::integer && !known_.at(path).home.contains(other))
                        answers[other] = number;
                }
                answers[path] = {};
                if (prober_.probe(answers, blank_).accepted)
                    return true;
            }
        }
        return false;
    }

    /// The keys that need not be there as a rule, but must when others are not there or have certain values.
    [[nodiscard]] std::set<std::string> needed_by_others()
    {
        Answers least = good_;
        for (const auto &[path, known] : known_) {
            if (is_leaf(path) && !is_element(path) && is_optional(path))
                least[path] = {};
        }
        std::set<std::string> needed;
        const auto try_least = [&](const Answers &answers) {
            for (const Record *record : {&blank_, &poisoned_}) {
                Answers tried = answers;
                for (std::size_t rounds = 0; rounds < known_.size(); ++rounds) {
                    const Probe probe = prober_.probe(tried, *record);
                    if (probe.accepted || !known_.contains(probe.culprit) || tried[probe.culprit].kind != Kind::absent)
                        break;
                    needed.insert(probe.culprit);
                    tried[probe.culprit] = known_.at(probe.culprit).good;
                }
            }
        };
        try_least(least);
        for (const auto &[path, known] : known_) {
            for (const Given &value : values_of(path)) {
                Answers answers = least;
                for (const auto &[other, given] : known.home)
                    answers[other] = given;
                answers[path] = value;
                try_least(answers);
            }
        }
        return needed;
    }

    /// Of which other key, or field of the record, it depends whether a key must be there.
    void find_conditions(const std::string &path)
    {
        Need &need = needs_.at(path);
        for (const auto &[decider, known] : known_) {
            if (decider == path || known.refused || is_within(path, decider) || is_within(decider, path))
                continue;
            Split split;
            bool by_record = false;
            std::vector<Given> values = values_of(decider);
            if (values.empty())
                values.push_back(known.good);
            values.push_back({});
            for (const Given &value : values) {
                Answers answers = with(known_.at(path).home);
                for (const auto &[other, given] : known.home)
                    answers[other] = given;
                answers[decider] = value;
                const Probe there = prober_.probe(answers, blank_);
                if (!there.accepted || !there.has_looked(path))
                    continue;
                answers[path] = {};
                const Probe absent = prober_.probe(answers, blank_);
                const Probe poisoned = prober_.probe(answers, poisoned_);
                if (absent.accepted != poisoned.accepted) {
                    by_record = true;
                    add_record_condition(need, answers, value.kind == Kind::absent ? decider : "");
                    take_error(need, absent.accepted ? poisoned : absent);
                    continue;
                }
                if (!absent.accepted)
                    take_error(need, absent);
                (absent.accepted ? split.not_so : split.so).push_back(value);
            }
            if (std::optional<Condition> condition = split.condition(decider, other_of(known.good)))
                need.when.push_back(std::move(*condition));
            else if (!by_record && split.so == std::vector<Given>{Given{}} && !split.not_so.empty())
                need.alternative = decider;
        }
    }

    static void take_error(Need &need, const Probe &probe)
    {
        if (!need.error && !probe.errors.empty())
            need.error = probe.errors.front();
    }

    /// The integer of the record that decides, when the document does not.
    void add_record_condition(Need &need, const Answers &answers, const std::string &unless)
    {
        Record model = blank_;
        const std::vector<Leaf> all = leaves(model, type_);
        for (std::size_t i = 0; i < all.size(); ++i) {
            const FieldKind kind = all[i].field->kind;
            if (kind != FieldKind::unsigned_integer && kind != FieldKind::signed_integer)
                continue;
            Split split;
            std::vector<Given> values;
            for (std::int64_t value = 0; value <= most_varied; ++value)
                values.push_back(given_integer(value));
            values.push_back(given_integer(0xA5));
            for (const Given &value : values) {
                Record record = blank_;
                store_number(leaves(record, type_)[i], value.integer);
                (prober_.probe(answers, record).accepted ? split.not_so : split.so).push_back(value);
            }
            if (std::optional<Condition> condition = split.condition(unless, given_integer(0xA5))) {
                condition->field = all[i].path;
                if (std::ranges::find(need.when, condition->field, &Condition::field) == need.when.end())
                    need.when.push_back(std::move(*condition));
            }
        }
    }

    /// Keys of which at least one must be there.
    void find_groups(std::vector<InputKey> &keys) const
    {
        int groups = 0;
        for (InputKey &key : keys) {
            const std::string &other = needs_.at(key.path).alternative;
            if (other.empty())
                continue;
            const auto second = std::ranges::find(keys, other, &InputKey::path);
            const int group = second->at_least_one != 0 ? second->at_least_one : ++groups;
            key.at_least_one = group;
            second->at_least_one = group;
        }
    }

    // ---- one key

    InputKey describe(const std::string &path)
    {
        const Known &known = known_.at(path);
        InputKey key;
        key.path = path;
        key.type = type_of(known);
        key.refused = known.refused;
        key.looked_at_when = looked_at_when(path);
        const Need &need = needs_.at(path);
        key.required = need.always;
        key.required_when = need.when;
        key.absent = need.error;
        learn_types(key);
        if (key.type == InputType::array)
            learn_list(key);
        else if (is_leaf(path) || key.type == InputType::text)
            learn_value(key);
        if (!known.refused && !is_element(path))
            learn_absence(key);
        key.skipped = key.skipped && !key.cleared_when_absent;
        return key;
    }

    [[nodiscard]] static InputType type_of(const Known &known)
    {
        const HowUsed &uses = known.uses;
        return uses.array      ? InputType::array
               : uses.object   ? InputType::object
               : uses.text     ? InputType::text
               : uses.real     ? InputType::real
               : uses.integer  ? InputType::integer
               : uses.number   ? InputType::number
               : uses.string   ? InputType::string
               : known.boolean ? InputType::boolean
                               : InputType::any;
    }

    [[nodiscard]] static bool is_of_type(Kind kind, InputType type)
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

    /// Whether values of other types are errors.
    void learn_types(InputKey &key) const
    {
        if (key.refused) {
            const Probe present = prober_.probe(at_home(key.path, {.kind = Kind::yes}), blank_);
            if (!present.errors.empty())
                key.unfit = present.errors.front();
            return;
        }
        bool all_rejected = true;
        std::optional<Error> error;
        for (const Kind kind : all_kinds) {
            if (is_of_type(kind, key.type))
                continue;
            const Probe probe = prober_.probe(at_home(key.path, {.kind = kind}), blank_);
            all_rejected = all_rejected && !probe.accepted;
            if (!probe.accepted && !probe.errors.empty() && !error)
                error = probe.errors.front();
        }
        key.checked = all_rejected && error;
        if (key.checked)
            key.unfit = error;
        else if (is_leaf(key.path) && !is_element(key.path) && is_optional(key.path))
            key.skipped = counts_as_absent(key);
    }

    /// Whether a value of another type does no more than none at all.
    [[nodiscard]] bool counts_as_absent(const InputKey &key) const
    {
        const Probe absent = prober_.probe(at_home(key.path, {}), poisoned_, true);
        const Probe there = prober_.probe(at_home(key.path, known_.at(key.path).good), poisoned_, true);
        const auto same = [](const Image &one, const Image &two) {
            return one.same_shape(two) && one.bytes() == two.bytes();
        };
        return !same(*absent.image, *there.image) && std::ranges::all_of(all_kinds, [&](Kind kind) {
            return is_of_type(kind, key.type) ||
                   same(*absent.image, *prober_.probe(at_home(key.path, {.kind = kind}), poisoned_, true).image);
        });
    }

    /// The document with this key, and without the others that need not be there.
    [[nodiscard]] Answers alone(const std::string &path) const
    {
        Answers answers = with(known_.at(path).home);
        for (const auto &[other, known] : known_) {
            const bool has_value = is_leaf(other) || known.uses.text;
            if (other != path && has_value && !is_element(other) && is_optional(other) && !is_within(path, other))
                answers[other] = {};
        }
        return answers;
    }

    /// The fields that differ when a key has one value or another, in the document with all others, and nothing when
    /// the plug-in then looks for other keys; or in the one with the key alone.
    [[nodiscard]] std::vector<KeyField> fields_between(const std::string &path, const Given &one, const Given &two,
                                                       bool is_alone) const
    {
        const Answers answers = is_alone ? alone(path) : with(known_.at(path).home);
        for (const Record *record : {&poisoned_, &blank_}) {
            const Probe first = prober_.probe(with(answers, path, one), *record, true);
            const Probe second = prober_.probe(with(answers, path, two), *record, true);
            if (!first.accepted || !second.accepted || (!is_alone && first.looked != second.looked))
                continue;
            std::vector<KeyField> fields = differing_fields(*first.image, *second.image, path);
            if (!fields.empty())
                return fields;
        }
        return {};
    }

    void learn_value(InputKey &key)
    {
        const std::string &path = key.path;
        const Given &good = known_.at(path).good;
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
        for (const bool is_alone : {false, true}) {
            for (const auto &[one, two] : pairs) {
                if (key.fields.empty())
                    key.fields = fields_between(path, one, two, is_alone);
            }
        }
        if (key.type == InputType::integer || key.type == InputType::number || key.type == InputType::real)
            learn_integer(key);
        if (key.type == InputType::string)
            learn_string(key);
        if (key.type == InputType::string && is_element(path))
            key.empty_is_skipped = skips_empty(path);
        learn_decisions(key);
        learn_only_with(key);
        learn_also_sets(key);
    }

    /// What is stored of a number, as the field's low bits.
    [[nodiscard]] std::optional<std::uint64_t> stored(const InputKey &key, const Given &given) const
    {
        const Probe probe = prober_.probe(at_home(key.path, given), blank_, true);
        const std::string bytes = probe.accepted ? bytes_of(*probe.image, key.fields.front()) : std::string();
        const auto as = [&bytes]<class T>(T number) {
            bytes.copy(reinterpret_cast<char *>(&number), sizeof number);
            return std::uint64_t{number};
        };
        switch (bytes.size()) {
        case sizeof(std::uint8_t):
            return as(std::uint8_t{});
        case sizeof(std::uint16_t):
            return as(std::uint16_t{});
        case sizeof(std::uint32_t):
            return as(std::uint32_t{});
        default:
            return std::nullopt;
        }
    }

    void learn_integer(InputKey &key) const
    {
        if (key.fields.empty())
            return;
        const KeyField &field = key.fields.front();
        const auto number = [&key](std::int64_t value) {
            return key.type == InputType::real ? Given{.kind = Kind::real, .real = static_cast<double>(value)}
                                               : given_integer(value);
        };
        const auto width = static_cast<unsigned>(field.size * 8);
        while (key.bits < width && stored(key, number(std::int64_t{1} << key.bits)) == std::uint64_t{1} << key.bits)
            ++key.bits;
        key.is_signed = field.type.starts_with("int");
        if (key.bits == 0 || key.bits > 32)
            return;
        const std::uint64_t most = (std::uint64_t{1} << key.bits) - 1;
        const std::int64_t beyond = (std::int64_t{1} << (key.bits + 1)) + (std::int64_t{1} << key.bits);
        key.saturates = stored(key, number(beyond)) == most;
    }

    void learn_string(InputKey &key) const
    {
        const auto text =
            std::ranges::find_if(key.fields, [](const KeyField &field) { return field.type.starts_with("char["); });
        if (text == key.fields.end())
            return;
        const auto kept = [&](std::size_t size) -> std::optional<std::size_t> {
            const Probe probe = prober_.probe(at_home(key.path, given_string(std::string(size, 'x'))), blank_, true);
            if (!probe.accepted)
                return std::nullopt;
            const std::string bytes = bytes_of(*probe.image, *text);
            return std::min(bytes.find('\0'), bytes.size());
        };
        if (const std::optional<std::size_t> longest = kept(long_string)) {
            key.longest = longest;
            key.too_long = Excess::cut;
            return;
        }
        std::size_t taken = 0;
        std::size_t rejected = long_string;
        while (rejected - taken > 1) {
            const std::size_t middle = (taken + rejected) / 2;
            (kept(middle) ? taken : rejected) = middle;
        }
        key.longest = taken;
        key.too_long = Excess::rejected;
        const Probe probe = prober_.probe(at_home(key.path, given_string(std::string(rejected, 'x'))), blank_);
        if (!probe.errors.empty())
            key.out_of_size = probe.errors.front();
    }

    /// The values with which the plug-in takes another course.
    void learn_decisions(InputKey &key) const
    {
        const auto courses = courses_.find(key.path);
        if (courses == courses_.end() || known_.at(key.path).good.kind != Kind::integer)
            return;
        const Course &other = courses->second[courses->second.size() - 2]; // before its absence
        for (const Course &course : courses->second) {
            if (course.value.kind == Kind::absent)
                continue;
            if (course.probe.looked != other.probe.looked || course.probe.accepted != other.probe.accepted ||
                course.probe.errors != other.probe.errors)
                key.values.push_back(json_of(course.value));
        }
        for (const Condition &condition : values_for_others(key.path)) {
            for (const std::string &value : condition.values) {
                if (std::ranges::find(key.values, value) == key.values.end())
                    key.values.push_back(value);
            }
        }
        if (other.probe.accepted && !other.probe.errors.empty())
            key.unknown = other.probe.errors.front();
    }

    /// The conditions of other keys that depend on this one.
    [[nodiscard]] std::vector<Condition> values_for_others(const std::string &path) const
    {
        std::vector<Condition> conditions;
        for (const auto &[other, need] : needs_) {
            for (const Condition &condition : need.when) {
                if (condition.path == path && condition.field.empty())
                    conditions.push_back(condition);
            }
        }
        return conditions;
    }

    /// Siblings without which a value is not stored.
    void learn_only_with(InputKey &key) const
    {
        if (key.fields.empty() || key.type == InputType::any)
            return;
        const std::string parent = parent_of(key.path);
        std::vector<std::string> siblings;
        Answers answers = with(known_.at(key.path).home);
        for (const std::string &sibling : members_.at(parent)) {
            if (sibling != key.path && is_leaf(sibling) && is_optional(sibling)) {
                siblings.push_back(sibling);
                answers[sibling] = {};
            }
        }
        if (siblings.empty() || is_stored(key, answers))
            return;
        for (const std::string &sibling : siblings) {
            Answers without = with(known_.at(key.path).home);
            without[sibling] = {};
            if (!is_stored(key, without))
                key.only_with.push_back(sibling);
        }
    }

    /// Whether a key's field differs from what it was.
    [[nodiscard]] bool is_stored(const InputKey &key, const Answers &answers) const
    {
        const KeyField &field = key.fields.front();
        const Given one = known_.at(key.path).good;
        Given two = one;
        two.kind = one.kind == Kind::yes ? Kind::no : one.kind;
        two.integer = 0;
        two.real = 5;
        two.string.assign(1, '2');
        const auto stored = [&](const Given &given) {
            const Probe probe = prober_.probe(with(answers, key.path, given), poisoned_, true);
            return bytes_of(*probe.image, field);
        };
        const std::string first = stored(one);
        return first != stored(two) || first.find_first_not_of('\xA5') != std::string::npos;
    }

    /// Fields other than its own that its presence sets.
    void learn_also_sets(InputKey &key) const
    {
        if (!is_optional(key.path) || is_element(key.path) || key.type == InputType::any || key.fields.empty())
            return;
        const Answers answers = alone(key.path);
        const Probe absent = prober_.probe(with(answers, key.path, {}), poisoned_, true);
        const Probe there = prober_.probe(answers, poisoned_, true);
        if (!absent.accepted || !there.accepted || !absent.image->same_shape(*there.image))
            return;
        for (KeyField &field : differing_fields(*absent.image, *there.image, key.path)) {
            if (std::ranges::find(key.fields, field.path, &KeyField::path) == key.fields.end())
                key.also_sets.push_back(std::move(field));
        }
    }

    void learn_absence(InputKey &key) const
    {
        if (key.required)
            return;
        const Answers answers = at_home(key.path, {});
        const Probe absent = prober_.probe(answers, poisoned_, true);
        const Probe there = prober_.probe(with(known_.at(key.path).home), poisoned_, true);
        key.marked_when_absent = absent.accepted && absent.missing.size() > there.missing.size();
        if (is_leaf(key.path) && !key.fields.empty() && absent.accepted &&
            is_cleared(*absent.image, key.fields.front())) {
            // What is cleared because another key is there is that key's doing.
            const Probe neither = prober_.probe(with(alone(key.path), key.path, {}), poisoned_, true);
            key.cleared_when_absent = !bytes_of(*absent.image, key.fields.front()).empty() &&
                                      (!neither.accepted || is_cleared(*neither.image, key.fields.front()));
        }
    }

    // ---- lists

    struct List {
        const Field *field = nullptr;
        std::size_t offset = 0;
        bool is_chain = false;
    };

    /// The chain or array that the elements go into.
    [[nodiscard]] List list_of(const std::string &path) const
    {
        const auto courses = [&](std::size_t size, const Record &record) {
            return prober_.probe(at_home(path, given_array(size)), record, true);
        };
        const Probe probe = courses(known_.at(path).good.size, blank_);
        const Probe none = courses(0, blank_);
        for (const Image::Block &block : probe.image->blocks()) {
            const bool is_new = block.field != nullptr && block.type != nullptr &&
                                std::ranges::none_of(none.image->blocks(), [&](const Image::Block &each) {
                                    return each.field == block.field && each.parent == block.parent;
                                });
            if (is_new)
                return {block.field, block.field->offset, true};
        }
        // No chain: an array of which the elements set some fields.
        const std::size_t size = known_.at(path).good.size;
        Answers others = at_home(path, given_array(size));
        for (const std::string &each : within(path)) {
            Given &given = others[each];
            given.kind = given.kind == Kind::yes ? Kind::no : given.kind;
            given.integer = 7;
            given.string.assign(1, '7');
        }
        const Probe other = prober_.probe(others, blank_, true);
        for (const KeyField &field : differing_fields(*probe.image, *other.image, path)) {
            for (const Field &each : type_.fields) {
                if (each.count != 0 && field.offset >= each.offset && field.offset < each.offset + each.size)
                    return {&each, each.offset, false};
            }
        }
        return {};
    }

    /// The keys of a list's elements that hold values.
    [[nodiscard]] std::vector<std::string> within(const std::string &list) const
    {
        std::vector<std::string> paths;
        for (const auto &[path, known] : known_) {
            if (is_within(path, list) && is_leaf(path))
                paths.push_back(path);
        }
        return paths;
    }

    void learn_list(InputKey &key)
    {
        learn_sizes(key);
        const List list = list_of(key.path);
        if (list.field == nullptr)
            return;
        key.fields.push_back(
            {std::string(list.field->name), list.field->type, list.offset, list.field->size, list.field->meaning});
        learn_effect(key, list);
        learn_slots(key, list);
    }

    void learn_sizes(InputKey &key)
    {
        std::vector<std::size_t> sizes;
        for (std::size_t size = 0; size <= most_elements; ++size)
            sizes.push_back(size);
        sizes.push_back(many_elements);
        bool any = false;
        for (const std::size_t size : sizes) {
            const Probe probe = prober_.probe(at_home(key.path, given_array(size)), blank_);
            if (probe.accepted) {
                if (!any)
                    key.least = size;
                any = true;
                const auto elements = probe.elements.find(key.path);
                const std::size_t looked = elements != probe.elements.end() ? elements->second : 0;
                if (looked < size && key.too_many == Excess::none) {
                    key.most = looked;
                    key.too_many = Excess::ignored;
                }
            } else if (!any || key.too_many == Excess::none) {
                if (any) {
                    key.most = size - 1;
                    key.too_many = Excess::rejected;
                }
                if (!probe.errors.empty())
                    key.out_of_size = probe.errors.front();
            }
        }
    }

    /// A list's entries afterwards: -1 - i for the i-th of those that there were, 1 for a new one, and 0 for a slot
    /// that was cleared.
    [[nodiscard]] std::vector<int> entries_after(const InputKey &key, const List &list, std::size_t size) const
    {
        const Answers answers = at_home(key.path, given_array(size));
        Record record = list.is_chain ? blank_ : poisoned_;
        if (list.is_chain)
            hang_marked_chain(record, *list.field, entries_before);
        const Probe probe = prober_.probe(answers, record, true);
        std::vector<int> entries;
        const std::string &bytes = probe.image->bytes();
        // Of a marked entry remains what no pointer and no padding is, and what no element wrote.
        const auto is_marked = [](std::string_view entry, char mark) {
            const auto marks = std::ranges::count(entry, mark);
            return marks != 0 && 2 * marks > std::ranges::count_if(entry, [](char byte) { return byte != '\0'; });
        };
        if (list.is_chain) {
            for (const Image::Block &block : probe.image->blocks()) {
                if (block.field != list.field || block.parent != 0)
                    continue;
                const std::string_view entry = std::string_view(bytes).substr(block.begin, block.size);
                int found = 1;
                for (std::size_t i = 0; i < entries_before; ++i) {
                    if (is_marked(entry, static_cast<char>(0xC1 + i)))
                        found = -1 - static_cast<int>(i);
                }
                entries.push_back(found);
            }
        } else {
            for (std::size_t i = 0; i < list.field->count; ++i) {
                const std::string_view entry = std::string_view(bytes).substr(
                    list.offset + i * list.field->element_size(), list.field->element_size());
                const bool is_zero = entry.find_first_not_of('\0') == std::string_view::npos;
                entries.push_back(is_zero ? 0 : is_marked(entry, '\xA5') ? -1 - static_cast<int>(i) : 1);
            }
        }
        return entries;
    }

    /// Fields of an array's slot that an element sets beside those of its keys.
    void learn_slots(InputKey &key, const List &list) const
    {
        if (list.is_chain || key.least != 0)
            return;
        const Probe one = prober_.probe(at_home(key.path, given_array(0)), poisoned_, true);
        const Probe two = prober_.probe(at_home(key.path, given_array(1)), poisoned_, true);
        std::vector<KeyField> fields = differing_fields(*one.image, *two.image, key.path);
        std::vector<std::string> paths = within(key.path);
        std::erase_if(fields, [&](const KeyField &field) {
            return std::ranges::any_of(paths, [&](const std::string &path) {
                Given other = known_.at(path).good;
                other.kind = other.kind == Kind::yes ? Kind::no : other.kind;
                other.integer = 2;
                other.string.assign(1, '2');
                const std::vector<KeyField> own = fields_between(path, known_.at(path).good, other, false);
                return std::ranges::find(own, field.path, &KeyField::path) != own.end();
            });
        });
        if (key.effect == ListEffect::overwrites)
            key.also_sets = std::move(fields);
    }

    void learn_effect(InputKey &key, const List &list) const
    {
        const std::size_t size = std::max<std::size_t>(key.least, key.most ? std::min<std::size_t>(*key.most, 2) : 2);
        const std::vector<int> after = entries_after(key, list, size);
        const auto old = [](int entry) { return entry < 0; };
        const auto kept = std::ranges::count_if(after, old);
        if (!list.is_chain) {
            key.effect = kept != 0 ? ListEffect::overwrites : ListEffect::replaces;
        } else if (kept == 0) {
            key.effect = ListEffect::replaces;
        } else if (static_cast<std::size_t>(kept) < entries_before) {
            key.effect = ListEffect::keeps_first;
        } else {
            key.effect = old(after.front()) ? ListEffect::appends : ListEffect::prepends;
        }
        if (key.least == 0) {
            const std::vector<int> empty = entries_after(key, list, 0);
            key.empty_keeps = !empty.empty() && std::ranges::all_of(empty, old);
        }
        if (needs_.at(key.path).always)
            return;
        Record record = list.is_chain ? blank_ : poisoned_;
        if (list.is_chain)
            hang_marked_chain(record, *list.field, 1);
        const Probe absent = prober_.probe(at_home(key.path, {}), record, true);
        if (absent.accepted && list.is_chain)
            key.cleared_when_absent = absent.image->blocks().size() == 1;
    }

    /// Whether an empty string as an element makes no entry.
    [[nodiscard]] bool skips_empty(const std::string &element) const
    {
        const std::string path = parent_of(element);
        const List list = list_of(path);
        if (!list.is_chain)
            return false;
        const auto entries = [&](const std::string &second) {
            Answers answers = at_home(path, given_array(3));
            answers[std::string(path).append("/1")] = given_string(second);
            const Probe probe = prober_.probe(answers, blank_, true);
            return std::ranges::count(probe.image->blocks(), list.field, &Image::Block::field);
        };
        return entries("") < entries("2");
    }

    const RecordType &type_;
    Prober prober_;
    Record blank_;
    Record poisoned_;
    std::map<std::string, Known, std::less<>> known_;
    Answers good_;
    std::vector<std::string> found_;
    std::map<std::string, std::vector<std::string>, std::less<>> members_;
    std::map<std::string, std::vector<Course>, std::less<>> courses_;
    std::map<std::string, Need, std::less<>> needs_;
};

} // namespace

Input learn_input(const Resource &resource, const Registration &translators)
{
    return InputLearner(resource, translators).learn();
}

} // namespace kelmora_host
