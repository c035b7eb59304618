#include "host/contract/schema.h"

#include "host/contract/key_tree.h"
#include "host/json.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <limits>
#include <map>
#include <memory>
#include <new>
#include <set>
#include <stdexcept>

namespace kelmora_host {

namespace {

using InputTree = KeyTree<InputKey>;
using OutputTree = KeyTree<OutputKey>;

/// A value that is handed over to what holds it; NULL is only from want of memory.
json_t *taken(Json value)
{
    if (!value)
        throw std::bad_alloc();
    return value.release();
}

Json array() { return Json(json_array()); }
Json text(std::string_view value) { return Json(json_text(value)); }
Json integer(std::int64_t value) { return Json(json_integer(value)); }
Json size(std::size_t value) { return integer(static_cast<std::int64_t>(value)); }
Json boolean(bool value) { return Json(json_boolean(value)); }

void set(const Json &object, std::string_view name, Json value)
{
    json_object_set_new(object.get(), std::string(name).c_str(), taken(std::move(value)));
}

void append(const Json &array, Json value) { json_array_append_new(array.get(), taken(std::move(value))); }

bool is_empty(const Json &schema) { return json_is_object(schema.get()) && json_object_size(schema.get()) == 0; }

template <class... Values> Json list_of(Values... values)
{
    Json list = array();
    (append(list, std::move(values)), ...);
    return list;
}

Json with(std::string_view name, Json value)
{
    Json schema = new_object();
    set(schema, name, std::move(value));
    return schema;
}

/// Adds to the list that a schema has under a keyword, or will have.
void add_to(const Json &schema, const char *keyword, Json clause)
{
    json_t *list = json_object_get(schema.get(), keyword);
    if (list == nullptr) {
        json_object_set_new(schema.get(), keyword, taken(array()));
        list = json_object_get(schema.get(), keyword);
    }
    json_array_append_new(list, taken(std::move(clause)));
}

Json type(std::string_view name) { return with("type", text(name)); }

/// The one schema, or one that holds when any of several does.
Json any_of(std::vector<Json> schemas)
{
    if (schemas.size() == 1)
        return std::move(schemas.front());
    Json schema = new_object();
    for (Json &each : schemas)
        add_to(schema, "anyOf", std::move(each));
    return schema;
}

/// The integers that a field of so many bits holds; nothing is set for those of 64, as JSON has no others here.
void set_range(const Json &schema, unsigned bits, bool is_signed)
{
    if (bits == 0 || bits >= 64)
        return;
    const std::int64_t half = std::int64_t{1} << (bits - 1);
    set(schema, "minimum", integer(is_signed ? -half : 0));
    set(schema, "maximum", integer(is_signed ? half - 1 : half - 1 + half));
}

void set_length(const Json &schema, std::size_t longest)
{
    set(schema, "maxLength", size(longest));
    set(schema, "x-kelmora-max-bytes", size(longest));
}

void annotate(const Json &schema, const std::vector<KeyField> &fields)
{
    if (fields.empty())
        return;
    if (!fields.front().meaning.empty())
        set(schema, "description", text(fields.front().meaning));
    Json paths = array();
    for (const KeyField &field : fields)
        append(paths, text(field.path));
    set(schema, "x-kelmora-fields", std::move(paths));
}

Json error_as_json(const Error &error)
{
    Json json = new_object();
    set(json, "field", text(error.field));
    set(json, "message", text(error.message));
    set(json, "source", text(error.source));
    return json;
}

/// Whether it is what a field of zeros holds.
bool is_zero(const std::string &json) { return json == "false" || json == "0" || json == "\"\""; }

/// Documents that are taken.
class InputSchema {
public:
    InputSchema(const Input &input, bool lossless) : root_(key_tree(input.keys)), lossless_(lossless) { anchor(root_); }

    Json schema()
    {
        Json root = members(root_);
        // The root of a document is one of these two. An array has no keys.
        if (lossless_ || !accepts_empty(root_))
            set(root, "type", text("object"));
        else
            set(root, "type", list_of(text("object"), text("array")));
        if (!deciding_.empty()) {
            Json keys = array();
            for (const std::string &key : deciding_)
                append(keys, text(key));
            set(root, "x-kelmora-record-of-zeros", std::move(keys));
        }
        if (json_object_size(defs_.get()) != 0)
            set(root, "$defs", std::move(defs_));
        return root;
    }

private:
    /// A key that another one decides about, seen from the object that has both.
    struct Conditional {
        const InputTree *key;
        std::size_t depth; ///< of that object
    };

    // ---- conditions

    [[nodiscard]] bool has_conditions(const InputKey &key) const
    {
        return !key.required_when.empty() || is_conditional(key);
    }

    /// Whether other keys or the record decide what its value may be.
    [[nodiscard]] bool is_conditional(const InputKey &key) const
    {
        return !key.looked_at_when.empty() || (lossless_ && !key.only_with.empty());
    }

    static bool is_required(const InputKey &key) { return key.required || !key.required_when.empty(); }

    /// Files each conditional key under the innermost object that has it and all keys that decide about it.
    void anchor(const InputTree &tree)
    {
        for (const InputTree &child : tree.children) {
            if (child.key != nullptr && has_conditions(*child.key)) {
                const std::vector<std::string> own = tokens_of(child.path);
                std::size_t depth = own.size() - 1;
                for (const auto *conditions : {&child.key->required_when, &child.key->looked_at_when}) {
                    for (const Condition &condition : *conditions) {
                        if (!condition.field.empty())
                            deciding_.insert(condition.path);
                        if (!condition.path.empty())
                            depth = std::min(depth, common_depth(own, tokens_of(condition.path)));
                    }
                }
                for (const std::string &other : child.key->only_with)
                    depth = std::min(depth, common_depth(own, tokens_of(other)));
                conditionals_[pointer_to(own, depth)].push_back({&child, depth});
            }
            anchor(child);
        }
    }

    static std::size_t common_depth(const std::vector<std::string> &one, const std::vector<std::string> &other)
    {
        const std::size_t most = std::min(one.size(), other.size()) - 1;
        std::size_t depth = 0;
        while (depth < most && one[depth] == other[depth])
            ++depth;
        return depth;
    }

    static std::string pointer_to(const std::vector<std::string> &tokens, std::size_t depth)
    {
        std::string pointer;
        for (std::size_t i = 0; i < depth; ++i)
            pointer.append("/").append(tokens[i]);
        return pointer;
    }

    /// What a condition on the record is when the record is zeros.
    static bool holds_of_zeros(const Condition &condition)
    {
        return std::ranges::any_of(condition.values, is_zero) != condition.except;
    }

    /// What a condition is in an object that has none of the keys behind this path, where the record is zeros; false
    /// when a key elsewhere decides.
    static bool holds_when_empty(const Condition &condition, const std::string &path)
    {
        if (!condition.path.empty() && !condition.path.starts_with(path + "/"))
            return false;
        return condition.field.empty() ? condition.except : holds_of_zeros(condition);
    }

    static bool any_holds_when_empty(const std::vector<Condition> &conditions, const std::string &path)
    {
        return std::ranges::any_of(conditions, [&](const Condition &each) { return holds_when_empty(each, path); });
    }

    /// Whether an object without members is accepted at this place, and so any value that is no object.
    static bool accepts_empty(const InputTree &tree)
    {
        return std::ranges::none_of(tree.children, [&](const InputTree &child) {
            if (child.key == nullptr || child.name == "*")
                return false;
            const InputKey &key = *child.key;
            if (key.at_least_one != 0)
                return true;
            if (!is_required(key))
                return false;
            return (key.looked_at_when.empty() || any_holds_when_empty(key.looked_at_when, tree.path)) &&
                   (key.required_when.empty() || any_holds_when_empty(key.required_when, tree.path));
        });
    }

    /// The values of the deciding key that are read as one of these.
    static Json read_as(const InputTree *deciding, const std::vector<std::string> &values)
    {
        const InputKey *key = deciding != nullptr ? deciding->key : nullptr;
        std::vector<Json> schemas;
        for (const std::string &value : values) {
            if (value == "false") {
                schemas.push_back(with("not", with("const", boolean(true))));
            } else if (value == "0" && key != nullptr && key->type != InputType::boolean) {
                schemas.push_back(with("not", type("integer")));
                const bool wraps = key->bits != 0 && key->bits < 63 && !key->saturates;
                schemas.push_back(wraps ? with("multipleOf", integer(std::int64_t{1} << key->bits))
                                        : with("const", integer(0)));
            } else if (value == "\"\"") {
                schemas.push_back(with("not", type("string")));
                schemas.push_back(with("const", text("")));
            } else {
                schemas.push_back(with("enum", same_low_bits(key, value)));
            }
        }
        return any_of(std::move(schemas));
    }

    /// The value and, of an integer that is cut to its low bits, the nearest ones that are stored as it.
    static Json same_low_bits(const InputKey *key, const std::string &value)
    {
        Json values = list_of(Json(parsed(value)));
        if (key != nullptr && key->bits != 0 && key->bits < 62 && !key->saturates) {
            const std::int64_t number = std::strtoll(value.c_str(), nullptr, 10);
            const std::int64_t modulus = std::int64_t{1} << key->bits;
            append(values, integer(number - modulus));
            append(values, integer(number + modulus));
        }
        return values;
    }

    /// What an object is that has a key, behind the tokens from `depth` on, whose value is as this says.
    static Json has(const std::vector<std::string> &tokens, std::size_t depth, Json value)
    {
        for (std::size_t i = tokens.size(); i-- > depth;) {
            Json outer = type("object");
            set(outer, "required", list_of(text(tokens[i])));
            if (!is_empty(value))
                set(outer, "properties", with(tokens[i], std::move(value)));
            value = std::move(outer);
        }
        return value;
    }

    /// A condition, seen from the object that has the key behind the tokens from `depth` on. True or false when it is
    /// always or never so.
    Json condition_schema(const Condition &condition, std::size_t depth) const
    {
        const std::vector<std::string> tokens = tokens_of(condition.path);
        if (!condition.field.empty()) {
            if (tokens.empty() || !holds_of_zeros(condition))
                return boolean(holds_of_zeros(condition));
            return with("not", has(tokens, depth, new_object()));
        }
        if (condition.except && condition.values.empty())
            return boolean(true);
        Json is_so =
            has(tokens, depth,
                condition.values.empty() ? new_object() : read_as(find(root_, condition.path), condition.values));
        return condition.except ? with("not", std::move(is_so)) : std::move(is_so);
    }

    /// When one of the conditions holds; nothing when that is always so.
    std::optional<Json> one_of_conditions(const std::vector<Condition> &conditions, std::size_t depth) const
    {
        if (conditions.empty())
            return std::nullopt;
        std::vector<Json> schemas;
        for (const Condition &condition : conditions) {
            Json schema = condition_schema(condition, depth);
            if (json_is_true(schema.get()))
                return std::nullopt;
            if (!json_is_false(schema.get()))
                schemas.push_back(std::move(schema));
        }
        return schemas.empty() ? boolean(false) : any_of(std::move(schemas));
    }

    // ---- values

    /// What holds of a key's value, wherever it is there and looked at.
    Json value_schema(const InputTree &tree)
    {
        const InputKey *key = tree.key;
        if (key != nullptr && key->refused)
            return boolean(false);
        const bool is_list = tree.element() != nullptr || (key != nullptr && key->type == InputType::array);
        Json schema = is_list ? elements(tree) : tree.has_members() ? members(tree) : new_object();
        if (key == nullptr) {
            if (!is_list && (lossless_ || !accepts_empty(tree)))
                set(schema, "type", text("object"));
            return schema;
        }
        const bool members_needed = tree.has_members() && !accepts_empty(tree);
        const bool elements_needed = is_list && key->least > 0;
        if (lossless_ || key->checked || members_needed || elements_needed)
            set_type(schema, *key);
        const bool limited = key->too_long == Excess::rejected || (lossless_ && key->too_long != Excess::none);
        if (key->longest && limited)
            set_length(schema, *key->longest);
        if (lossless_ && key->empty_is_skipped)
            set(schema, "minLength", integer(1));
        if (lossless_)
            describe(schema, *key);
        return schema;
    }

    void set_type(const Json &schema, const InputKey &key) const
    {
        switch (key.type) {
        case InputType::boolean:
            set(schema, "type", text("boolean"));
            break;
        case InputType::integer:
            set(schema, "type", text("integer"));
            break;
        case InputType::real:
        case InputType::number:
            set(schema, "type", text(lossless_ && key.bits != 0 ? "integer" : "number"));
            if (key.type == InputType::real)
                set(schema, "x-kelmora-write-as", text("2.0, not 2"));
            break;
        case InputType::string:
            set(schema, "type", text("string"));
            break;
        case InputType::object:
            set(schema, "type", text("object"));
            break;
        case InputType::array:
            set(schema, "type", text("array"));
            break;
        case InputType::text:
            set(schema, "type", list_of(text("object"), text("array")));
            break;
        case InputType::any:
            break;
        }
        if (lossless_)
            set_range(schema, key.bits, key.is_signed);
    }

    static void describe(const Json &schema, const InputKey &key)
    {
        annotate(schema, key.fields);
        if (!key.values.empty()) {
            Json values = array();
            for (const std::string &value : key.values)
                append(values, Json(parsed(value)));
            set(schema, "x-kelmora-values", std::move(values));
        }
        if (key.absent)
            set(schema, "x-kelmora-error", error_as_json(*key.absent));
    }

    Json elements(const InputTree &list)
    {
        Json schema = new_object();
        const InputTree *element = list.element();
        Json each = element != nullptr ? value_schema(*element) : new_object();
        const InputKey *key = list.key;
        const bool limited = key != nullptr && key->most &&
                             (key->too_many == Excess::rejected || (lossless_ && key->too_many != Excess::none));
        if (key != nullptr && key->least > 0)
            set(schema, "minItems", size(key->least));
        if (limited)
            set(schema, "maxItems", size(*key->most));
        if (is_empty(each))
            return schema;
        if (limited || key == nullptr || !key->most || key->too_many == Excess::none) {
            set(schema, "items", std::move(each));
            return schema;
        }
        // Only the first ones are looked at.
        const std::string name = "element_of_" + list.name;
        set(defs_, name, std::move(each));
        const std::string reference = "#/$defs/" + name;
        set(schema, "if", with("maxItems", size(*key->most)));
        set(schema, "then", with("items", with("$ref", text(reference))));
        Json first = array();
        for (std::size_t i = 0; i < *key->most; ++i)
            append(first, with("$ref", text(reference)));
        set(schema, "else", with("prefixItems", std::move(first)));
        return schema;
    }

    Json members(const InputTree &tree)
    {
        Json schema = new_object();
        Json properties = new_object();
        Json required = array();
        std::map<int, std::vector<Json>> at_least_one;
        for (const InputTree &child : tree.children) {
            const InputKey *key = child.key;
            if (key == nullptr || !is_conditional(*key)) {
                Json value = value_schema(child);
                if (!is_empty(value))
                    set(properties, child.name, std::move(value));
            }
            if (key == nullptr)
                continue;
            if (key->required && !has_conditions(*key))
                append(required, text(child.name));
            if (key->at_least_one != 0)
                at_least_one[key->at_least_one].push_back(with("required", list_of(text(child.name))));
        }
        if (json_object_size(properties.get()) != 0)
            set(schema, "properties", std::move(properties));
        if (json_array_size(required.get()) != 0)
            set(schema, "required", std::move(required));
        for (auto &[number, keys] : at_least_one)
            add_to(schema, "allOf", any_of(std::move(keys)));
        if (const auto found = conditionals_.find(tree.path); found != conditionals_.end()) {
            for (const Conditional &conditional : found->second)
                add_conditional(schema, conditional);
        }
        return schema;
    }

    /// The conditions that all hold; nothing when there is none.
    static std::optional<Json> all_of(std::vector<std::optional<Json>> conditions)
    {
        std::vector<Json> there;
        for (std::optional<Json> &condition : conditions) {
            if (!condition)
                continue;
            if (json_is_false(condition->get()))
                return boolean(false);
            there.push_back(std::move(*condition));
        }
        if (there.empty())
            return std::nullopt;
        if (there.size() == 1)
            return std::move(there.front());
        Json all = new_object();
        for (Json &condition : there)
            add_to(all, "allOf", std::move(condition));
        return all;
    }

    /// What holds of a key that other keys decide about, as clauses of the object that has them all.
    void add_conditional(const Json &schema, const Conditional &conditional)
    {
        const InputKey &key = *conditional.key->key;
        const auto looked_at = [&] { return one_of_conditions(key.looked_at_when, conditional.depth); };
        if (is_conditional(key)) {
            std::vector<std::optional<Json>> conditions;
            conditions.push_back(looked_at());
            if (lossless_) {
                for (const std::string &other : key.only_with)
                    conditions.emplace_back(has(tokens_of(other), conditional.depth, new_object()));
            }
            Json value = value_schema(*conditional.key);
            if (!is_empty(value))
                add_clause(schema, conditional, all_of(std::move(conditions)),
                           with("properties", with(conditional.key->name, std::move(value))));
        }
        if (is_required(key)) {
            std::vector<std::optional<Json>> conditions;
            conditions.push_back(looked_at());
            conditions.push_back(one_of_conditions(key.required_when, conditional.depth));
            Json then = type("object");
            set(then, "required", list_of(text(conditional.key->name)));
            add_clause(schema, conditional, all_of(std::move(conditions)), std::move(then));
        }
    }

    void add_clause(const Json &schema, const Conditional &conditional, std::optional<Json> condition, Json then) const
    {
        const std::vector<std::string> tokens = tokens_of(conditional.key->path);
        for (std::size_t i = tokens.size() - 1; i-- > conditional.depth;)
            then = tokens[i] == "*" ? with("items", std::move(then))
                                    : with("properties", with(tokens[i], std::move(then)));
        if (!condition) {
            add_to(schema, "allOf", std::move(then));
        } else if (!json_is_false(condition->get())) {
            Json clause = with("if", std::move(*condition));
            set(clause, "then", std::move(then));
            add_to(schema, "allOf", std::move(clause));
        }
    }

    InputTree root_;
    bool lossless_;
    std::map<std::string, std::vector<Conditional>> conditionals_; ///< by the path of the object that has all
    std::set<std::string> deciding_; ///< keys without which the record decides; empty for where it does in any case
    Json defs_ = new_object();
};

std::string_view json_type_of(OutputType type) { return type == OutputType::real ? "number" : name_of(type); }

/// Strings that are not UTF-8 and reals that are not finite leave their key out.
bool may_be_left_out(const OutputKey &key)
{
    return !key.always || std::ranges::any_of(key.types, [](OutputType each) {
        return each == OutputType::string || each == OutputType::real;
    });
}

/// The form of a list's elements, for the lists within it that have the same.
std::string form_of(std::string_view list)
{
    std::string name = "element";
    for (const std::string &token : tokens_of(list))
        name.append(token == "*" ? "" : "_" + token);
    return name;
}

Json output_value(const OutputTree &tree);

Json output_members(const OutputTree &tree)
{
    Json schema = type("object");
    Json properties = new_object();
    Json required = array();
    for (const OutputTree &child : tree.children) {
        set(properties, child.name, output_value(child));
        if (child.key != nullptr && !may_be_left_out(*child.key))
            append(required, text(child.name));
    }
    set(schema, "properties", std::move(properties));
    if (json_array_size(required.get()) != 0)
        set(schema, "required", std::move(required));
    set(schema, "additionalProperties", boolean(false));
    return schema;
}

Json output_value(const OutputTree &tree)
{
    Json schema = new_object();
    const OutputTree *element = tree.element();
    if (element != nullptr) {
        set(schema, "type", text("array"));
        set(schema, "items", output_value(*element));
    } else if (tree.key != nullptr && !tree.key->like.empty()) {
        set(schema, "type", text("array"));
        set(schema, "items", with("$ref", text("#/$defs/" + form_of(tree.key->like))));
    } else if (!tree.children.empty()) {
        schema = output_members(tree);
    }
    if (tree.key == nullptr)
        return schema;
    const OutputKey &key = *tree.key;
    if (key.types.size() == 1) {
        set(schema, "type", text(json_type_of(key.types.front())));
    } else {
        Json types = array();
        for (const OutputType each : key.types)
            append(types, text(json_type_of(each)));
        set(schema, "type", std::move(types));
    }
    set_range(schema, key.bits, key.is_signed);
    if (key.longest)
        set_length(schema, *key.longest);
    if (key.most)
        set(schema, "maxItems", size(*key.most));
    if (key.id)
        set(schema, "description", text("the record's identifier"));
    annotate(schema, key.fields);
    if (key.always && may_be_left_out(key) && tree.name != "*")
        set(schema, "x-kelmora-always", boolean(true));
    return schema;
}

Json output_schema(const Output &output)
{
    const OutputTree tree = key_tree(output.keys);
    Json schema = new_object();
    const auto reference = [] { return with("$ref", text("#/$defs/record")); };
    const auto list = [&] {
        Json records = type("array");
        set(records, "items", reference());
        return records;
    };
    const auto nothing = [] {
        Json empty = type("object"); // there is no record
        set(empty, "maxProperties", integer(0));
        return empty;
    };
    switch (output.root) {
    case RootShape::by_list_flag:
        set(schema, "anyOf", list_of(reference(), list(), nothing()));
        break;
    case RootShape::array:
        schema = list();
        break;
    case RootShape::object: {
        Json shapes = list_of(reference(), nothing());
        if (output.empty_without_count)
            append(shapes, [] {
                Json empty = type("array");
                set(empty, "maxItems", integer(0));
                return empty;
            }());
        set(schema, "anyOf", std::move(shapes));
        break;
    }
    }
    Json defs = with("record", output_members(tree));
    for (const OutputKey &key : output.keys) {
        if (!key.like.empty())
            set(defs, form_of(key.like), output_value(*find(tree, key.like)->element()));
    }
    set(schema, "$defs", std::move(defs));
    return schema;
}

std::string_view description_of(Direction direction)
{
    switch (direction) {
    case Direction::output:
        return "What the plug-in writes. Strings that are not UTF-8 and reals that are not finite leave their key out.";
    case Direction::input:
        return "What the plug-in takes without a loss: nothing is cut, wrapped or of a wrong type.";
    case Direction::accept:
        break;
    }
    return "What the plug-in accepts, whatever of it is lost.";
}

/// The schema behind the head that says of what it is.
Json titled(const Contract &contract, Direction direction, const Json &schema)
{
    Json titled = new_object();
    const std::string name(contract.resource->name);
    set(titled, "$schema", text("https://json-schema.org/draft/2020-12/schema"));
    set(titled, "$id", text("urn:kelmora:" + name + ":" + std::string(name_of(direction))));
    set(titled, "title", text(name + ", " + std::string(name_of(direction))));
    set(titled, "description", text(description_of(direction)));
    json_object_update(titled.get(), schema.get());
    return titled;
}

} // namespace

std::string_view name_of(Direction direction)
{
    return direction == Direction::output ? "output" : direction == Direction::input ? "input" : "accept";
}

bool has_schema(const Contract &contract, Direction direction)
{
    if (is_raw(*contract.resource))
        return false;
    if (direction == Direction::output)
        return contract.output.has_value();
    return direction == Direction::accept || contract.input.has_value();
}

std::string schema(const Contract &contract, Direction direction)
{
    if (!has_schema(contract, direction))
        throw std::invalid_argument(std::string(contract.resource->name) + " has no documents of the direction " +
                                    std::string(name_of(direction)));
    Json schema = new_object(); // of a read-only resource, which accepts whatever comes
    if (direction == Direction::output)
        schema = output_schema(*contract.output);
    else if (contract.input)
        schema = InputSchema(*contract.input, direction == Direction::input).schema();
    const Json whole = titled(contract, direction, schema);
    const std::unique_ptr<char, decltype(&std::free)> lines(json_dumps(whole.get(), JSON_INDENT(2)), &std::free);
    if (!lines)
        throw std::bad_alloc();
    return std::string(lines.get()) + "\n";
}

} // namespace kelmora_host
