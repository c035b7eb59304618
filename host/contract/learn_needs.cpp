#include "host/contract/learn_needs.h"

#include "host/contract/learn_condition.h"
#include "host/contract/learn_records.h"
#include "host/contract/pointer.h"
#include "host/gateway/blank.h"

#include <algorithm>
#include <set>

namespace kelmora_host {

namespace {

using Kind = Given::Kind;

bool is_never_needed(const Need &need) { return !need.always && need.when.empty() && !need.error; }

class NeedFinder {
public:
    NeedFinder(const InputSubject &subject, const FoundKeys &keys, const Courses &courses)
        : subject_(subject), keys_(keys), courses_(courses)
    {
    }

    std::map<std::string, Need, std::less<>> find()
    {
        for (const auto &[path, known] : keys_.all) {
            Need &need = needs_[path];
            if (known.refused || is_element(path))
                continue;
            const Probe &absent = courses_.without(path);
            const Probe home = subject_.prober.probe(keys_.document(known.home), subject_.blank);
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
        return std::move(needs_);
    }

private:
    /// Whether the key need not be there, as far as is known.
    [[nodiscard]] bool is_optional(const std::string &path) const { return is_never_needed(needs_.at(path)); }

    /// Whether a key that must be there need not be when all others have other values.
    [[nodiscard]] bool depends(const std::string &path) const
    {
        for (const Given &number : {given_integer(0), given_integer(any_other)}) {
            for (const Given &flag : {Given{.kind = Kind::no}, Given{.kind = Kind::yes}}) {
                Answers answers = keys_.home_of(path);
                for (const auto &[other, known] : keys_.all) {
                    if (known.good.kind == Kind::yes)
                        answers[other] = flag;
                    else if (known.good.kind == Kind::integer && !keys_.at(path).home.contains(other))
                        answers[other] = number;
                }
                answers[path] = {};
                if (subject_.prober.probe(answers, subject_.blank).accepted)
                    return true;
            }
        }
        return false;
    }

    /// The keys that need not be there as a rule, but must when others are not there or have certain values.
    [[nodiscard]] std::set<std::string> needed_by_others() const
    {
        Answers least = keys_.document();
        for (const auto &[path, known] : keys_.all) {
            if (keys_.is_leaf(path) && !is_element(path) && is_optional(path))
                least[path] = {};
        }
        std::set<std::string> needed;
        const auto try_least = [&](const Answers &answers) {
            for (const Record *record : {&subject_.blank, &subject_.poisoned}) {
                Answers tried = answers;
                for (std::size_t rounds = 0; rounds < keys_.all.size(); ++rounds) {
                    const Probe probe = subject_.prober.probe(tried, *record);
                    if (probe.accepted || !keys_.all.contains(probe.culprit) ||
                        tried[probe.culprit].kind != Kind::absent)
                        break;
                    needed.insert(probe.culprit);
                    tried[probe.culprit] = keys_.at(probe.culprit).good;
                }
            }
        };
        try_least(least);
        for (const auto &[path, known] : keys_.all) {
            for (const Given &value : values_of(known)) {
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
        for (const auto &[decider, known] : keys_.all) {
            if (decider == path || known.refused || is_within(path, decider) || is_within(decider, path))
                continue;
            Split split;
            bool by_record = false;
            std::vector<Given> values = values_of(known);
            if (values.empty())
                values.push_back(known.good);
            values.push_back({});
            for (const Given &value : values) {
                Answers answers = keys_.home_of(path);
                for (const auto &[other, given] : known.home)
                    answers[other] = given;
                answers[decider] = value;
                const Probe there = subject_.prober.probe(answers, subject_.blank);
                if (!there.accepted || !there.has_looked(path))
                    continue;
                answers[path] = {};
                const Probe absent = subject_.prober.probe(answers, subject_.blank);
                const Probe poisoned = subject_.prober.probe(answers, subject_.poisoned);
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
            if (std::optional<Condition> condition = split.condition(decider, other_of(known)))
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
        Record model = subject_.blank;
        const std::vector<Leaf> all = leaves(model, subject_.type);
        for (std::size_t i = 0; i < all.size(); ++i) {
            const FieldKind kind = all[i].field->kind;
            if (kind != FieldKind::unsigned_integer && kind != FieldKind::signed_integer)
                continue;
            Split split;
            std::vector<Given> values;
            for (std::int64_t value = 0; value <= most_varied; ++value)
                values.push_back(given_integer(value));
            values.push_back(given_integer(poisoned_byte));
            for (const Given &value : values) {
                Record record = subject_.blank;
                store_number(leaves(record, subject_.type)[i], value.integer);
                (subject_.prober.probe(answers, record).accepted ? split.not_so : split.so).push_back(value);
            }
            if (std::optional<Condition> condition = split.condition(unless, given_integer(poisoned_byte))) {
                condition->field = all[i].path;
                if (std::ranges::find(need.when, condition->field, &Condition::field) == need.when.end())
                    need.when.push_back(std::move(*condition));
            }
        }
    }

    const InputSubject &subject_;
    const FoundKeys &keys_;
    const Courses &courses_;
    std::map<std::string, Need, std::less<>> needs_;
};

} // namespace

Needs::Needs(const InputSubject &subject, const FoundKeys &keys, const Courses &courses)
    : needs_(NeedFinder(subject, keys, courses).find())
{
}

bool Needs::is_optional(const std::string &path) const { return is_never_needed(of(path)); }

void Needs::add_decisions(InputKey &key) const
{
    for (const auto &[other, need] : needs_) {
        for (const Condition &condition : need.when) {
            if (condition.path != key.path || !condition.field.empty())
                continue;
            for (const std::string &value : condition.values) {
                if (std::ranges::find(key.values, value) == key.values.end())
                    key.values.push_back(value);
            }
        }
    }
}

void Needs::find_groups(std::vector<InputKey> &keys) const
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

} // namespace kelmora_host
