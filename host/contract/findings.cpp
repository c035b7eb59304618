#include "host/contract/findings.h"

#include "host/contract/keys.h"
#include "host/contract/later_errors.h"
#include "host/contract/syntax.h"
#include "host/contract/trace.h"
#include "host/json.h"
#include "host/names.h"
#include "host/plugin/translate.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <unordered_map>
#include <unordered_set>

namespace kelmora_host {

namespace {

/// "1 byte", "2 bytes".
std::string counted(std::size_t count, std::string_view one, std::string_view several)
{
    return std::to_string(count) + " " + std::string(count == 1 ? one : several);
}

std::string_view name_of(ValueType type)
{
    switch (type) {
    case ValueType::null:
        return "null";
    case ValueType::boolean:
        return "a boolean";
    case ValueType::integer:
        return "an integer";
    case ValueType::real:
        return "a number with a fraction or an exponent";
    case ValueType::string:
        return "a string";
    case ValueType::array:
        return "a list";
    case ValueType::object:
        return "an object";
    }
    return "";
}

/// A value that was looked up, and all that was done with it.
struct Looked {
    Uses uses;
    std::vector<Stored> stored;
    bool decides = false;
};

class Checker {
public:
    Checker(const Resource &resource, const Registration &translators, const Node &node, const std::string &text,
            const Positions &document)
        : resource_(resource), translators_(translators), node_(node), text_(text), document_(document),
          trace_(trace(resource, translators, node, text, document))
    {
        for (const Step &step : trace_.steps) {
            if (step.value == nullptr)
                continue;
            Looked &looked = looked_[step.value];
            looked.uses.insert(step.uses);
            looked.stored.insert(looked.stored.end(), step.stored.begin(), step.stored.end());
            looked.decides = looked.decides || step.decides;
        }
        for (const Step &step : trace_.steps)
            looked_into_.insert(step.parent);
    }

    Check check()
    {
        for (const TracedError &error : trace_.errors)
            check_.errors.push_back(located(error));
        if (!accepted() && trace_.errors.empty())
            check_.errors.push_back(
                {{"", "rejected without an error", "kelmora-host"}, std::nullopt, std::nullopt, ""});
        find_later_errors();
        check_root();
        find_repeated();
        find_entries();
        std::ranges::stable_sort(check_.findings, {}, [](const Finding &finding) {
            return std::pair(finding.position.line, finding.position.column);
        });
        const bool lost = std::ranges::any_of(
            check_.findings, [](const Finding &finding) { return finding.severity != Severity::note; });
        check_.result = trace_.result != 1               ? CheckResult::rejected
                        : lost || !trace_.errors.empty() ? CheckResult::lossy
                                                         : CheckResult::lossless;
        return std::move(check_);
    }

private:
    [[nodiscard]] bool accepted() const { return trace_.result == 1; }

    LocatedError located(const TracedError &traced) const
    {
        if (!traced.step)
            return {traced.error, "", document_.root().position, ""};
        const Step &step = trace_.steps[*traced.step];
        const Value &place = step.value != nullptr ? *step.value : *step.parent;
        return {traced.error, step.pointer(), place.position, ""};
    }

    /// The errors behind the first one, each where the document has what it is about or what it would be in.
    void find_later_errors()
    {
        if (accepted() || document_.root().type != ValueType::object)
            return;
        for (LaterError &later : later_errors(resource_, translators_, node_.record(), text_)) {
            const Position position = document_.nearest(later.pointer).position;
            check_.errors.push_back({std::move(later.error), std::move(later.pointer), position, "", true});
        }
    }

    void add(std::string_view code, const Value &value, std::string message, std::optional<std::string> stored = {},
             Severity severity = Severity::warning)
    {
        const bool about_key = code == "unknown" || code == "read-only" || code == "repeated";
        const Position position = about_key && value.key != nullptr ? value.key->position : value.position;
        check_.findings.push_back(
            {code, severity, pointer(value), position, std::string(value.raw), std::move(stored), std::move(message)});
    }

    void check_root()
    {
        const Value &root = document_.root();
        if (root.type == ValueType::array) {
            add("not-an-object", root, "a list has no keys, so nothing of it is taken", {},
                accepted() ? Severity::warning : Severity::error);
        } else if (root.size == 0) {
            if (accepted())
                add("empty", root, "an empty document: it is accepted, and nothing is stored");
        } else if (resource_.directions == Directions::to_only) {
            add("ignored", root, std::string(resource_.name) + " is read-only: nothing of a document is taken");
        } else {
            check_members(root);
        }
    }

    void check_members(const Value &object)
    {
        for (const Value *member : document_.elements(object)) {
            if (document_.member(object, member->key->string) != member)
                continue; // repeated
            if (const auto looked = looked_.find(member); looked != looked_.end())
                check_value(*member, looked->second);
            else
                check_unlooked(*member);
        }
    }

    /// A member that the plug-in did not look for.
    void check_unlooked(const Value &member)
    {
        const KnownKeys &keys = known();
        const std::string path = pattern(member);
        if (keys.taken.contains(path)) {
            if (accepted())
                add("ignored", member,
                    in_quotes(member.key->string) + " is not looked at, as the rest of the document is");
        } else if (keys.shown.contains(path)) {
            add("read-only", member, in_quotes(member.key->string) + " is shown, but never taken", {}, Severity::note);
        } else {
            const std::string near = nearest_key(member);
            add("unknown", member, "no such key" + (near.empty() ? "" : "; the nearest is " + in_quotes(near)));
        }
    }

    void check_value(const Value &value, const Looked &looked)
    {
        const Uses &uses = looked.uses;
        if (uses.contains(Use::object))
            check_container(value, looked, ValueType::object);
        else if (uses.contains(Use::array))
            check_container(value, looked, ValueType::array);
        else if (uses.contains(Use::text))
            return; // taken whole
        else if (uses.contains(Use::string))
            check_string(value, looked);
        else if (uses.contains(Use::integer))
            check_number(value, looked, "an integer", {ValueType::integer});
        else if (uses.contains(Use::real))
            check_number(value, looked, "a number with a fraction or an exponent", {ValueType::real});
        else if (uses.contains(Use::number))
            check_number(value, looked, "a number", {ValueType::integer, ValueType::real});
        else
            check_boolean(value, looked);
    }

    void check_container(const Value &value, const Looked &looked, ValueType type)
    {
        if (value.type != type)
            add_wrong_type(value, looked, name_of(type));
        else if (type == ValueType::object)
            check_members(value);
        else
            check_elements(value);
    }

    void check_elements(const Value &array)
    {
        std::size_t unlooked = 0;
        const Value *first = nullptr;
        for (const Value *element : document_.elements(array)) {
            if (const auto looked = looked_.find(element); looked != looked_.end()) {
                check_value(*element, looked->second);
            } else if (unlooked++ == 0) {
                first = element;
            }
        }
        if (unlooked != 0 && accepted())
            add("ignored", *first, counted(unlooked, "element is", "elements are") + " not looked at, from here on");
    }

    void check_string(const Value &value, const Looked &looked)
    {
        if (value.type != ValueType::string) {
            add_wrong_type(value, looked, "a string");
        } else if (looked.stored.empty()) {
            check_dropped(value, looked);
        } else if (const Stored &stored = looked.stored.front(); stored.field->kind == FieldKind::string) {
            const std::string kept = stored.string();
            if (kept == value.string)
                return;
            std::string message =
                counted(value.string.size(), "byte", "bytes") + " sent, " + std::to_string(kept.size()) + " kept";
            if ((static_cast<unsigned char>(value.string[kept.size()]) & 0xC0U) == 0x80U)
                message += "; the cut falls inside a character, so the key will be missing from the output";
            add("cut", value, std::move(message), stored.json());
        }
    }

    void check_number(const Value &value, const Looked &looked, std::string_view taken,
                      std::initializer_list<ValueType> types)
    {
        if (std::ranges::find(types, value.type) == types.end()) {
            add_wrong_type(value, looked, taken);
        } else if (looked.stored.empty()) {
            check_dropped(value, looked);
        } else if (const Stored &stored = looked.stored.front(); stored.is_integer() && !holds(stored, value)) {
            const std::string now = stored.json();
            const bool fraction = value.type == ValueType::real && fits_without_fraction(stored, value);
            add("wrapped", value,
                std::string(value.raw) + (fraction ? " loses its fraction" : " does not fit into " + width_of(stored)) +
                    ": " + now + " is stored",
                now);
        }
    }

    static bool holds(const Stored &stored, const Value &value)
    {
        const Json sent(json_loads(std::string(value.raw).c_str(), JSON_DECODE_ANY, nullptr));
        if (value.type == ValueType::integer)
            return json_integer_value(sent.get()) == stored.integer();
        return json_real_value(sent.get()) == static_cast<double>(stored.integer());
    }

    static bool fits_without_fraction(const Stored &stored, const Value &value)
    {
        const Json sent(json_loads(std::string(value.raw).c_str(), JSON_DECODE_ANY, nullptr));
        return std::trunc(json_real_value(sent.get())) == static_cast<double>(stored.integer());
    }

    static std::string width_of(const Stored &stored)
    {
        return std::to_string(stored.bytes.size() * 8) +
               (stored.field->kind == FieldKind::signed_integer ? " signed bits" : " unsigned bits");
    }

    void check_boolean(const Value &value, const Looked &looked)
    {
        if (!looked.stored.empty()) {
            if (value.type != ValueType::boolean)
                add_wrong_type(value, looked, "true or false");
        } else if (accepted()) {
            const std::string_view taken = taken_instead_of(value);
            if (taken.empty())
                check_dropped(value, looked);
            else
                add_wrong_type(value, looked, taken);
        }
    }

    /// Of which type a value would have to be for the plug-in to do something with it; empty when there is none.
    [[nodiscard]] std::string_view taken_instead_of(const Value &value) const
    {
        struct Other {
            const char *json;
            ValueType type;
            std::string_view name;
        };
        static constexpr Other others[] = {{"\"1\"", ValueType::string, "a string"},
                                           {"{}", ValueType::object, "an object or a list"}};
        for (const Other &other : others) {
            if (value.type == other.type)
                continue;
            std::string text = text_;
            text.replace(document_.offset(value.raw), value.raw.size(), other.json);
            const std::optional<Positions> changed = Positions::parse(text);
            const Trace traced = trace(resource_, translators_, node_, text, *changed);
            const auto step = std::ranges::find_if(traced.steps, [&](const Step &each) {
                return each.value != nullptr && !each.uses.empty() && pointer(*each.value) == pointer(value);
            });
            if (step != traced.steps.end())
                return other.name;
        }
        return "";
    }

    /// A value that was looked at, and then not stored.
    void check_dropped(const Value &value, const Looked &looked)
    {
        if (accepted() && !looked.decides)
            add("ignored", value, "nothing of it is stored");
    }

    void add_wrong_type(const Value &value, const Looked &looked, std::string_view taken)
    {
        std::string message = std::string(name_of(value.type)) + " where " + std::string(taken) + " is taken: ";
        std::optional<std::string> stored;
        if (!looked.stored.empty() && looked.stored.front().field->kind != FieldKind::string_pointer)
            stored = looked.stored.front().json();
        message += stored ? *stored + " is stored" : "nothing is stored";
        add("wrong-type", value, std::move(message), std::move(stored));
    }

    void find_repeated()
    {
        for (const Value *value : document_.repeated()) {
            if (!is_looked_into(*value->parent))
                continue;
            const Value *counting = document_.member(*value->parent, value->key->string);
            add("repeated", *value,
                in_quotes(value->key->string) + " stands again in line " +
                    std::to_string(counting->key->position.line) + ", and that one counts");
        }
    }

    /// Whether the plug-in took something out of a value, or the value as a whole.
    [[nodiscard]] bool is_looked_into(const Value &value) const
    {
        if (looked_into_.contains(&value))
            return true;
        for (const Value *outer = &value; outer != nullptr; outer = outer->parent) {
            if (const auto looked = looked_.find(outer); looked != looked_.end())
                return looked->second.uses.contains(Use::text);
        }
        return false;
    }

    /// Lists after which there are not just the entries that came.
    void find_entries()
    {
        if (!accepted())
            return;
        for (const auto &[value, looked] : looked_) {
            if (value->type != ValueType::array || !looked.uses.contains(Use::array) || value->key == nullptr)
                continue;
            const std::string_view list(value->key->string);
            const auto before = trace_.entries_before.find(list);
            const auto after = trace_.entries_after.find(list);
            if (before == trace_.entries_before.end() || after == trace_.entries_after.end())
                continue;
            if (after->second > value->size)
                add("entries", *value,
                    counted(before->second, "entry was there, ", "entries were there, ") + std::to_string(value->size) +
                        " came, " + counted(after->second, "is there now", "are there now"),
                    {}, Severity::note);
        }
    }

    const KnownKeys &known()
    {
        if (!known_)
            known_ = known_keys(resource_, translators_, node_);
        return *known_;
    }

    /// The value's JSON Pointer with "*" for each element.
    static std::string pattern(const Value &value)
    {
        if (value.parent == nullptr)
            return "";
        return pattern(*value.parent) + "/" + (value.key != nullptr ? std::string(value.key->string) : "*");
    }

    /// The key of the same object that is most like this one's; empty when none is.
    std::string nearest_key(const Value &member)
    {
        const std::string parent = pattern(*member.parent) + "/";
        std::vector<std::string_view> siblings;
        for (const std::set<std::string> *keys : {&known().taken, &known().shown}) {
            for (const std::string &key : *keys) {
                if (key.starts_with(parent) && key.find('/', parent.size()) == std::string::npos)
                    siblings.push_back(std::string_view(key).substr(parent.size()));
            }
        }
        const auto nearest = std::ranges::min_element(
            siblings, {}, [&](std::string_view key) { return edit_distance(member.key->string, key); });
        return nearest != siblings.end() ? std::string(*nearest) : "";
    }

    const Resource &resource_;
    const Registration &translators_;
    const Node &node_;
    const std::string &text_;
    const Positions &document_;
    Trace trace_;
    std::unordered_map<const Value *, Looked> looked_;
    std::unordered_set<const Value *> looked_into_;
    std::optional<KnownKeys> known_;
    Check check_{};
};

/// A document that does not get as far as the plug-in's keys.
Check rejected(const Error &error, std::optional<Position> position, std::string detail)
{
    return {CheckResult::rejected, {{error, "", position, std::move(detail)}}, {}};
}

Check check_raw(const Resource &resource, const Registration &translators, const Node &node, const std::string &text)
{
    if (text.size() != raw_size)
        return rejected({"",
                         std::string(resource.name) + " takes exactly " + std::to_string(raw_size) +
                             " raw bytes, no JSON; there are " + std::to_string(text.size()),
                         "kelmora-host"},
                        std::nullopt, "");
    Node copy = node;
    const Decoded decoded = from_json(translators.from, copy, text);
    Check check{decoded.result == 1 ? CheckResult::lossless : CheckResult::rejected, {}, {}};
    for (const Error &error : decoded.errors)
        check.errors.push_back({error, std::nullopt, std::nullopt, ""});
    return check;
}

} // namespace

std::string_view name_of(Severity severity)
{
    return severity == Severity::note ? "note" : severity == Severity::warning ? "warning" : "error";
}

std::string_view name_of(CheckResult result)
{
    return result == CheckResult::lossless ? "lossless" : result == CheckResult::lossy ? "lossy" : "rejected";
}

Check check(const Resource &resource, const Registration &translators, const Node &node, const std::string &text)
{
    if (is_raw(resource))
        return check_raw(resource, translators, node, text);
    if (const std::optional<SyntaxError> nul = find_nul_byte(text))
        return rejected({"", nul->what, "kelmora-host"}, nul->position, "");
    if (text.empty())
        return {CheckResult::lossy,
                {},
                {{"empty",
                  Severity::warning,
                  "",
                  {1, 1},
                  std::nullopt,
                  std::nullopt,
                  "an empty document: it is accepted, and nothing is stored"}}};
    if (const std::optional<SyntaxError> error = find_syntax_error(text)) {
        if (resource.directions == Directions::to_only)
            return {CheckResult::lossy,
                    {},
                    {{"ignored",
                      Severity::warning,
                      "",
                      {1, 1},
                      std::nullopt,
                      std::nullopt,
                      std::string(resource.name) + " is read-only: nothing of a document is taken"}}};
        return rejected({"", "invalid json data", "json"}, error->position, error->what);
    }
    const std::optional<Positions> document = Positions::parse(text);
    return Checker(resource, translators, node, text, *document).check();
}

} // namespace kelmora_host
