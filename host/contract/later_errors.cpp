#include "host/contract/later_errors.h"

#include "host/contract/learn_input.h"
#include "host/contract/learn_probe.h"

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

class Mender {
public:
    Mender(const Resource &resource, const Registration &translators, const Record &record, const std::string &text)
        : prober_(resource, translators), record_(record), text_(text), input_(learn_input(resource, translators))
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
        const auto known = remedies_.find(pattern);
        std::vector<Given> tried = all_remedies();
        if (known != remedies_.end())
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

    /// Whether a value that was made up here is why this is looked for or required.
    [[nodiscard]] bool depends_on_a_remedy(const std::string &path) const
    {
        const auto key = std::ranges::find(input_.keys, path, &InputKey::path);
        if (key == input_.keys.end())
            return false;
        const auto made_up = [this](const Condition &condition) { return remedies_.contains(condition.path); };
        return std::ranges::any_of(key->required_when, made_up) || std::ranges::any_of(key->looked_at_when, made_up);
    }

    Prober prober_;
    const Record &record_;
    const std::string &text_;
    Input input_;
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
