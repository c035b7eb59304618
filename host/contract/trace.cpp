#include "host/contract/trace.h"

#include "host/contract/image.h"
#include "host/contract/pointer.h"
#include "host/json.h"
#include "host/plugin/observer.h"
#include "host/plugin/translate.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <functional>
#include <unordered_map>

namespace kelmora_host {

namespace {

/// What the plug-in gets in place of values of the document.
using Substitutes = std::unordered_map<const Value *, Json>;

/// Takes down what the plug-in looks up.
class Recorder : public Observer {
public:
    Recorder(const Positions &document, const Substitutes &substitutes) : document_(document), substitutes_(substitutes)
    {
    }

    std::vector<Step> steps;
    std::vector<TracedError> errors;
    std::vector<int> missing;

    /// Called, when set, before each look-up and each error.
    std::function<void()> before;

    void parsed(const char * /*text*/, const json_t *root) override { values_[root] = &document_.root(); }

    json_t *member(const json_t *object, const char *key, json_t *found) override
    {
        return looked_up(object, Use::object, key, 0, found);
    }

    json_t *element(const json_t *array, std::size_t index, json_t *found) override
    {
        return looked_up(array, Use::array, nullptr, index, found);
    }

    void counted(const json_t *array, std::size_t /*size*/) override { use(array, Use::array); }

    void read(const json_t *value, Accessor accessor) override
    {
        static constexpr Use uses[] = {Use::string, Use::integer, Use::real, Use::number};
        use(value, uses[static_cast<std::size_t>(accessor)]);
    }

    void rendered(const json_t *value) override { use(value, Use::text); }

    void failed(const kelmora_errorlist &list) override
    {
        if (before)
            before();
        errors.push_back({list.errors.back(), last_});
    }

    void marked_missing(int field) override { missing.push_back(field); }

private:
    /// container: as what the plug-in uses the value that it looks into. key: NULL for an element.
    json_t *looked_up(const json_t *in, Use container, const char *key, std::size_t index, json_t *found)
    {
        if (before)
            before();
        const Value *parent = use(in, container);
        if (parent == nullptr)
            return found; // in something that is absent, or not of the document
        const Value *value = nullptr;
        if (found != nullptr)
            value = key != nullptr ? document_.member(*parent, key) : document_.element(*parent, index);
        if (const auto substitute = substitutes_.find(value); substitute != substitutes_.end())
            found = substitute->second.get();
        last_ = steps.size();
        steps.push_back({parent, key != nullptr ? key : "", index, key == nullptr, value, {}, {}, false});
        if (found != nullptr) {
            values_[found] = value;
            latest_[found] = steps.size() - 1;
        }
        return found;
    }

    /// Notes a use of a value and returns where it is in the document; NULL when it is not in it.
    const Value *use(const json_t *value, Use how)
    {
        if (value == nullptr)
            return nullptr;
        if (const auto step = latest_.find(value); step != latest_.end()) {
            steps[step->second].uses.insert(how);
            last_ = step->second;
        }
        const auto found = values_.find(value);
        return found != values_.end() ? found->second : nullptr;
    }

    const Positions &document_;
    const Substitutes &substitutes_;
    std::unordered_map<const json_t *, const Value *> values_; // true, false and null: the one that was found last
    std::unordered_map<const json_t *, std::size_t> latest_;   // the step that found it last
    std::optional<std::size_t> last_;
};

/// A call, what was seen of it, and the record after it.
struct Run {
    int result;
    std::vector<Step> steps;
    std::vector<TracedError> errors;
    std::vector<int> missing;
    Image image;
};

bool same_look_up(const Step &one, const Step &two)
{
    return one.parent == two.parent && one.key == two.key && one.index == two.index && one.value == two.value &&
           one.uses == two.uses;
}

/// Whether the plug-in looked for the same and came to the same end.
bool same_course(const Run &one, const Run &two)
{
    const auto error = [](const TracedError &traced) { return traced.error; };
    return one.result == two.result && std::ranges::equal(one.steps, two.steps, same_look_up) &&
           std::ranges::equal(one.errors, two.errors, {}, error, error);
}

/// Whether it did the same, but for the contents of what it stored.
bool comparable(const Run &one, const Run &two) { return same_course(one, two) && one.image.same_shape(two.image); }

/// The places in the images' bytes at which two runs of one course differ.
std::vector<std::size_t> differences(const Image &one, const Image &two)
{
    std::vector<std::size_t> places;
    for (std::size_t i = 0; i < one.bytes().size(); ++i) {
        if (one.bytes()[i] != two.bytes()[i])
            places.push_back(i);
    }
    return places;
}

/// A value that the plug-in may have stored, and the step that found it last.
struct Candidate {
    const Value *value;
    std::size_t step;
};

std::string string_for(const Value &value) { return value.string.starts_with('1') ? "2" : "1"; }

/// Whether the lowest bit of an integer is set; of no integer none is.
bool is_odd(const Value &value)
{
    return value.type == ValueType::integer && std::string_view("13579").find(value.raw.back()) != std::string::npos;
}

/// Something of the type that the plug-in reads, and stored otherwise than the value; NULL when it stores nothing.
/// An integer is another in its lowest bit, and so in fields of every width.
Json substitute_for(const Value &value, const Uses &uses)
{
    if (uses.contains(Use::string))
        return Json(json_text(string_for(value)));
    if (uses.contains(Use::integer))
        return Json(json_integer(is_odd(value) ? 0 : 1));
    if (uses.contains(Use::real) || uses.contains(Use::number))
        return Json(json_real(value.raw.starts_with("1") ? 2 : 1));
    if (uses.empty())
        return Json(value.raw == "true" ? json_false() : json_true());
    return nullptr;
}

/// Finds out where each value of a document is stored, by calls in which some are others.
class Locator {
public:
    Locator(const Resource &resource, const Registration &translators, const Node &node, const std::string &text,
            const Positions &document)
        : type_(*record_type(resource.name)), translators_(translators), node_(node), text_(text), document_(document),
          original_(run(Substitutes()))
    {
    }

    /// What the plug-in does with the document as it is, with the places filled in.
    Run locate()
    {
        std::vector<Candidate> candidates = this->candidates();
        std::vector<Candidate> deciding;
        remove_deciding(candidates, deciding);
        locate_by_groups(candidates, &Locator::substitutes_for);
        // An integer that is stored as a truth: what is even and not 0 is as true as 1.
        std::erase_if(candidates, [this](const Candidate &candidate) {
            const Step &step = original_.steps[candidate.step];
            return !step.stored.empty() || !step.uses.contains(Use::integer);
        });
        locate_by_groups(candidates, &Locator::zeros_for);
        for (const Candidate &candidate : deciding)
            locate_alone(candidate);
        return std::move(original_);
    }

private:
    /// As many values as may decide what the plug-in does, before it is given up to look for more of them.
    static constexpr std::size_t most_deciding = 64;

    /// How many numbers are tried in place of one that decides.
    static constexpr json_int_t most_tried = 8;

    [[nodiscard]] Substitutes substitutes_for(const std::vector<Candidate> &changed) const
    {
        Substitutes substitutes;
        for (const Candidate &candidate : changed)
            substitutes[candidate.value] = substitute_for(*candidate.value, original_.steps[candidate.step].uses);
        return substitutes;
    }

    [[nodiscard]] Substitutes zeros_for(const std::vector<Candidate> &changed) const
    {
        Substitutes zeros;
        for (const Candidate &candidate : changed)
            zeros[candidate.value].reset(json_integer(0));
        return zeros;
    }

    [[nodiscard]] Run run(const std::vector<Candidate> &changed) const { return run(substitutes_for(changed)); }

    [[nodiscard]] Run run(const Substitutes &substitutes) const
    {
        Node node = node_;
        Recorder recorder(document_, substitutes);
        Decoded decoded{};
        {
            const Observation observation(recorder);
            decoded = from_json(translators_.from, node, text_);
        }
        return {decoded.result, std::move(recorder.steps), std::move(recorder.errors), std::move(recorder.missing),
                Image(node.record(), type_)};
    }

    /// The record at the moment when the plug-in has done with a step and goes on.
    [[nodiscard]] Image image_after(std::size_t step, const Substitutes &substitutes) const
    {
        Node node = node_;
        Recorder recorder(document_, substitutes);
        std::optional<Image> image;
        recorder.before = [&] {
            if (!image && recorder.steps.size() > step)
                image.emplace(node.record(), type_);
        };
        const Observation observation(recorder);
        from_json(translators_.from, node, text_);
        return image ? std::move(*image) : Image(node.record(), type_);
    }

    [[nodiscard]] std::vector<Candidate> candidates() const
    {
        std::unordered_map<const Value *, std::size_t> last;
        for (std::size_t i = 0; i < original_.steps.size(); ++i)
            last[original_.steps[i].value] = i;
        std::vector<Candidate> candidates;
        for (std::size_t i = 0; i < original_.steps.size(); ++i) {
            const Step &step = original_.steps[i];
            if (step.value != nullptr && last[step.value] == i && substitute_for(*step.value, step.uses) != nullptr)
                candidates.push_back({step.value, i});
        }
        return candidates;
    }

    /// Moves the candidates that decide what the plug-in does from one list to the other.
    void remove_deciding(std::vector<Candidate> &candidates, std::vector<Candidate> &deciding) const
    {
        while (!candidates.empty() && deciding.size() < most_deciding && !comparable(original_, run(candidates))) {
            // The shortest beginning of the list that changes the course ends with one that does.
            std::size_t unchanged = 0;
            std::size_t changed = candidates.size();
            while (changed - unchanged > 1) {
                const std::size_t middle = (unchanged + changed) / 2;
                const std::vector<Candidate> beginning(candidates.begin(),
                                                       candidates.begin() + static_cast<std::ptrdiff_t>(middle));
                (comparable(original_, run(beginning)) ? unchanged : changed) = middle;
            }
            const Candidate found = candidates[unchanged];
            deciding.push_back(found);
            std::erase_if(candidates, [&](const Candidate &candidate) {
                return candidate.value == found.value || both_skipped(candidate, found);
            });
        }
        if (deciding.size() == most_deciding)
            candidates.clear();
    }

    /// Whether two values are elements of one list that are no strings, or empty ones: when the plug-in skips one, it
    /// skips the other.
    static bool both_skipped(const Candidate &one, const Candidate &two)
    {
        const auto has_no_string = [](const Value &value) { return value.key == nullptr && value.string.empty(); };
        return one.value->parent == two.value->parent && has_no_string(*one.value) && has_no_string(*two.value);
    }

    /// In the k-th of a few calls those values are others whose numbers have the k-th bit. So a byte that is another in
    /// just the calls of a number's bits belongs to the value of this number.
    void locate_by_groups(const std::vector<Candidate> &candidates,
                          Substitutes (Locator::*others)(const std::vector<Candidate> &changed) const)
    {
        std::vector<std::size_t> numbers(original_.image.bytes().size());
        for (std::size_t bit = 0; bit < std::bit_width(candidates.size()); ++bit) {
            std::vector<Candidate> group;
            for (std::size_t i = 0; i < candidates.size(); ++i) {
                if (((i + 1) >> bit & 1U) != 0)
                    group.push_back(candidates[i]);
            }
            const Run changed = run((this->*others)(group));
            if (!comparable(original_, changed))
                return;
            for (const std::size_t place : differences(original_.image, changed.image))
                numbers[place] |= std::size_t{1} << bit;
        }
        for (std::size_t place = 0; place < numbers.size(); ++place) {
            if (numbers[place] != 0 && numbers[place] <= candidates.size())
                add_place(original_.steps[candidates[numbers[place] - 1].step], original_.image, place);
        }
    }

    /// A value with which the plug-in does something else: what it stores at once, or else under the value's own name.
    void locate_alone(const Candidate &candidate)
    {
        Step &step = original_.steps[candidate.step];
        const Image before = image_after(candidate.step, {});
        const Image after = image_after(candidate.step, substitutes_for({candidate}));
        if (before.same_shape(after)) {
            for (const std::size_t place : differences(before, after))
                add_place(step, before, place);
        }
        const json_int_t tried = step.uses.contains(Use::integer) ? most_tried : 0;
        for (json_int_t other = 0; other <= tried; ++other) {
            Substitutes substitutes = substitutes_for({candidate});
            if (other != 0)
                substitutes[candidate.value].reset(json_integer(other));
            const Run changed = run(substitutes);
            step.decides = step.decides || !same_course(original_, changed);
            if (step.stored.empty() && original_.image.same_shape(changed.image))
                add_named(step, changed.image);
        }
    }

    /// Adds the field of the step's own name, when it is among those that are others in an image.
    void add_named(Step &step, const Image &changed) const
    {
        for (const std::size_t place : differences(original_.image, changed)) {
            Step tried = step;
            add_place(tried, original_.image, place);
            if (!tried.stored.empty() && tried.stored.back().field->name == step.key)
                step.stored = std::move(tried.stored);
        }
    }

    /// Adds the field that a byte of an image belongs to, unless it is there already.
    void add_place(Step &step, const Image &image, std::size_t place) const
    {
        const Image::Block &block = image.block_at(place);
        const bool is_record = block.field == nullptr; // whose bytes are always the first
        const std::string &bytes = is_record ? original_.image.bytes() : image.bytes();
        std::string path = image.path(block);
        Stored stored{path, block.field, 0, bytes.substr(block.begin, block.size), std::nullopt};
        if (block.type != nullptr) {
            const std::optional<FieldPlace> field = place_in(*block.type, place - block.begin, step.key);
            if (!field)
                return;
            stored = {path.empty() ? field->path : path + "." + field->path, field->field, field->offset,
                      bytes.substr(block.begin + field->offset, field->size), std::nullopt};
        }
        stored.block = std::move(path);
        if (step.uses.empty())
            stored.boolean = stored.bytes.find_first_not_of('\0') != std::string::npos;
        if (std::ranges::find(step.stored, stored.path, &Stored::path) == step.stored.end())
            step.stored.push_back(std::move(stored));
    }

    /// The field that a byte of a struct belongs to. Of several alternatives the one that has a field of this name.
    static std::optional<FieldPlace> place_in(const RecordType &type, std::size_t offset, std::string_view name)
    {
        std::optional<FieldPlace> place = describe_bytes(type, offset, 1);
        if (!place || place->field->kind != FieldKind::alternatives)
            return place;
        for (const Field &alternative : place->field->record->fields) {
            if (alternative.record == nullptr)
                continue;
            const std::size_t begin = place->offset + alternative.offset;
            const std::optional<FieldPlace> inner = describe_bytes(*alternative.record, offset - begin, 1);
            if (inner && inner->field->name == name)
                return FieldPlace{place->path + "." + std::string(alternative.name) + "." + inner->path, inner->field,
                                  inner->index, begin + inner->offset, inner->size};
        }
        return place;
    }

    const RecordType &type_;
    const Registration &translators_;
    const Node &node_;
    const std::string &text_;
    const Positions &document_;
    Run original_;
};

} // namespace

bool Stored::is_integer() const
{
    return field->kind == FieldKind::unsigned_integer || field->kind == FieldKind::signed_integer;
}

std::int64_t Stored::integer() const
{
    const auto as = [this]<class Signed, class Unsigned>(Signed number, Unsigned same) {
        std::memcpy(&number, bytes.data(), sizeof number);
        std::memcpy(&same, bytes.data(), sizeof same);
        return field->kind == FieldKind::signed_integer ? std::int64_t{number} : static_cast<std::int64_t>(same);
    };
    switch (bytes.size()) {
    case sizeof(std::uint8_t):
        return as(std::int8_t{}, std::uint8_t{});
    case sizeof(std::uint16_t):
        return as(std::int16_t{}, std::uint16_t{});
    default:
        return as(std::int32_t{}, std::uint32_t{});
    }
}

std::string Stored::json() const
{
    if (boolean)
        return *boolean ? "true" : "false";
    if (is_integer())
        return std::to_string(integer());
    std::string text = string();
    Json json(json_text(text));
    while (!json) { // a string that was cut ends within a character
        text.pop_back();
        json.reset(json_text(text + "\uFFFD"));
    }
    return to_text(json);
}

std::string Step::pointer() const
{
    if (value != nullptr)
        return kelmora_host::pointer(*value);
    return kelmora_host::pointer(*parent) + "/" + (element ? std::to_string(index) : escaped_token(key));
}

namespace {

std::map<std::string, std::size_t, std::less<>> entries(const Image &image)
{
    std::map<std::string, std::size_t, std::less<>> entries;
    if (image.blocks().empty())
        return entries;
    const Image::Block &record = image.blocks().front();
    for (const Field &field : record.type->fields) {
        std::size_t count = 0;
        if (field.kind == FieldKind::chain) {
            count = static_cast<std::size_t>(std::ranges::count_if(
                image.blocks(), [&](const Image::Block &block) { return block.field == &field && block.parent == 0; }));
        } else if (field.kind == FieldKind::record && field.count != 0) {
            for (std::size_t i = 0; i < field.count; ++i) {
                const std::size_t begin = record.begin + field.offset + i * field.element_size();
                const std::string element = image.bytes().substr(begin, field.element_size());
                count += element.find_first_not_of('\0') != std::string::npos ? 1U : 0U;
            }
        } else {
            continue;
        }
        entries[std::string(field.name)] = count;
    }
    return entries;
}

} // namespace

Trace trace(const Resource &resource, const Registration &translators, const Node &node, const std::string &text,
            const Positions &document)
{
    Run run = Locator(resource, translators, node, text, document).locate();
    Node before = node;
    return {run.result,
            std::move(run.errors),
            std::move(run.steps),
            std::move(run.missing),
            entries(Image(before.record(), *record_type(resource.name))),
            entries(run.image)};
}

} // namespace kelmora_host
