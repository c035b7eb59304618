#include "host/contract/learn_lists.h"

#include "host/contract/learn_records.h"
#include "host/contract/pointer.h"
#include "host/gateway/blank.h"

#include <algorithm>

namespace kelmora_host {

namespace {

constexpr std::size_t most_elements = 20;  ///< lists of 0 up to so many elements are tried
constexpr std::size_t many_elements = 300; ///< and one of so many
constexpr std::size_t entries_before = 3;  ///< of a list that there is already

/// Whether an entry's bytes are still the mark: of a marked entry remains what no pointer and no padding is, and what
/// no element wrote.
bool is_marked(std::string_view entry, char mark)
{
    const auto marks = std::ranges::count(entry, mark);
    return marks != 0 && 2 * marks > std::ranges::count_if(entry, [](char byte) { return byte != '\0'; });
}

/// Whether an entry is one of those that hang_marked_chain made.
bool has_mark_of_chain(std::string_view entry)
{
    for (std::size_t i = 0; i < entries_before; ++i) {
        if (is_marked(entry, static_cast<char>(0xC1 + i)))
            return true;
    }
    return false;
}

} // namespace

/// The chain or array that the elements go into.
ListLearner::List ListLearner::list_of(const std::string &path) const
{
    const Answers home = keys_.at_home(path, keys_.at(path).good);
    const Probe probe = subject_.prober.probe(home, subject_.blank, true);
    const Probe none = subject_.prober.probe(keys_.at_home(path, given_array(0)), subject_.blank, true);
    for (const Image::Block &block : probe.image->blocks()) {
        const bool is_new = block.field != nullptr && block.type != nullptr &&
                            std::ranges::none_of(none.image->blocks(), [&](const Image::Block &each) {
                                return each.field == block.field && each.parent == block.parent;
                            });
        if (is_new)
            return {block.field, block.field->offset, true};
    }
    // No chain: an array of which the elements set some fields.
    Answers others = home;
    for (const std::string &each : within(path))
        others[each] = another_value(others[each], 7);
    const Probe other = subject_.prober.probe(others, subject_.blank, true);
    for (const KeyField &field : differing_fields(*probe.image, *other.image, path)) {
        for (const Field &each : subject_.type.fields) {
            if (each.count != 0 && field.offset >= each.offset && field.offset < each.offset + each.size)
                return {&each, each.offset, false};
        }
    }
    return {};
}

/// The keys of a list's elements that hold values.
std::vector<std::string> ListLearner::within(const std::string &list) const
{
    std::vector<std::string> paths;
    for (const auto &[path, known] : keys_.all) {
        if (is_within(path, list) && keys_.is_leaf(path))
            paths.push_back(path);
    }
    return paths;
}

void ListLearner::learn_list(InputKey &key) const
{
    learn_sizes(key);
    const List list = list_of(key.path);
    if (list.field == nullptr)
        return;
    key.fields.push_back(
        {std::string(list.field->name), list.field->type, list.offset, list.field->size, list.field->meaning});
    learn_effect(key, list);
    learn_absence(key, list);
    learn_slots(key, list);
}

void ListLearner::learn_sizes(InputKey &key) const
{
    std::vector<std::size_t> sizes;
    for (std::size_t size = 0; size <= most_elements; ++size)
        sizes.push_back(size);
    sizes.push_back(many_elements);
    bool any = false;
    for (const std::size_t size : sizes) {
        const Probe probe = subject_.prober.probe(keys_.at_home(key.path, given_array(size)), subject_.blank);
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

/// Gives a list that has entries a document with so many elements: of each entry afterwards, whether it was there
/// before.
std::vector<bool> ListLearner::old_entries(const InputKey &key, const List &list, std::size_t size) const
{
    const Answers answers = keys_.at_home(key.path, given_array(size));
    Record record = list.is_chain ? subject_.blank : subject_.poisoned;
    if (list.is_chain)
        hang_marked_chain(record, *list.field, entries_before);
    const Probe probe = subject_.prober.probe(answers, record, true);
    const std::string_view bytes = probe.image->bytes();
    std::vector<bool> old;
    if (list.is_chain) {
        for (const Image::Block &block : probe.image->blocks()) {
            if (block.field == list.field && block.parent == 0)
                old.push_back(has_mark_of_chain(bytes.substr(block.begin, block.size)));
        }
    } else {
        const std::size_t slot = list.field->element_size();
        for (std::size_t i = 0; i < list.field->count; ++i)
            old.push_back(is_marked(bytes.substr(list.offset + i * slot, slot), static_cast<char>(poisoned_byte)));
    }
    return old;
}

/// Fields of an array's slot that an element sets beside those of its keys.
void ListLearner::learn_slots(InputKey &key, const List &list) const
{
    if (list.is_chain || key.least != 0)
        return;
    const Probe one = subject_.prober.probe(keys_.at_home(key.path, given_array(0)), subject_.poisoned, true);
    const Probe two = subject_.prober.probe(keys_.at_home(key.path, given_array(1)), subject_.poisoned, true);
    std::vector<KeyField> fields = differing_fields(*one.image, *two.image, key.path);
    std::vector<std::string> paths = within(key.path);
    std::erase_if(fields, [&](const KeyField &field) {
        return std::ranges::any_of(paths, [&](const std::string &path) {
            const Given &good = keys_.at(path).good;
            const std::vector<KeyField> own = fields_.fields_between(path, good, another_value(good, 2));
            return std::ranges::find(own, field.path, &KeyField::path) != own.end();
        });
    });
    if (key.effect == ListEffect::overwrites)
        key.also_sets = std::move(fields);
}

void ListLearner::learn_effect(InputKey &key, const List &list) const
{
    const std::size_t size = std::max<std::size_t>(key.least, key.most ? std::min<std::size_t>(*key.most, 2) : 2);
    const std::vector<bool> old = old_entries(key, list, size);
    const auto kept = std::ranges::count(old, true);
    if (!list.is_chain) {
        key.effect = kept != 0 ? ListEffect::overwrites : ListEffect::replaces;
    } else if (kept == 0) {
        key.effect = ListEffect::replaces;
    } else if (static_cast<std::size_t>(kept) < entries_before) {
        key.effect = ListEffect::keeps_first;
    } else {
        key.effect = old.front() ? ListEffect::appends : ListEffect::prepends;
    }
    if (key.least == 0) {
        const std::vector<bool> by_empty = old_entries(key, list, 0);
        key.empty_keeps = !by_empty.empty() && std::ranges::count(by_empty, false) == 0;
    }
}

/// Whether a chain loses its entries when the key is absent.
void ListLearner::learn_absence(InputKey &key, const List &list) const
{
    if (key.required || !list.is_chain)
        return;
    Record record = subject_.blank;
    hang_marked_chain(record, *list.field, 1);
    const Probe absent = subject_.prober.probe(keys_.at_home(key.path, {}), record, true);
    if (absent.accepted)
        key.cleared_when_absent = absent.image->blocks().size() == 1;
}

bool ListLearner::skips_empty(const std::string &element) const
{
    const std::string path = parent_of(element);
    const List list = list_of(path);
    if (!list.is_chain)
        return false;
    const auto entries = [&](const std::string &second) {
        Answers answers = keys_.at_home(path, given_array(3));
        answers[std::string(path).append("/1")] = given_string(second);
        const Probe probe = subject_.prober.probe(answers, subject_.blank, true);
        return std::ranges::count(probe.image->blocks(), list.field, &Image::Block::field);
    };
    return entries("") < entries("2");
}

} // namespace kelmora_host
