#include "host/contract/contract.h"
#include "host/json.h"

namespace kelmora_host {

namespace {

std::string_view name_of(Directions directions)
{
    switch (directions) {
    case Directions::both:
        return "both";
    case Directions::to_only:
        return "to_only";
    case Directions::from_only:
        return "from_only";
    }
    return "";
}

std::string_view name_of(ListEffect effect)
{
    static constexpr std::string_view names[] = {"none",     "replaces",    "appends",
                                                 "prepends", "keeps_first", "overwrites"};
    return names[static_cast<std::size_t>(effect)];
}

std::string_view name_of(Excess excess)
{
    static constexpr std::string_view names[] = {"none", "cut", "ignored", "rejected"};
    return names[static_cast<std::size_t>(excess)];
}

std::string_view name_of(RootShape root)
{
    static constexpr std::string_view names[] = {"by_list_flag", "array", "object"};
    return names[static_cast<std::size_t>(root)];
}

std::string_view name_of(NodesShown nodes)
{
    static constexpr std::string_view names[] = {"counted", "all", "head", "head_repeated"};
    return names[static_cast<std::size_t>(nodes)];
}

/// A JSON object in the making. What is false, 0, empty or not there is left out.
class Object {
public:
    Object() : object_(json_object()) {}

    void put(const char *name, json_t *value) { json_object_set_new(object_.get(), name, value); }
    void add(const char *name, std::string_view text)
    {
        if (!text.empty())
            put(name, json_text(text));
    }
    void add(const char *name, bool flag)
    {
        if (flag)
            put(name, json_true());
    }
    void add_number(const char *name, std::size_t number)
    {
        if (number != 0)
            put(name, json_integer(static_cast<json_int_t>(number)));
    }
    void add(const char *name, const std::optional<std::size_t> &number)
    {
        if (number)
            put(name, json_integer(static_cast<json_int_t>(*number)));
    }
    template <class T, class Make> void add(const char *name, const std::vector<T> &values, Make make)
    {
        if (values.empty())
            return;
        json_t *array = json_array();
        for (const T &value : values)
            json_array_append_new(array, make(value));
        put(name, array);
    }

    [[nodiscard]] json_t *release() { return object_.release(); }

private:
    Json object_;
};

json_t *string_json(const std::string &text) { return json_text(text); }

json_t *condition_json(const Condition &condition)
{
    Object object;
    object.add("path", std::string_view(condition.path));
    object.add("field", std::string_view(condition.field));
    // Each value is a JSON text of its own.
    object.add("values", condition.values,
               [](const std::string &text) { return json_loads(text.c_str(), JSON_DECODE_ANY, nullptr); });
    object.add("except", condition.except);
    return object.release();
}

json_t *error_json(const Error &error)
{
    Object object;
    object.put("field", json_text(error.field));
    object.put("message", json_text(error.message));
    object.put("source", json_text(error.source));
    return object.release();
}

void add_error(Object &object, const char *name, const std::optional<Error> &error)
{
    if (error)
        object.put(name, error_json(*error));
}

json_t *field_json(const KeyField &field)
{
    Object object;
    object.put("path", json_text(field.path));
    object.put("type", json_text(field.type));
    object.put("offset", json_integer(static_cast<json_int_t>(field.offset)));
    object.put("size", json_integer(static_cast<json_int_t>(field.size)));
    object.add("meaning", field.meaning);
    return object.release();
}

json_t *input_key_json(const InputKey &key)
{
    Object object;
    object.put("path", json_text(key.path));
    object.put("type", json_text(name_of(key.type)));
    object.add("required", key.required);
    object.add("required_when", key.required_when, condition_json);
    object.add("looked_at_when", key.looked_at_when, condition_json);
    object.add("refused", key.refused);
    object.add("only_with", key.only_with, string_json);
    object.add_number("at_least_one", static_cast<std::size_t>(key.at_least_one));
    object.add("checked", key.checked);
    object.add("skipped", key.skipped);
    add_error(object, "absent", key.absent);
    add_error(object, "unfit", key.unfit);
    add_error(object, "out_of_size", key.out_of_size);
    add_error(object, "unknown", key.unknown);
    object.add("cleared_when_absent", key.cleared_when_absent);
    object.add("marked_when_absent", key.marked_when_absent);
    object.add_number("bits", key.bits);
    object.add("is_signed", key.is_signed);
    object.add("saturates", key.saturates);
    object.add("values", key.values,
               [](const std::string &text) { return json_loads(text.c_str(), JSON_DECODE_ANY, nullptr); });
    object.add("longest", key.longest);
    if (key.too_long != Excess::none)
        object.add("too_long", name_of(key.too_long));
    object.add("empty_is_skipped", key.empty_is_skipped);
    object.add("most", key.most);
    if (key.too_many != Excess::none)
        object.add("too_many", name_of(key.too_many));
    object.add_number("least", key.least);
    if (key.effect != ListEffect::none)
        object.add("effect", name_of(key.effect));
    object.add("empty_keeps", key.empty_keeps);
    object.add("fields", key.fields, field_json);
    object.add("also_sets", key.also_sets, field_json);
    return object.release();
}

json_t *output_key_json(const OutputKey &key)
{
    Object object;
    object.put("path", json_text(key.path));
    object.add("types", key.types, [](OutputType type) { return json_text(name_of(type)); });
    object.put("always", json_boolean(key.always));
    object.add("when", key.when, condition_json);
    object.add_number("bits", key.bits);
    object.add("is_signed", key.is_signed);
    object.add("longest", key.longest);
    object.add("most", key.most);
    object.add("values", key.values,
               [](const std::string &text) { return json_loads(text.c_str(), JSON_DECODE_ANY, nullptr); });
    object.add("id", key.id);
    object.add("like", std::string_view(key.like));
    object.add("fields", key.fields, field_json);
    return object.release();
}

/// A list that is there even when it is empty.
template <class T, class Make> json_t *list_json(const std::vector<T> &values, Make make)
{
    json_t *array = json_array();
    for (const T &value : values)
        json_array_append_new(array, make(value));
    return array;
}

} // namespace

std::string_view name_of(InputType type)
{
    static constexpr std::string_view names[] = {"boolean", "integer", "real", "number", "string",
                                                 "object",  "array",   "text", "any"};
    return names[static_cast<std::size_t>(type)];
}

std::string_view name_of(OutputType type)
{
    static constexpr std::string_view names[] = {"boolean", "integer", "real", "string", "object", "array"};
    return names[static_cast<std::size_t>(type)];
}

std::string contract_as_json(const Contract &contract)
{
    Object object;
    object.put("resource", json_text(contract.resource->name));
    object.put("group", json_text(contract.resource->group));
    object.put("number", json_integer(contract.resource->number));
    object.put("directions", json_text(name_of(contract.resource->directions)));
    if (contract.input) {
        Object input;
        input.put("keys", list_json(contract.input->keys, input_key_json));
        object.put("input", input.release());
    }
    if (contract.output) {
        Object output;
        output.put("root", json_text(name_of(contract.output->root)));
        output.put("nodes", json_text(name_of(contract.output->nodes)));
        output.add("sorted", contract.output->sorted);
        output.add("pretty", contract.output->pretty);
        output.add("empty_without_count", contract.output->empty_without_count);
        output.add("head_id", contract.output->head_id);
        output.put("keys", list_json(contract.output->keys, output_key_json));
        object.put("output", output.release());
    }
    const Json json(object.release());
    return to_text(json);
}

} // namespace kelmora_host
