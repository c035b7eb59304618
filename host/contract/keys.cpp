#include "host/contract/keys.h"

#include "host/gateway/blank.h"
#include "host/json.h"
#include "host/plugin/observer.h"
#include "host/plugin/translate.h"

#include <algorithm>
#include <map>
#include <unordered_map>
#include <vector>

namespace kelmora_host {

namespace {

/// What the plug-in gets for a key.
enum class Answer { absent, string, integer, yes, no, array, object };

struct Given {
    Answer answer = Answer::absent;
    json_int_t integer = 1;
};

/// By path.
using Answers = std::map<std::string, Given>;

/// What was seen of a key.
struct Seen {
    bool string = false;
    bool number = false;
    bool array = false;
    bool object = false;
};

/// What a call looked for.
struct Asked {
    std::map<std::string, Seen> seen; ///< by path
    std::string last;                 ///< the path that was looked up last
    bool rejected = false;            ///< an error came behind that look-up
};

/// Answers every look-up, and takes down what is looked for.
class Oracle : public Observer {
public:
    explicit Oracle(const Answers &answers) : answers_(answers) {}

    Asked asked;

    void parsed(const char * /*text*/, const json_t *root) override { paths_[root] = ""; }

    json_t *member(const json_t *object, const char *key, json_t * /*found*/) override
    {
        note(object, &Seen::object);
        return answer(object, key);
    }

    json_t *element(const json_t *array, std::size_t /*index*/, json_t * /*found*/) override
    {
        note(array, &Seen::array);
        return answer(array, "*");
    }

    void counted(const json_t *array, std::size_t /*size*/) override { note(array, &Seen::array); }

    void read(const json_t *value, Accessor accessor) override
    {
        note(value, accessor == Accessor::string ? &Seen::string : &Seen::number);
    }

    void failed(const kelmora_errorlist & /*errors*/) override { asked.rejected = true; }

private:
    void note(const json_t *value, bool Seen::*how)
    {
        if (const auto path = paths_.find(value); path != paths_.end())
            asked.seen[path->second].*how = true;
    }

    json_t *answer(const json_t *in, const std::string &step)
    {
        const auto parent = paths_.find(in);
        if (parent == paths_.end())
            return nullptr;
        const std::string path = parent->second + "/" + step;
        asked.seen[path];
        asked.last = path;
        const auto given = answers_.find(path);
        json_t *value = given != answers_.end() ? made(given->second) : nullptr;
        if (value != nullptr) {
            alive_.emplace_back(value);
            paths_[value] = path;
        }
        return value;
    }

    static json_t *made(const Given &given)
    {
        switch (given.answer) {
        case Answer::absent:
            break;
        case Answer::string:
            return json_string("1");
        case Answer::integer:
            return json_integer(given.integer);
        case Answer::yes:
            return json_true();
        case Answer::no:
            return json_false();
        case Answer::array:
            return json_pack("[n, n]");
        case Answer::object:
            return json_object();
        }
        return nullptr;
    }

    const Answers &answers_;
    std::unordered_map<const json_t *, std::string> paths_;
    std::vector<Json> alive_;
};

/// Gives a from-translator whatever it looks for, until it looks for nothing new.
class Explorer {
public:
    Explorer(const Resource &resource, const Registration &translators) : resource_(resource), translators_(translators)
    {
    }

    std::set<std::string> explore()
    {
        settle({});
        // What else is looked for when a number or a switch is another.
        for (std::size_t i = 0; i < settled_.size(); ++i) {
            const auto [path, given] = settled_[i];
            if (given.answer == Answer::yes)
                try_other(path, {Answer::no});
            for (json_int_t other = 0; given.answer == Answer::integer && other <= most_varied; ++other)
                try_other(path, {Answer::integer, other});
        }
        return known_;
    }

private:
    static constexpr json_int_t most_varied = 8;

    /// What is looked for with these answers, into a record of zeros and into one where everything is set.
    Asked ask(const Answers &answers)
    {
        Asked both = ask(answers, blank_record(resource_));
        const Asked set = ask(answers, poisoned_record(resource_));
        for (const auto &[path, seen] : set.seen)
            both.seen.emplace(path, seen);
        for (const auto &[path, seen] : both.seen)
            known_.insert(path);
        return both;
    }

    Asked ask(const Answers &answers, const Record &record) const
    {
        Node node("", record);
        Oracle oracle(answers);
        const Observation observation(oracle);
        from_json(translators_.from, node, "{}");
        return oracle.asked;
    }

    /// Adds an answer for each key that is looked for, one after the other.
    void settle(Answers answers)
    {
        for (;;) {
            const Asked asked = ask(answers);
            const auto unsettled = std::ranges::find_if(
                asked.seen, [&](const auto &seen) { return !seen.first.empty() && !answers.contains(seen.first); });
            if (unsettled == asked.seen.end())
                break;
            const std::string path = unsettled->first;
            answers[path] = fitting(path, answers);
            if (answers_.emplace(path, answers[path]).second)
                settled_.emplace_back(path, answers[path]);
        }
    }

    void try_other(const std::string &path, const Given &given)
    {
        Answers answers = answers_;
        answers[path] = given;
        settle(std::move(answers));
    }

    /// An answer that the plug-in takes for a key.
    Given fitting(const std::string &path, Answers answers)
    {
        for (const Answer answer : {Answer::string, Answer::integer, Answer::yes, Answer::array, Answer::object}) {
            answers[path] = {answer};
            const Asked asked = ask(answers);
            const Seen &seen = asked.seen.at(path);
            if (seen.array)
                return {Answer::array};
            if (seen.object)
                return {Answer::object};
            if (seen.number)
                return {Answer::integer};
            if (seen.string)
                return {Answer::string};
            if (!asked.rejected || asked.last != path)
                return {answer == Answer::string ? Answer::yes : answer};
        }
        return {Answer::absent}; // it is refused, whatever it is
    }

    const Resource &resource_;
    const Registration &translators_;
    Answers answers_;
    std::vector<std::pair<std::string, Given>> settled_;
    std::set<std::string> known_;
};

void add_keys(const json_t *value, const std::string &path, std::set<std::string> &keys)
{
    const char *key = nullptr;
    json_t *member = nullptr;
    json_object_foreach(const_cast<json_t *>(value), key, member)
    {
        keys.insert(path + "/" + key);
        add_keys(member, path + "/" + key, keys);
    }
    for (std::size_t i = 0; i < json_array_size(value); ++i)
        add_keys(json_array_get(value, i), path + "/*", keys);
}

std::set<std::string> shown_keys(const Resource &resource, const Registration &translators, const Node &node)
{
    std::set<std::string> keys;
    for (const Node &each : {node, Node("", blank_record(resource)), Node("", poisoned_record(resource))}) {
        std::vector<Node> nodes{each};
        const Json text(json_loads(to_json(translators.to, nodes, false).text.c_str(), 0, nullptr));
        add_keys(json_is_array(text.get()) ? json_array_get(text.get(), 0) : text.get(), "", keys);
    }
    return keys;
}

} // namespace

KnownKeys known_keys(const Resource &resource, const Registration &translators, const Node &node)
{
    KnownKeys keys;
    if (resource.directions != Directions::to_only)
        keys.taken = Explorer(resource, translators).explore();
    keys.taken.erase("");
    if (resource.directions != Directions::from_only)
        keys.shown = shown_keys(resource, translators, node);
    return keys;
}

} // namespace kelmora_host
