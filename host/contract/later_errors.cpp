#include "host/contract/later_errors.h"

#include "host/contract/learn_probe.h"
#include "host/contract/learned.h"

#include <algorithm>

namespace kelmora_host {

namespace {

using Kind = Given::Kind;

/// What is tried in place of what an error is about, in this order.
std::vector<Given> all_remedies()
{
    std::vector<Given> all{{.kind = Kind::integer}, {.kind = Kind::string}, {.kind = Kind::yes},
                           {.kind = Kind::real},    {.kind = Kind::object}, {.kind = Kind::absent}};
    constexpr std::int64_t most = 16; // no code is greater
    for (std::int64_t code = 0; code <= most; ++code)
        all.push_back({.kind = Kind::integer, .integer = code});
    for (std::size_t size = 0; size <= most; ++size)
        all.push_back({.kind = Kind::array, .size = size});
    return all;
}

/// What a key takes as a rule.
Given usual(const InputKey &key)
{
    switch (key.type) {
    case InputType::boolean:
        return {.kind = Kind::yes};
    case InputType::integer:
    case InputType::number:
        return {.kind = Kind::integer};
    case InputType::real:
        return {.kind = Kind::real};
    case InputType::string:
        return {.kind = Kind::string};
    case InputType::array:
        return {.kind = Kind::array, .size = key.least};
    case InputType::object:
    case InputType::text:
    case InputType::any:
        break;
    }
    return {.kind = Kind::object};
}

class Mender {
public:
    Mender(const Resource &resource, const Registration &translators, const Record &record, const std::string &text)
        : prober_(resource, translators), record_(record), text_(text), input_(learned_input(resource, translators))
    {
    }

    std::vector<LaterError> later_errors()
    {
        std::vector<LaterError> found;
        Probe probe = ask();
        while (found.size() < most_later_errors && mend(probe)) {
            if (probe.accepted || probe.errors.empty())
                break;
            if (!depends_on_a_remedy(probe.culprit))
                found.push_back({probe.errors.front(), probe.culprit_place});
        }
        return found;
    }

private:
    [[nodiscard]] Probe ask() const { return prober_.probe(mended_, record_, false, text_); }

    /// Mends what the error is about, and asks again. Returns whether there is another error now, or none.
    bool mend(Probe &probe)
    {
        const std::string place = probe.culprit_place;
        if (mended_.contains(place))
            return false; // it came back: whatever is given for it depends on something else
        const std::string pattern = probe.culprit;
        std::vector<Given> tried = all_remedies();
        if (const InputKey *key = key_of(pattern))
            tried.insert(tried.begin(), usual(*key));
        if (const auto known = remedies_.find(pattern); known != remedies_.end())
            tried.insert(tried.begin(), known->second);
        for (const Given &given : tried) {
            mended_[place] = given;
            Probe next = ask();
            if (next.accepted || next.culprit_place != place) {
                probe = std::move(next);
                remedies_[pattern] = given;
                return true;
            }
        }
        return false;
    }

    [[nodiscard]] const InputKey *key_of(std::string_view path) const
    {
        const auto key = std::ranges::find(input_.keys, path, &InputKey::path);
        return key != input_.keys.end() ? &*key : nullptr;
    }

    /// Whether a value that was made up here is why this, or what it is in, is looked for or required.
    [[nodiscard]] bool depends_on_a_remedy(std::string_view path) const
    {
        const auto made_up = [this](const Condition &condition) { return remedies_.contains(condition.path); };
        for (; !path.empty(); path = path.substr(0, path.rfind('/'))) {
            const InputKey *key = key_of(path);
            if (key != nullptr &&
                (std::ranges::any_of(key->required_when, made_up) || std::ranges::any_of(key->looked_at_when, made_up)))
                return true;
        }
        return false;
    }

    Prober prober_;
    const Record &record_;
    const std::string &text_;
    const Input &input_;
    Answers mended_;
    Answers remedies_; ///< what helped, by paths as contracts have them
};

} // namespace

std::vector<LaterError> later_errors(const Resource &resource, const Registration &translators, const Record &record,
                                     const std::string &text)
{
    return Mender(resource, translators, record, text).later_errors();
}

} // namespace kelmora_host
