#include "host/contract/learn_output.h"

#include "host/contract/learn_probe.h"
#include "host/contract/learn_records.h"
#include "host/gateway/blank.h"
#include "host/gateway/node.h"
#include "host/json.h"
#include "host/plugin/translate.h"

#include <algorithm>
#include <map>
#include <set>

namespace kelmora_host {

namespace {

constexpr std::int64_t any_other_stored = 0x7FFFFFFF; ///< stands for all others
constexpr std::size_t long_text = 5000;               ///< of texts that a pointer leads to
constexpr std::size_t chain_nodes = 2;
constexpr std::size_t most_texts = 4; ///< that a number turns into, for them to be told

/// The id of the node that records are written with.
constexpr std::string_view usual_id = "i";

struct ShownValue {
    OutputType type;
    std::string text; ///< as JSON
    std::int64_t integer = 0;
    std::size_t bytes = 0;    ///< of a string
    std::size_t elements = 0; ///< of a list

    bool operator==(const ShownValue &) const = default;
};

/// What one record came to: each path's values, in the order of the document.
using Values = std::map<std::string, std::vector<ShownValue>, std::less<>>;

class OutputLearner {
public:
    OutputLearner(const Resource &resource, const Registration &translators)
        : resource_(resource), type_(*record_type(resource.name)), translators_(translators)
    {
    }

    RootShape learn_root() const
    {
        if (json_is_array(document(three_nodes(), false, 2).json.get()))
            return RootShape::array;
        return json_is_array(document(three_nodes(), true, 2).json.get()) ? RootShape::by_list_flag : RootShape::object;
    }

    Output learn()
    {
        model_ = values(record());
        learn_shape();
        vary_id();
        vary_fields();
        vary_decided();
        vary_lists();
        for (const std::string &path : ordered()) {
            OutputKey &key = keys_[path];
            key.path = path;
            finish(key);
            if (!is_repeated(path))
                output_.keys.push_back(std::move(key));
        }
        return std::move(output_);
    }

private:
    /// A record in which every field is set, to a number of its own.
    [[nodiscard]] Record record(std::size_t nodes = chain_nodes) const
    {
        Record record = blank_record(resource_);
        hang_chains(record, type_, nodes);
        for (const Leaf &leaf : leaves(record, type_)) {
            const auto decided = decided_.find(leaf.path);
            store_number(leaf, decided != decided_.end() ? decided->second : 1);
        }
        return record;
    }

    struct Text {
        Json json;
        std::string text;
    };

    /// The document of some records, with a count of its own.
    [[nodiscard]] Text document(std::vector<Node> nodes, bool as_list, std::uint32_t count) const
    {
        OutputBuffer buffer;
        kelmora_resource *head = link_request(nodes, as_list);
        head->count = count;
        translators_.to(head, buffer.pointer());
        Text text{nullptr, buffer.bytes()};
        text.json.reset(json_loads(text.text.c_str(), JSON_DECODE_ANY, nullptr));
        return text;
    }

    [[nodiscard]] Values values(const Record &record, std::string_view id = usual_id)
    {
        std::vector<Node> nodes;
        nodes.emplace_back(id, record);
        const Text text = document(std::move(nodes), false, 1);
        Values values;
        const json_t *root = text.json.get();
        add(json_is_array(root) ? json_array_get(root, 0) : root, "", values);
        return values;
    }

    void add(const json_t *value, const std::string &path, Values &values)
    {
        const char *name = nullptr;
        json_t *member = nullptr;
        std::string previous;
        json_object_foreach(const_cast<json_t *>(value), name, member)
        {
            const std::string key = path + "/" + name;
            take_order(path, previous, key);
            values[key].push_back(value_of(member));
            add(member, key, values);
            previous = key;
        }
        for (std::size_t i = 0; i < json_array_size(value); ++i) {
            const json_t *element = json_array_get(value, i);
            const std::string key = path + "/*";
            take_order(path, "", key);
            values[key].push_back(value_of(element));
            add(element, key, values);
        }
    }

    static ShownValue value_of(const json_t *json)
    {
        ShownValue value{OutputType::boolean, "", 0, 0, 0};
        switch (json_typeof(json)) {
        case JSON_OBJECT:
            value.type = OutputType::object;
            return value;
        case JSON_ARRAY:
            value.type = OutputType::array;
            value.elements = json_array_size(json);
            return value;
        case JSON_STRING:
            value.type = OutputType::string;
            value.bytes = json_string_length(json);
            value.text = json_string_value(json);
            break;
        case JSON_INTEGER:
            value.type = OutputType::integer;
            value.integer = json_integer_value(json);
            value.text = std::to_string(value.integer);
            break;
        case JSON_REAL:
            value.type = OutputType::real;
            value.text = std::to_string(json_real_value(json));
            break;
        default:
            value.text = json_is_true(json) ? "true" : "false";
        }
        return value;
    }

    void take_order(const std::string &parent, const std::string &previous, const std::string &path)
    {
        std::vector<std::string> &siblings = members_[parent];
        if (std::ranges::find(siblings, path) != siblings.end())
            return;
        const auto behind = std::ranges::find(siblings, previous);
        siblings.insert(behind == siblings.end() ? siblings.begin() : behind + 1, path);
    }

    [[nodiscard]] std::vector<std::string> ordered() const
    {
        std::vector<std::string> paths;
        add_members("", paths);
        return paths;
    }

    void add_members(const std::string &parent, std::vector<std::string> &paths) const
    {
        const auto members = members_.find(parent);
        if (members == members_.end())
            return;
        for (const std::string &path : members->second) {
            paths.push_back(path);
            add_members(path, paths);
        }
    }

    // ---- the document as a whole

    [[nodiscard]] std::vector<Node> three_nodes() const
    {
        std::vector<Node> nodes;
        for (std::int64_t i = 0; i < 3; ++i) {
            Record record = blank_record(resource_);
            hang_chains(record, type_, 1);
            for (const Leaf &leaf : leaves(record, type_))
                store_number(leaf, i + 2);
            nodes.emplace_back(std::string(1, static_cast<char>('a' + i)), record);
        }
        return nodes;
    }

    void learn_shape()
    {
        const Text object = document(three_nodes(), false, 2);
        const Text list = document(three_nodes(), true, 2);
        output_.root = learn_root();
        output_.pretty = object.text.find('\n') != std::string::npos;
        output_.sorted = is_sorted(list.json.get());
        learn_nodes(list);
        const Text none = document(three_nodes(), false, 0);
        const bool counts = output_.nodes == NodesShown::counted || output_.nodes == NodesShown::head_repeated;
        output_.empty_without_count = none.text == "[]" && !(output_.root == RootShape::array && counts);
    }

    static bool is_sorted(const json_t *value)
    {
        const char *name = nullptr;
        json_t *member = nullptr;
        std::string previous;
        bool sorted = true;
        json_object_foreach(const_cast<json_t *>(value), name, member)
        {
            sorted = sorted && previous < name && is_sorted(member);
            previous = name;
        }
        for (std::size_t i = 0; i < json_array_size(value); ++i)
            sorted = sorted && is_sorted(json_array_get(value, i));
        return sorted;
    }

    /// From a request of three nodes that says it has two.
    void learn_nodes(const Text &list)
    {
        const std::string first = node_text(0);
        const std::string second = node_text(1);
        const std::string third = node_text(2);
        const json_t *root = list.json.get();
        const auto element = [&](std::size_t i) { return text_without_id(json_array_get(root, i)); };
        if (!json_is_array(root)) {
            const std::string shown = text_without_id(root);
            output_.nodes = shown == third ? NodesShown::all : shown == second ? NodesShown::counted : NodesShown::head;
            return;
        }
        switch (json_array_size(root)) {
        case 1:
            output_.nodes = NodesShown::head;
            break;
        case 2:
            output_.nodes = element(1) == first ? NodesShown::head_repeated : NodesShown::counted;
            break;
        default:
            output_.nodes = NodesShown::all;
        }
        const char *id = json_string_value(json_object_get(json_array_get(root, 1), "id"));
        const bool has_id = !json_equal(json_array_get(root, 1), other_id().get());
        output_.head_id = id != nullptr && has_id && *id == 'a' && element(1) == second;
    }

    /// The second of three nodes, had all the identifiers of their own.
    [[nodiscard]] Json other_id() const
    {
        std::vector<Node> nodes = three_nodes();
        std::vector<Node> one;
        one.push_back(std::move(nodes[1]));
        Text text = document(std::move(one), true, 1);
        return Json(json_incref(json_array_get(text.json.get(), 0)));
    }

    /// A node's object, written alone with an identifier that all share.
    [[nodiscard]] std::string node_text(std::size_t index) const
    {
        std::vector<Node> nodes = three_nodes();
        std::vector<Node> one;
        one.push_back(std::move(nodes[index]));
        const Text text = document(std::move(one), false, 1);
        const json_t *root = text.json.get();
        return text_without_id(json_is_array(root) ? json_array_get(root, 0) : root);
    }

    /// A node's object without strings of one letter, which only identifiers are.
    static std::string text_without_id(const json_t *object)
    {
        const Json copy(json_deep_copy(object));
        const char *name = nullptr;
        json_t *member = nullptr;
        void *next = nullptr;
        json_object_foreach_safe(copy.get(), next, name, member)
        {
            const char *text = json_string_value(member);
            if (text != nullptr && text[0] >= 'a' && text[0] <= 'c' && text[1] == '\0')
                json_object_del(copy.get(), name);
        }
        return copy ? to_text(copy) : "";
    }

    // ---- the keys

    void vary_id()
    {
        const std::string long_id(1000, 'x');
        for (const auto &[path, changed] : values(record(), long_id)) {
            const auto before = model_.find(path);
            if (before == model_.end() || changed == before->second || changed.front().type != OutputType::string)
                continue;
            keys_[path].id = true;
            keys_[path].longest = changed.front().bytes;
        }
    }

    /// Every field with other values, one at a time.
    void vary_fields()
    {
        take(model_);
        Record model = record();
        const std::vector<Leaf> all = leaves(model, type_);
        for (std::size_t i = 0; i < all.size(); ++i) {
            const FieldKind kind = all[i].field->kind;
            if (kind == FieldKind::bytes)
                continue;
            if (kind == FieldKind::string || kind == FieldKind::string_pointer)
                vary_text(i, all[i]);
            else if (kind == FieldKind::real)
                vary_real(i, all[i]);
            else
                vary_integer(i, all[i]);
        }
        vary_missing_texts(all);
    }

    /// The same with the numbers with which there are keys that there were not yet.
    void vary_decided()
    {
        const Values usual = model_;
        const auto deciding = std::move(deciding_);
        for (const auto &[path, number] : deciding) {
            decided_ = {{path, number}};
            model_ = values(record());
            vary_fields();
        }
        decided_.clear();
        model_ = usual;
    }

    void vary_text(std::size_t i, const Leaf &leaf)
    {
        const std::size_t size = leaf.field->kind == FieldKind::string ? leaf.size : long_text;
        for (const std::string &text : {std::string(size, 'x'), std::string()}) {
            Record changed = record();
            store_text(leaves(changed, type_)[i], text);
            join(values(changed), leaf);
        }
        note_text_condition(leaf);
    }

    /// Which keys are not there when a field is empty in all its places.
    void note_text_condition(const Leaf &leaf)
    {
        if (!conditions_taken_.insert(leaf.path).second)
            return;
        Record changed = record();
        for (const Leaf &each : leaves(changed, type_)) {
            if (each.path == leaf.path)
                store_text(each, "");
        }
        const Values now = values(changed);
        for (const auto &[path, values] : model_) {
            const std::string parent = path.substr(0, path.rfind('/'));
            if (now.contains(path) || (model_.contains(parent) && !now.contains(parent)))
                continue;
            keys_[path].when.push_back({"", leaf.path, {"\"\""}, true});
            keys_[path].always = false;
        }
    }

    void vary_real(std::size_t i, const Leaf &leaf)
    {
        Record changed = record();
        store_number(leaves(changed, type_)[i], 77);
        join(values(changed), leaf);
    }

    void vary_integer(std::size_t i, const Leaf &leaf)
    {
        std::map<std::int64_t, std::set<std::string>> paths;
        std::set<std::string> union_of_paths;
        for (const std::int64_t number : numbers()) {
            Record changed = record();
            store_number(leaves(changed, type_)[i], number);
            const Values now = values(changed);
            join(now, leaf);
            for (const auto &[path, values] : now) {
                paths[number].insert(path + ":" + std::to_string(values.size()));
                union_of_paths.insert(path);
            }
        }
        if (std::ranges::all_of(paths, [&](const auto &each) { return each.second == paths.begin()->second; }))
            return;
        note_conditions(leaf, i);
    }

    [[nodiscard]] static std::vector<std::int64_t> numbers()
    {
        std::vector<std::int64_t> numbers;
        for (std::int64_t number = 0; number <= most_varied; ++number)
            numbers.push_back(number);
        numbers.insert(numbers.end(), {any_other_stored, -1, -0x7FFFFFFF - 1});
        return numbers;
    }

    /// Which keys there are with which numbers in all places of a field.
    void note_conditions(const Leaf &leaf, std::size_t /*index*/)
    {
        if (!conditions_taken_.insert(leaf.path).second)
            return;
        std::map<std::string, std::vector<std::int64_t>> present;
        std::vector<std::int64_t> tried = numbers();
        tried.resize(static_cast<std::size_t>(most_varied) + 2); // up to the one that stands for all others
        for (const std::int64_t number : tried) {
            Record changed = record();
            for (const Leaf &each : leaves(changed, type_)) {
                if (each.path == leaf.path)
                    store_number(each, number);
            }
            const Values now = values(changed);
            take(now);
            bool is_new = false;
            for (const auto &[path, values] : now) {
                is_new = is_new || (!model_.contains(path) && !present.contains(path));
                present[path].push_back(number);
            }
            if (is_new)
                deciding_.emplace_back(leaf.path, number);
        }
        for (const auto &[path, with] : present) {
            if (with.size() == tried.size())
                continue;
            Condition condition{"", leaf.path, {}, false};
            condition.except = std::ranges::find(with, any_other_stored) != with.end();
            for (const std::int64_t number : tried) {
                const bool is_there = std::ranges::find(with, number) != with.end();
                if (is_there != condition.except)
                    condition.values.push_back(std::to_string(number));
            }
            // Members are where their object is.
            const std::string parent = path.substr(0, path.rfind('/'));
            if (!parent.empty() && present.contains(parent) && present.at(parent) == with)
                continue;
            keys_[path].when.push_back(std::move(condition));
            keys_[path].always = false;
        }
    }

    /// Texts that a pointer leads to may be none.
    void vary_missing_texts(const std::vector<Leaf> &all)
    {
        for (std::size_t i = 0; i < all.size(); ++i) {
            if (all[i].field->kind != FieldKind::string_pointer)
                continue;
            Record changed = blank_record(resource_);
            hang_chains(changed, type_, chain_nodes);
            const std::vector<Leaf> places = leaves(changed, type_);
            for (std::size_t other = 0; other < places.size(); ++other) {
                if (places[other].path != all[i].path)
                    store_number(places[other], 1);
            }
            const Values now = values(changed);
            take(now);
            for (const auto &[path, before] : model_) {
                if (!now.contains(path) && keys_[path].when.empty()) {
                    keys_[path].always = false;
                    keys_[path].when.push_back({"", all[i].path, {"null"}, true});
                }
            }
        }
    }

    /// Takes down of which types values are, and how large they get.
    void take(const Values &now)
    {
        for (const auto &[path, values] : now) {
            OutputKey &key = keys_[path];
            for (const ShownValue &value : values) {
                if (std::ranges::find(key.types, value.type) == key.types.end())
                    key.types.push_back(value.type);
                if (value.type == OutputType::string && !key.id)
                    key.longest = std::max(key.longest.value_or(0), value.bytes);
                if (value.type == OutputType::string && texts_[path].size() <= most_texts)
                    texts_[path].insert(value.text);
                if (value.type == OutputType::array)
                    elements_[path] = std::max(elements_[path], value.elements);
                key.is_signed = key.is_signed || (value.type == OutputType::integer && value.integer < 0);
            }
        }
    }

    /// Joins the keys whose values are others with the field that is another.
    void join(const Values &now, const Leaf &leaf)
    {
        take(now);
        for (const auto &[path, values] : now) {
            const auto before = model_.find(path);
            if (before == model_.end() || before->second == values || before->second.size() != values.size() ||
                values.front().type == OutputType::object || values.front().type == OutputType::array)
                continue;
            add_field(keys_[path], leaf);
        }
    }

    static void add_field(OutputKey &key, const Leaf &leaf)
    {
        const auto same = std::ranges::find(key.fields, leaf.path, &KeyField::path);
        if (same == key.fields.end())
            key.fields.push_back(key_field(leaf));
        else
            same->offset = std::min(same->offset, leaf.offset);
    }

    /// Chains of other lengths: which lists they are, and that they have no limit.
    void vary_lists()
    {
        const Values longer = values(record(chain_nodes + 1));
        const Values empty = values(record(0));
        for (const auto &[path, values] : longer) {
            if (values.front().type != OutputType::array)
                continue;
            const auto none = empty.find(path);
            const auto before = model_.find(path);
            const bool is_chain = before != model_.end() && before->second.front().elements < values.front().elements;
            if (!is_chain)
                keys_[path].most = elements_[path];
            if (none == empty.end() && keys_[path].when.empty() && path.find("/*") == std::string::npos)
                keys_[path].always = false;
        }
    }

    void finish(OutputKey &key)
    {
        std::ranges::sort(key.types);
        remove_alternatives(key);
        const std::string_view name = std::string_view(key.path).substr(key.path.rfind('/') + 1);
        std::stable_partition(key.fields.begin(), key.fields.end(), [name](const KeyField &field) {
            return field.path == name || field.path.ends_with("." + std::string(name));
        });
        const bool is_list = std::ranges::find(key.types, OutputType::array) != key.types.end();
        if (is_list)
            find_list_field(key);
        if (key.id || key.types.empty())
            return;
        const bool is_integer = std::ranges::find(key.types, OutputType::integer) != key.types.end();
        if (is_integer && !key.fields.empty())
            key.bits = static_cast<unsigned>(key.fields.front().size * 8);
        key.is_signed = key.is_signed && is_integer;
        const bool is_text = std::ranges::any_of(key.fields, [](const KeyField &field) {
            return field.type.starts_with("char") || field.type.find('*') != std::string_view::npos;
        });
        if (const std::set<std::string> &texts = texts_[key.path]; !is_text && texts.size() <= most_texts) {
            for (const std::string &text : texts)
                key.values.push_back(to_text(Json(json_text(text))));
        }
        // A text that a pointer leads to has no limit.
        if (!key.fields.empty() && key.fields.front().type.find('*') != std::string_view::npos)
            key.longest.reset();
    }

    /// Of fields that share bytes only those remain that the key's path names best.
    static void remove_alternatives(OutputKey &key)
    {
        const auto rank = [&key](const KeyField &field) {
            std::size_t steps = 0;
            std::string_view rest = key.path;
            while (!rest.empty()) {
                rest.remove_prefix(1);
                const std::string_view step = rest.substr(0, rest.find('/'));
                rest.remove_prefix(step.size());
                const std::string inner = "." + std::string(step);
                if (field.path.ends_with(inner) || field.path.find(inner + ".") != std::string::npos)
                    ++steps;
            }
            return steps;
        };
        const auto overlaps = [](const KeyField &one, const KeyField &two) {
            return one.path.rfind("[]") == two.path.rfind("[]") && one.offset < two.offset + two.size &&
                   two.offset < one.offset + one.size;
        };
        const std::vector<KeyField> all = key.fields;
        std::erase_if(key.fields, [&](const KeyField &field) {
            return std::ranges::any_of(
                all, [&](const KeyField &other) { return overlaps(field, other) && rank(other) > rank(field); });
        });
    }

    /// The chain or array behind a list, by the fields of its elements.
    void find_list_field(OutputKey &key) const
    {
        const auto lists = static_cast<std::size_t>(std::ranges::count(key.path, '*')) + 1;
        for (const auto &[path, element] : keys_) {
            if (!path.starts_with(key.path + "/*") || element.fields.empty())
                continue;
            if (std::optional<KeyField> field = list_field(element.fields.front().path, lists))
                key.fields = {std::move(*field)};
            return;
        }
    }

    /// The field of the n-th list on the way to a field.
    [[nodiscard]] std::optional<KeyField> list_field(std::string_view path, std::size_t n) const
    {
        const RecordType *type = &type_;
        std::string walked;
        std::size_t offset = 0;
        if (type_.is_node() && path.starts_with("[]."))
            path.remove_prefix(3);
        while (type != nullptr && !path.empty()) {
            const std::string_view step = path.substr(0, path.find('.'));
            const bool is_list = step.ends_with("[]");
            const std::string_view name = is_list ? step.substr(0, step.size() - 2) : step;
            const Field *field = type->find(name);
            if (field == nullptr)
                break;
            walked += name;
            if (is_list && --n == 0)
                return KeyField{walked, field->type, offset + field->offset, field->size, field->meaning};
            walked += is_list ? "[]." : ".";
            offset = field->kind == FieldKind::chain ? 0 : offset + field->offset;
            type = field->record;
            path.remove_prefix(std::min(path.size(), step.size() + 1));
        }
        return std::nullopt;
    }

    /// Whether a path lies within a list that repeats the form of the list that it is in; such lists say so.
    bool is_repeated(const std::string &path)
    {
        for (std::size_t at = path.find("/*/"); at != std::string::npos; at = path.find("/*/", at + 1)) {
            const std::string outer = path.substr(0, at);
            const std::string name = outer.substr(outer.rfind('/'));
            const std::string inner = std::string(outer).append("/*").append(name);
            if (path == inner && members_.contains(inner)) {
                OutputKey &key = keys_[path];
                key.like = outer;
                return false;
            }
            if (path.starts_with(inner + "/"))
                return true;
        }
        return false;
    }

    const Resource &resource_;
    const RecordType &type_;
    const Registration &translators_;
    Output output_;
    Values model_;
    std::map<std::string, OutputKey, std::less<>> keys_;
    std::map<std::string, std::vector<std::string>, std::less<>> members_;
    std::map<std::string, std::size_t, std::less<>> elements_;
    std::map<std::string, std::set<std::string>, std::less<>> texts_;
    std::set<std::string> conditions_taken_;
    std::map<std::string, std::int64_t> decided_; ///< numbers of fields in all records to come
    std::vector<std::pair<std::string, std::int64_t>> deciding_;
};

} // namespace

RootShape learn_root(const Resource &resource, const Registration &translators)
{
    return OutputLearner(resource, translators).learn_root();
}

Output learn_output(const Resource &resource, const Registration &translators)
{
    return OutputLearner(resource, translators).learn();
}

} // namespace kelmora_host
