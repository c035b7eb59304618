#include "host/cli/commands.h"

#include "host/cli/describe.h"
#include "host/cli/diagnostics.h"
#include "host/cli/layout.h"
#include "host/cli/steps.h"
#include "host/contract/key_places.h"
#include "host/contract/learned.h"
#include "host/contract/listing.h"
#include "host/contract/pointer.h"
#include "host/contract/syntax.h"
#include "host/contract/trace_json.h"
#include "host/contract/typescript.h"
#include "host/hexadecimal.h"
#include "host/json.h"
#include "host/names.h"
#include "host/plugin/plugin.h"
#include "host/plugin/translate.h"

#include <algorithm>
#include <filesystem>
#include <fmt/format.h>
#include <fstream>
#include <iomanip>
#include <iterator>
#include <set>
#include <sstream>

namespace kelmora_host {

namespace {

/// What helps somebody who gave a name that is none of these: the similar ones, or else what there is.
std::string hint(std::string_view name, const std::vector<std::string> &names, const std::string &what_there_is)
{
    const std::vector<std::string> similar = similar_names(name, names);
    return "; " + (similar.empty() ? what_there_is : "similar: " + enumeration(similar));
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

namespace {

std::vector<std::string> key_names(const std::vector<Contract> &contracts)
{
    std::set<std::string> names;
    const auto add = [&names](const auto &keys) {
        for (const auto &key : keys)
            names.insert(tokens_of(key.path).back());
    };
    for (const Contract &contract : contracts) {
        if (contract.input)
            add(contract.input->keys);
        if (contract.output)
            add(contract.output->keys);
    }
    return {names.begin(), names.end()};
}

} // namespace

std::string list_as_table(std::string_view group, std::string_view plugin_version)
{
    std::ostringstream table;
    const auto row = [&table](auto number, std::string_view name, std::string_view directions, std::string_view shape,
                              std::string_view in) {
        table << std::setw(6) << number << "  " << std::left << std::setw(32) << name << "  " << std::setw(10)
              << directions << "  " << std::setw(16) << shape << "  " << in << std::right << "\n";
    };
    row("NUMBER", "RESOURCE", "DIRECTIONS", "SHOWN AS", "GROUP");
    const std::vector<Resource> rows = registered(group);
    for (const Resource &resource : rows)
        row(resource.number, resource.name, words_of(resource.directions),
            shape_of(resource, root_of(resource, translators_of(resource))), resource.group);
    return table.str() + totals(rows, group, plugin_version);
}

std::string show(const Resource &resource, std::vector<Node> &nodes, bool as_list)
{
    const bool raw = is_raw(resource) && resource.directions != Directions::from_only;
    const Encoded answer = to_json(translators_of(resource).to, nodes, as_list, raw ? raw_size : 0);
    if (answer.result == 1)
        return raw ? hexadecimal(answer.text, " ") : answer.text;
    throw Failure(Status::rejected, std::string(resource.name) + ": the plug-in could not write it, out of memory");
}

std::string show_warning(const Resource &resource)
{
    if (resource.directions != Directions::from_only)
        return "";
    return warning_line(std::string(resource.name) + " is write-only: there is nothing to show") + "\n";
}

CheckedFile check_document(const Resource &resource, const Node &node, const InputText &input)
{
    return {input.name, resource.name, check(resource, translators_of(resource), node, input.text), std::nullopt,
            is_raw(resource)};
}

CheckedFile try_document(const Resource &resource, Node &node, const InputText &input)
{
    CheckedFile checked = check_document(resource, node, input);
    if (checked.check.result != CheckResult::rejected) {
        from_json(translators_of(resource).from, node, input.text);
        std::vector<Node> nodes{node};
        checked.record = show(resource, nodes, false);
    }
    return checked;
}

std::string try_note(const Resource &resource)
{
    if (resource.directions != Directions::from_only)
        return "";
    return note_line(std::string(resource.name) + " is write-only: there is no record to show") + "\n";
}

std::string trace_document(const Resource &resource, const Node &node, const InputText &input, bool as_json,
                           const Style &style)
{
    const std::string name(resource.name);
    if (is_raw(resource))
        throw Failure(Status::rejected, name + " takes raw bytes, in which nothing is looked up");
    const std::optional<SyntaxError> nul = find_nul_byte(input.text);
    const std::optional<SyntaxError> error = nul ? nul : find_syntax_error(input.text);
    if (error)
        throw Failure(Status::rejected, error->what, place_in(input.name, error->position));
    const std::optional<Positions> document = Positions::parse(input.text);
    const Trace traced = trace(resource, translators_of(resource), node, input.text, *document);
    return as_json ? to_text(steps_as_json(traced, input.name, resource.name)) + "\n" : steps_as_table(traced, style);
}

std::string describe(const Resource &resource, bool as_json, const Style &style)
{
    const Contract &contract = learned(resource, translators_of(resource));
    return as_json ? contract_as_json(contract) + "\n" : contract_as_tables(contract, style);
}

std::string describe_key(const std::string &name, bool as_json, const Style &style)
{
    const std::vector<Contract> contracts = learned_contracts();
    std::string found = as_json ? key_places_as_json(contracts, name) : find_key(contracts, name, style);
    if (!found.empty())
        return found;
    throw Failure(Status::usage, "no resource has a key \"" + name + "\"" +
                                     hint(name, key_names(contracts), "kelmora-host describe RESOURCE shows its keys"));
}

std::string schema_of(const Resource &resource, Direction direction)
{
    const Contract &contract = learned(resource, translators_of(resource));
    if (has_schema(contract, direction))
        return schema(contract, direction);
    throw Failure(Status::usage, fmt::format("{} has no schema for {}: {}", resource.name, name_of(direction),
                                             is_raw(resource)                 ? "its documents are raw bytes, no JSON"
                                             : direction == Direction::output ? "it is write-only"
                                                                              : "it is read-only"));
}

void write_schemas(const std::string &folder)
{
    std::error_code error;
    std::filesystem::create_directories(folder, error);
    if (error)
        throw Failure(Status::environment, fmt::format("{} cannot be written: {}", folder, error.message()));
    for (const Contract &contract : learned_contracts()) {
        for (const Direction direction : {Direction::output, Direction::input, Direction::accept}) {
            if (!has_schema(contract, direction))
                continue;
            const std::string path =
                fmt::format("{}/{}.{}.schema.json", folder, contract.resource->name, name_of(direction));
            std::ofstream file(path);
            file << schema(contract, direction);
            if (!file.flush())
                throw Failure(Status::environment, path + " cannot be written");
        }
    }
}

std::string types() { return typescript(learned_contracts()); }

std::span<const Target> targets_named(const std::optional<std::string> &name)
{
    if (!name)
        return targets();
    if (const Target *target = find_target(*name))
        return {target, 1};
    std::vector<std::string> names;
    std::ranges::transform(targets(), std::back_inserter(names),
                           [](const Target &each) { return std::string(each.name); });
    throw Failure(Status::usage,
                  "no target \"" + *name + "\"" + hint(*name, names, "the targets are " + enumeration(names)));
}

std::string layouts(const Resource *resource, std::span<const Target> on, bool as_json, const Style &style)
{
    if (as_json)
        return (resource != nullptr ? layouts_as_json(*resource, on) : layouts_as_json(on)) + "\n";
    return resource != nullptr ? layouts_as_tables(*resource, on, style) : layouts_as_tables(on, style);
}

Examination examination_of(const std::filesystem::path &plugin, const std::vector<std::string> &suppliers)
{
    try {
        return examine(plugin, {suppliers.begin(), suppliers.end()});
    } catch (const PluginError &error) {
        throw Failure(Status::environment, error.what());
    } catch (const ElfError &error) {
        throw Failure(Status::environment, error.what());
    }
}

} // namespace kelmora_host
