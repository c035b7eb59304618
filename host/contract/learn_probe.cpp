#include "host/contract/learn_probe.h"

#include "host/contract/pointer.h"
#include "host/gateway/blank.h"
#include "host/json.h"
#include "host/plugin/observer.h"
#include "host/plugin/translate.h"

#include <algorithm>
#include <unordered_map>

namespace kelmora_host {

namespace {

json_t *made(const Given &given)
{
    switch (given.kind) {
    case Given::Kind::absent:
        break;
    case Given::Kind::null:
        return json_null();
    case Given::Kind::no:
        return json_false();
    case Given::Kind::yes:
        return json_true();
    case Given::Kind::integer:
        return json_integer(given.integer);
    case Given::Kind::real:
        return json_real(given.real);
    case Given::Kind::string:
        return json_text(given.string);
    case Given::Kind::object:
        return json_object();
    case Given::Kind::array: {
        json_t *array = json_array();
        for (std::size_t i = 0; i < given.size; ++i)
            json_array_append_new(array, json_null());
        return array;
    }
    }
    return nullptr;
}

/// Answers every look-up, and takes down what is looked for.
class Oracle : public Observer {
public:
    Oracle(const Answers &answers, Probe &probe) : answers_(answers), probe_(probe) {}

    void parsed(const char * /*text*/, const json_t *root) override { values_[root] = {"", ""}; }

    json_t *member(const json_t *object, const char *key, json_t *found) override
    {
        const auto parent = values_.find(object);
        if (parent == values_.end())
            return nullptr;
        probe_.uses[parent->second.pattern].object = true;
        const Place place{parent->second.exact + "/" + escaped_token(key),
                          parent->second.pattern + "/" + escaped_token(key)};
        if (json_is_object(object))
            return answer(place, found);
        note(place);
        return nullptr;
    }

    json_t *element(const json_t *array, std::size_t index, json_t *found) override
    {
        const auto parent = values_.find(array);
        if (parent == values_.end())
            return nullptr;
        const Place place = parent->second;
        probe_.uses[place.pattern].array = true;
        if (!json_is_array(array) || index >= json_array_size(array)) {
            note({place.exact + "/" + std::to_string(index), place.pattern + "/*"});
            return nullptr;
        }
        std::size_t &elements = probe_.elements[place.pattern];
        elements = std::max(elements, index + 1);
        return answer({place.exact + "/" + std::to_string(index), place.pattern + "/*"}, found);
    }

    void counted(const json_t *array, std::size_t /*size*/) override { use(array, &HowUsed::array); }

    void read(const json_t *value, Accessor accessor) override
    {
        static constexpr bool HowUsed::*uses[] = {&HowUsed::string, &HowUsed::integer, &HowUsed::real,
                                                  &HowUsed::number};
        use(value, uses[static_cast<std::size_t>(accessor)]);
    }

    void rendered(const json_t *value) override { use(value, &HowUsed::text); }

    void failed(const kelmora_errorlist &errors) override
    {
        if (errors.errors.size() == 1) {
            probe_.culprit = last_.pattern;
            probe_.culprit_place = last_.exact;
        }
    }

private:
    /// Where a value is in the document.
    struct Place {
        std::string exact;
        std::string pattern;
    };

    void use(const json_t *value, bool HowUsed::*how)
    {
        if (const auto found = values_.find(value); found != values_.end()) {
            probe_.uses[found->second.pattern].*how = true;
            last_ = found->second;
        }
    }

    void note(const Place &place)
    {
        if (probe_.uses.try_emplace(place.pattern).second || !probe_.has_looked(place.pattern))
            probe_.looked.push_back(place.pattern);
        last_ = place;
    }

    /// found: what the document has there, or NULL.
    json_t *answer(Place place, json_t *found)
    {
        note(place);
        auto given = answers_.end();
        if (place.exact != place.pattern)
            given = answers_.find(place.exact);
        if (given == answers_.end())
            given = answers_.find(place.pattern);
        json_t *value = found;
        if (given != answers_.end()) {
            value = made(given->second);
            alive_.emplace_back(value);
        }
        if (value != nullptr)
            values_[value] = std::move(place);
        return value;
    }

    const Answers &answers_;
    Probe &probe_;
    Place last_;
    std::unordered_map<const json_t *, Place> values_;
    std::vector<Json> alive_;
};

} // namespace

Given given_integer(std::int64_t value) { return {.kind = Given::Kind::integer, .integer = value}; }

Given given_string(std::string value) { return {.kind = Given::Kind::string, .string = std::move(value)}; }

Given given_array(std::size_t size) { return {.kind = Given::Kind::array, .size = size}; }

bool Probe::has_looked(std::string_view path) const { return std::ranges::find(looked, path) != looked.end(); }

Prober::Prober(const Resource &resource, const Registration &translators)
    : type_(record_type(resource.name)), translators_(translators)
{
}

Probe Prober::probe(const Answers &answers, const Record &record, bool with_image, const std::string &document) const
{
    Probe probe;
    Node node("", record);
    Oracle oracle(answers, probe);
    const Observation observation(oracle);
    Decoded decoded = from_json(translators_.from, node, document);
    probe.accepted = decoded.result == 1;
    probe.errors = std::move(decoded.errors);
    probe.missing = node.missing();
    if (with_image)
        probe.image.emplace(node.record(), *type_);
    return probe;
}

InputSubject::InputSubject(const Resource &resource, const Registration &translators)
    : type(*record_type(resource.name)), prober(resource, translators), blank(blank_record(resource)),
      poisoned(poisoned_record(resource))
{
}

} // namespace kelmora_host
