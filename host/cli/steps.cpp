#include "host/cli/steps.h"

#include <algorithm>
#include <fmt/format.h>
#include <vector>

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

/// As what the value was read; a value that was not read at all, but stored, as a boolean.
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

std::string in_hexadecimal(std::string_view bytes)
{
    std::string text;
    for (const char byte : bytes)
        text += fmt::format("{:02x}", static_cast<unsigned char>(byte));
    return text;
}

/// The text, or its beginning when it is longer.
std::string shortened(std::string_view text, std::size_t width)
{
    std::string line(text.substr(0, text.find('\n')));
    if (line.size() == text.size() && line.size() <= width)
        return line;
    line.resize(std::min(line.size(), width - 3));
    while (!line.empty() && (static_cast<unsigned char>(line.back()) & 0xC0U) == 0x80U)
        line.pop_back();
    if (!line.empty() && (static_cast<unsigned char>(line.back()) & 0x80U) != 0)
        line.pop_back();
    return line + "...";
}

struct Row {
    std::string place;
    std::string pointer;
    std::string read;
    std::string found;
    std::string stored;
};

Row row_of(const Step &step)
{
    constexpr std::size_t widest = 32;
    Row row;
    row.pointer = step.pointer();
    row.read = fmt::format("{}", fmt::join(read_as(step), ", "));
    if (step.value == nullptr) {
        row.found = "absent";
        return row;
    }
    row.place = fmt::format("{}:{}", step.value->position.line, step.value->position.column);
    row.found = shortened(step.value->raw, widest);
    for (const Stored &stored : step.stored)
        row.stored +=
            fmt::format("{}{} = {}  (bytes {}..{})", row.stored.empty() ? "" : "; ", stored.path,
                        shortened(stored.json(), widest), stored.offset, stored.offset + stored.bytes.size() - 1);
    return row;
}

/// Code points: what a terminal shows as so many columns.
std::size_t width_of(const std::string &text)
{
    return static_cast<std::size_t>(
        std::ranges::count_if(text, [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U; }));
}

std::string padded(const std::string &text, std::size_t width)
{
    return text + std::string(width - std::min(width, width_of(text)), ' ');
}

void set(const Json &object, const char *key, json_t *value) { json_object_set_new(object.get(), key, value); }

json_t *parsed(const std::string &json) { return json_loads(json.c_str(), JSON_DECODE_ANY, nullptr); }

json_t *stored_as_json(const Stored &stored)
{
    Json object(json_object());
    set(object, "field", json_text(stored.path));
    set(object, "offset", json_integer(static_cast<json_int_t>(stored.offset)));
    set(object, "size", json_integer(static_cast<json_int_t>(stored.bytes.size())));
    set(object, "bytes", json_text(in_hexadecimal(stored.bytes)));
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

} // namespace

std::string steps_as_table(const Trace &trace, const Style &style)
{
    std::vector<Row> rows{{"PLACE", "LOOKED FOR", "READ AS", "FOUND", "STORED"}};
    for (const Step &step : trace.steps)
        rows.push_back(row_of(step));
    Row widest;
    const auto widen = [](std::string &column, const std::string &text) {
        column.resize(std::max(column.size(), width_of(text)));
    };
    for (const Row &row : rows) {
        widen(widest.place, row.place);
        widen(widest.pointer, row.pointer);
        widen(widest.read, row.read);
        widen(widest.found, row.found);
    }
    std::string table;
    for (const Row &row : rows) {
        std::string line = fmt::format("{}  {}  {}  {}  {}", padded(row.place, widest.place.size()),
                                       padded(row.pointer, widest.pointer.size()), padded(row.read, widest.read.size()),
                                       padded(row.found, widest.found.size()), row.stored);
        line.erase(line.find_last_not_of(' ') + 1);
        if (&row == &rows.front())
            line = style.heading(line);
        else if (row.found == "absent")
            line = style.faint(line);
        table += line + "\n";
    }
    for (const TracedError &traced : trace.errors) {
        const Error &error = traced.error;
        table += fmt::format("{} {} (field \"{}\", source \"{}\")\n", style.error("error:"), error.message, error.field,
                             error.source);
    }
    table += trace.result == 1 ? "accepted\n" : "rejected; what is stored above stays stored\n";
    return table;
}

Json steps_as_json(const Trace &trace, std::string_view file, std::string_view resource)
{
    Json object(json_object());
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

} // namespace kelmora_host
