#include "host/cli/commands.h"

#include "host/cli/diagnostics.h"
#include "host/names.h"
#include "host/json.h"
#include "host/plugin/translate.h"

#include <algorithm>
#include <iomanip>
#include <iterator>
#include <set>
#include <sstream>

namespace kelmora_host {

namespace {

std::string_view text_of(Directions directions)
{
    switch (directions) {
    case Directions::to_only:
        return "to only";
    case Directions::from_only:
        return "from only";
    case Directions::both:
        break;
    }
    return "both";
}

/// What helps somebody who gave a name that is none of these: the similar ones, or else what there is.
std::string hint(std::string_view name, const std::vector<std::string> &names, const std::string &what_there_is)
{
    const std::vector<std::string> similar = similar_names(name, names);
    return "; " + (similar.empty() ? what_there_is : "similar: " + enumeration(similar));
}

std::vector<Resource> registered(std::string_view group)
{
    std::vector<Resource> found;
    for (const Resource &resource : resources()) {
        if (Registry::instance().find(resource.number) != nullptr && (group.empty() || resource.group == group))
            found.push_back(resource);
    }
    return found;
}

/// "number 5", "numbers 0, 5 and 20 to 22": three and more in a row as a range.
std::string numbers_of(const std::vector<Resource> &rows)
{
    std::vector<std::string> numbers;
    for (auto begin = rows.begin(); begin != rows.end();) {
        auto end = std::adjacent_find(begin, rows.end(),
                                      [](const Resource &a, const Resource &b) { return a.number + 1 != b.number; });
        end = end != rows.end() ? end + 1 : end;
        const bool as_range = end - begin > 2;
        numbers.push_back(std::to_string(begin->number) +
                          (as_range ? " to " + std::to_string((end - 1)->number) : std::string()));
        begin = as_range ? end : begin + 1;
    }
    return (rows.size() == 1 ? "number " : "numbers ") + enumeration(numbers);
}

std::string totals(const std::vector<Resource> &rows, std::string_view group, std::string_view plugin_version)
{
    std::ostringstream line;
    line << rows.size() << (rows.size() == 1 ? " pair" : " pairs") << (group.empty() ? "" : " of the group ") << group
         << " registered by libkelmora_json " << plugin_version;
    if (!rows.empty())
        line << ": " << numbers_of(rows);
    line << "\n";
    return line.str();
}

const Registration &translators_of(const Resource &resource)
{
    const Registration *registration = Registry::instance().find(resource.number);
    if (registration == nullptr)
        throw Failure(Status::environment, std::string(resource.name) + ": the plug-in registered no translators");
    return *registration;
}

std::string about(const DocumentError &error, std::string_view input_name)
{
    std::ostringstream text;
    text << input_name;
    if (error.place)
        text << ":" << error.place->line << ":" << error.place->column;
    return text.str();
}

std::string message(const DocumentError &error)
{
    if (error.place)
        return error.place->what.empty() ? error.error.message : error.error.message + ": " + error.place->what;
    if (error.error.source == program_name)
        return error.error.message; // of the host's own, so of no field
    return error.error.message + " (field \"" + error.error.field + "\", source \"" + error.error.source + "\")";
}

/// "00 7f ..." of the bytes.
std::string hexadecimal(const std::string &bytes)
{
    std::ostringstream text;
    text << std::hex << std::setfill('0');
    for (const char byte : bytes)
        text << (text.tellp() > 0 ? " " : "") << std::setw(2) << +static_cast<unsigned char>(byte);
    return text.str();
}

/// The error of a text that does not get as far as the plug-in.
Outcome refused(const std::string &message, const std::optional<Fault> &place)
{
    return {false, "", {{{"", message, std::string(program_name)}, place}}};
}

/// The record as JSON, where it is; NULL where it should be and is not.
json_t *record_of(const Outcome &outcome)
{
    if (outcome.record.empty())
        return json_null();
    return outcome.raw ? json_text(outcome.record) : json_loads(outcome.record.c_str(), 0, nullptr);
}

Json error_as_json(const DocumentError &error)
{
    Json object(json_object());
    json_object_set_new(object.get(), "field", json_text(error.error.field));
    json_object_set_new(object.get(), "message", json_text(error.error.message));
    json_object_set_new(object.get(), "source", json_text(error.error.source));
    if (error.place) {
        json_object_set_new(object.get(), "line", json_integer(error.place->line));
        json_object_set_new(object.get(), "column", json_integer(error.place->column));
        if (!error.place->what.empty())
            json_object_set_new(object.get(), "detail", json_text(error.place->what));
    }
    return object;
}

} // namespace

const Resource &resource_named(std::string_view name)
{
    if (const Resource *resource = find_resource(name))
        return *resource;

    std::vector<std::string> names;
    for (const Resource &resource : resources())
        names.emplace_back(resource.name);
    throw Failure(Status::usage,
                  "no resource \"" + std::string(name) + "\"" + hint(name, names, "kelmora-host list names them all"));
}

std::vector<std::string> groups()
{
    std::set<std::string> groups;
    for (const Resource &resource : resources())
        groups.emplace(resource.group);
    return {groups.begin(), groups.end()};
}

void check_group(std::string_view name)
{
    const std::vector<std::string> all = groups();
    if (std::ranges::find(all, name) == all.end())
        throw Failure(Status::usage,
                      "no group \"" + std::string(name) + "\"" + hint(name, all, "the groups are " + enumeration(all)));
}

std::vector<Node> select_nodes(const Gateway &gateway, const Resource &resource, const std::optional<std::string> &id)
{
    const std::vector<Node> &all = gateway.nodes(resource.name);
    if (!id)
        return all;
    const auto found = std::ranges::find(all, *id, &Node::id);
    if (found != all.end())
        return {*found};
    std::vector<std::string> ids;
    std::ranges::transform(all, std::back_inserter(ids), [](const Node &node) { return std::string(node.id()); });
    const std::string what_there_is = ids.empty()       ? "the sample gateway has none"
                                      : ids.size() == 1 ? "the only one is " + ids.front()
                                                        : "there are " + enumeration(ids);
    throw Failure(Status::usage, std::string(resource.name) + " has no record of the id \"" + *id + "\"" +
                                     hint(*id, ids, what_there_is));
}

Node select_node(const Gateway &gateway, const Resource &resource, const std::optional<std::string> &id)
{
    const std::vector<Node> nodes = select_nodes(gateway, resource, id);
    if (nodes.empty())
        throw Failure(Status::usage, "the sample gateway has no record of " + std::string(resource.name));
    return nodes.front();
}

std::string list_as_table(std::string_view group, std::string_view plugin_version)
{
    std::ostringstream table;
    const auto row = [&table](auto number, std::string_view name, std::string_view directions, std::string_view in) {
        table << std::setw(6) << number << "  " << std::left << std::setw(32) << name << "  " << std::setw(10)
              << directions << "  " << in << std::right << "\n";
    };
    row("NUMBER", "RESOURCE", "DIRECTIONS", "GROUP");
    const std::vector<Resource> rows = registered(group);
    for (const Resource &resource : rows)
        row(resource.number, resource.name, text_of(resource.directions), resource.group);
    return table.str() + totals(rows, group, plugin_version);
}

std::string list_as_json(std::string_view group)
{
    const Json list(json_array());
    for (const Resource &resource : registered(group)) {
        Json object(json_object());
        json_object_set_new(object.get(), "number", json_integer(resource.number));
        json_object_set_new(object.get(), "resource", json_text(resource.name));
        json_object_set_new(object.get(), "directions", json_text(text_of(resource.directions)));
        json_object_set_new(object.get(), "group", json_text(resource.group));
        json_array_append_new(list.get(), object.release());
    }
    return to_text(list);
}

std::string show(const Resource &resource, std::vector<Node> &nodes, bool as_list)
{
    const bool raw = is_raw(resource) && resource.directions != Directions::from_only;
    const Encoded answer = to_json(translators_of(resource).to, nodes, as_list, raw ? raw_size : 0);
    if (answer.result == 1)
        return raw ? hexadecimal(answer.text) : answer.text;
    throw Failure(Status::rejected, std::string(resource.name) + ": the plug-in could not write it, out of memory");
}

std::string show_warning(const Resource &resource)
{
    if (resource.directions != Directions::from_only)
        return "";
    return warning_line(std::string(resource.name) + " is write-only: there is nothing to read") + "\n";
}

Outcome set(const Resource &resource, Node &node, const std::string &text)
{
    const bool raw = is_raw(resource);
    if (raw && text.size() != raw_size)
        return refused(std::string(resource.name) + " takes exactly " + std::to_string(raw_size) +
                           " raw bytes, no JSON; there are " + std::to_string(text.size()),
                       std::nullopt);
    if (const std::optional<Fault> nul = find_nul(text); nul && !raw)
        return refused(nul->what, Fault{nul->line, nul->column, ""});

    const Decoded answer = from_json(translators_of(resource).from, node, text);
    Outcome outcome{answer.result == 1, "", {}, raw};
    if (outcome.accepted) {
        std::vector<Node> nodes{node};
        outcome.record = show(resource, nodes, false);
    }
    for (const Error &error : answer.errors) {
        // The plug-in says that a text does not parse, but not why.
        const bool unparsed = error.field.empty() && error.message == "invalid json data";
        outcome.errors.push_back({error, unparsed ? find_parse_fault(text) : std::nullopt});
    }
    if (!outcome.accepted && outcome.errors.empty())
        return refused("rejected without an error", std::nullopt);
    return outcome;
}

std::string set_warning(const Resource &resource)
{
    const std::string name(resource.name);
    switch (resource.directions) {
    case Directions::to_only:
        return warning_line(name + " is read-only: the plug-in ignores what is written") + "\n";
    case Directions::from_only:
        return warning_line(name + " is write-only: there is nothing to read back") + "\n";
    case Directions::both:
        break;
    }
    return "";
}

std::string errors_as_lines(const Outcome &outcome, std::string_view input_name)
{
    std::string lines;
    for (const DocumentError &error : outcome.errors)
        lines += (outcome.accepted ? warning_line(message(error), about(error, input_name))
                                   : error_line(about(error, input_name), message(error))) +
                 "\n";
    return lines;
}

std::string outcome_as_json(const Outcome &outcome)
{
    const Json object(json_object());
    json_object_set_new(object.get(), "accepted", json_boolean(outcome.accepted));
    if (outcome.accepted) {
        json_t *record = record_of(outcome);
        if (record == nullptr)
            throw Failure(Status::rejected, "what the plug-in wrote is no JSON: " + outcome.record);
        json_object_set_new(object.get(), "record", record);
    }
    if (!outcome.accepted || !outcome.errors.empty()) {
        json_t *errors = json_array();
        json_object_set_new(object.get(), "errors", errors);
        for (const DocumentError &error : outcome.errors)
            json_array_append_new(errors, error_as_json(error).release());
    }
    return to_text(object);
}

} // namespace kelmora_host
