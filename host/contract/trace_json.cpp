#include "host/contract/trace_json.h"

#include "host/hexadecimal.h"

#include <algorithm>
#include <fmt/format.h>

namespace kelmora_host {

namespace {

std::string_view name_of(Use use)
{
    switch (use) {
    case Use::string:
        return "string";
    case Use::integer:
        return "integer";
    case Use::real:
        return "real";
    case Use::number:
        return "number";
    case Use::object:
        return "object";
    case Use::array:
        return "array";
    case Use::text:
        break;
    }
    return "text";
}

json_t *stored_as_json(const Stored &stored)
{
    Json object(json_object());
    set(object, "block", json_text(stored.block));
    set(object, "field", json_text(stored.path));
    set(object, "offset", json_integer(static_cast<json_int_t>(stored.offset)));
    set(object, "size", json_integer(static_cast<json_int_t>(stored.bytes.size())));
    set(object, "bytes", json_text(hexadecimal(stored.bytes)));
    set(object, "value", parsed(stored.json()));
    return object.release();
}

json_t *step_as_json(const Step &step)
{
    Json object(json_object());
    set(object, "pointer", json_text(step.pointer()));
    const Value &place = step.value != nullptr ? *step.value : *step.parent;
    set(object, "line", json_integer(place.position.line));
    set(object, "column", json_integer(place.position.column));
    set(object, "found", json_boolean(step.value != nullptr));
    json_t *uses = json_array();
    set(object, "read_as", uses);
    for (const std::string_view use : read_as(step))
        json_array_append_new(uses, json_text(use));
    if (step.value != nullptr)
        set(object, "value", parsed(std::string(step.value->raw)));
    json_t *stored = json_array();
    set(object, "stored", stored);
    for (const Stored &place_in_record : step.stored)
        json_array_append_new(stored, stored_as_json(place_in_record));
    return object.release();
}

/// A field that has no fields of its own, or an element of an array of such.
json_t *leaf_as_json(const Field &field, const std::string &path, std::size_t offset, std::size_t size)
{
    Json leaf(json_object());
    set(leaf, "name", json_text(path));
    set(leaf, "type", json_text(field.type));
    set(leaf, "offset", json_integer(static_cast<json_int_t>(offset)));
    set(leaf, "size", json_integer(static_cast<json_int_t>(size)));
    set(leaf, "meaning", json_text(field.meaning));
    return leaf.release();
}

void add_leaves(json_t *leaves, const RecordType &type, const std::string &prefix, std::size_t begin)
{
    for (const Field &field : type.fields) {
        const bool has_fields = field.kind == FieldKind::record || field.kind == FieldKind::alternatives;
        for (std::size_t i = 0; i < std::max<std::size_t>(field.count, 1); ++i) {
            std::string path = prefix + std::string(field.name);
            if (field.count != 0)
                path += fmt::format("[{}]", i);
            const std::size_t offset = begin + field.offset + i * field.element_size();
            if (has_fields)
                add_leaves(leaves, *field.record, path + ".", offset);
            else
                json_array_append_new(leaves, leaf_as_json(field, path, offset, field.element_size()));
        }
    }
}

json_t *block_as_json(const Image &image, const Image::Block &block)
{
    Json object(json_object());
    set(object, "path", json_text(image.path(block)));
    set(object, "type", json_text(block.type != nullptr ? fmt::format("struct {}", block.type->name) : "char"));
    set(object, "bytes", json_text(hexadecimal(std::string_view(image.bytes()).substr(block.begin, block.size))));
    json_t *leaves = json_array();
    set(object, "fields", leaves);
    if (block.type != nullptr)
        add_leaves(leaves, *block.type, "", 0);
    return object.release();
}

} // namespace

std::vector<std::string_view> read_as(const Step &step)
{
    std::vector<std::string_view> names;
    for (const Use use : {Use::string, Use::integer, Use::real, Use::number, Use::object, Use::array, Use::text}) {
        if (step.uses.contains(use))
            names.push_back(name_of(use));
    }
    if (names.empty() && !step.stored.empty())
        names.emplace_back("boolean");
    return names;
}

Json steps_as_json(const Trace &trace, std::string_view file, std::string_view resource)
{
    Json object(json_object());
    if (!file.empty())
        set(object, "file", json_text(file));
    set(object, "resource", json_text(resource));
    set(object, "accepted", json_boolean(trace.result == 1));
    json_t *steps = json_array();
    set(object, "steps", steps);
    for (const Step &step : trace.steps)
        json_array_append_new(steps, step_as_json(step));
    json_t *errors = json_array();
    set(object, "errors", errors);
    for (const TracedError &traced : trace.errors) {
        Json error(json_object());
        set(error, "field", json_text(traced.error.field));
        set(error, "message", json_text(traced.error.message));
        set(error, "source", json_text(traced.error.source));
        if (traced.step)
            set(error, "pointer", json_text(trace.steps[*traced.step].pointer()));
        json_array_append_new(errors, error.release());
    }
    return object;
}

json_t *image_as_json(const Image &image)
{
    Json object(json_object());
    json_t *blocks = json_array();
    set(object, "blocks", blocks);
    for (const Image::Block &block : image.blocks())
        json_array_append_new(blocks, block_as_json(image, block));
    return object.release();
}

} // namespace kelmora_host
