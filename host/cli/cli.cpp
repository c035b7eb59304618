#include "host/cli/cli.h"

#include "host/cli/commands.h"
#include "host/cli/diagnostics.h"
#include "host/cli/usage.h"
#include "host/plugin/plugin.h"

#include <CLI/CLI.hpp>
#include <exception>
#include <filesystem>
#include <jansson.h>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

namespace kelmora_host {

namespace {

constexpr const char *footer = R"(Examples:
  kelmora-host list --group wireless
  kelmora-host show wireless
  kelmora-host show radio --id radio1
  kelmora-host set radio --id radio0 examples/radio.json
  kelmora-host show radio --id radio1 | kelmora-host set radio --json

Exit status:
  0  done
  1  the document was rejected, or a record could not be written
  2  the command line is wrong: no such resource, record, command or option
  3  reserved
  4  the environment fails: the plug-in does not load, a file cannot be read,
     the output cannot be written)";

constexpr const char *show_footer =
    R"(Some documents are always arrays, also with --id: those of action,
factory_default, gem_port_stats, lan, neighbour_hosts and session.
Two are always objects: those of mirroring and parental_control.
backup_restore is no JSON: its 8 bytes are printed in hexadecimal.)";

struct Arguments {
    std::optional<std::string> plugin;
    std::optional<std::string> group;
    std::string resource;
    std::optional<std::string> id;
    std::string file = "-";
    bool json = false;
};

std::string group_footer()
{
    std::string text = "Groups:";
    for (const std::string &group : groups())
        text.append("\n  ").append(group);
    return text;
}

/// The program's arguments: what there is, and what was given once parse() is done.
struct CommandLine {
    CommandLine()
    {
        app.require_subcommand(1);
        for (CLI::App *command : {list, show, set}) {
            command->fallthrough(); // options of the whole program may stand behind the command, too
            command->group("Commands");
        }
        app.footer(footer);
        app.get_formatter()->column_width(18);
        app.get_formatter()->label("SUBCOMMAND", "COMMAND");
        app.get_formatter()->label("Positionals", "Arguments");
        app.get_formatter()->label("REQUIRED", "");
        app.set_version_flag("--version", std::string(program_name) + " " + std::string(Plugin::default_version),
                             "Print the version and exit");
        app.add_option("--plugin", given.plugin, "The plug-in to load, instead of the one beside this program")
            ->type_name("PATH");

        list->add_option("--group", given.group, "Only the resources of this group")->type_name("GROUP");
        list->footer(group_footer());
        add_json(list, "Print a JSON array of objects");

        add_resource(show);
        show->add_option("--id", given.id, "Only this record, as a JSON object instead of an array")->type_name("ID");
        show->footer(show_footer);

        add_resource(set);
        set->add_option("FILE", given.file, "The document; the standard input when it is - or absent")->type_name("");
        set->add_option("--id", given.id, "The record to write into; the first one by default")->type_name("ID");
        add_json(set, "Print what became of the document as a JSON object");
    }

    void add_resource(CLI::App *command)
    {
        command->add_option("RESOURCE", given.resource, "The resource's name")->type_name("")->required();
    }

    void add_json(CLI::App *command, const std::string &description)
    {
        command->add_flag("--json", given.json, description)->disable_flag_override();
    }

    Arguments given;
    CLI::App app{"Drives the plug-in libkelmora_json as a gateway would, on the records of a\nsample gateway.",
                 std::string(program_name)};
    CLI::App *list = app.add_subcommand("list", "List the resources whose translators the plug-in registers");
    CLI::App *show = app.add_subcommand("show", "Print a resource's records as JSON");
    CLI::App *set = app.add_subcommand("set", "Write a JSON document into a copy of a record, and print it");
};

Plugin load_plugin(const Arguments &given)
{
    try {
        return Plugin(given.plugin ? std::filesystem::path(*given.plugin) : Plugin::default_path());
    } catch (const PluginError &error) {
        throw Failure(Status::environment, error.what());
    }
}

void run_list(const Arguments &given, std::ostream &out)
{
    if (given.group)
        check_group(*given.group);
    const Plugin plugin = load_plugin(given);
    const std::string group = given.group.value_or("");
    out << (given.json ? list_as_json(group) + "\n" : list_as_table(group, plugin.version()));
}

void run_show(const Arguments &given, std::ostream &out, std::ostream &err)
{
    const Gateway gateway = sample_gateway();
    const Resource &resource = resource_named(given.resource);
    std::vector<Node> nodes = select_nodes(gateway, resource, given.id);
    load_plugin(given);

    const std::string text = show(resource, nodes, !given.id);
    err << show_warning(resource);
    if (!text.empty())
        out << text << "\n";
}

Status run_set(const Arguments &given, std::ostream &out, std::ostream &err)
{
    const Gateway gateway = sample_gateway();
    const Resource &resource = resource_named(given.resource);
    Node node = select_node(gateway, resource, given.id);
    const Input input = read_input(given.file);
    load_plugin(given);

    const Outcome outcome = set(resource, node, input.text);
    if (outcome.accepted)
        err << set_warning(resource);
    if (given.json)
        out << outcome_as_json(outcome) << "\n";
    else
        err << errors_as_lines(outcome, input.name);
    if (!given.json && !outcome.record.empty())
        out << outcome.record << "\n";
    return outcome.accepted ? Status::done : Status::rejected;
}

/// Throws Failure (usage) when a path is empty: no file has that name.
void check_paths(const CommandLine &line)
{
    if (line.given.plugin && line.given.plugin->empty())
        throw Failure(Status::usage, "the PATH of --plugin is empty" + see_help());
    if (line.given.file.empty())
        throw Failure(Status::usage, "the name of the FILE is empty" + see_help(line.set));
}

Status dispatch(int argc, const char *const *argv, std::ostream &out, std::ostream &err)
{
    CommandLine line;
    try {
        line.app.parse(argc, argv);
    } catch (const CLI::ParseError &error) {
        if (error.get_exit_code() != 0)
            throw Failure(Status::usage, usage_fault(line.app, error, {argv + 1, argv + argc}));
        line.app.exit(error, out, err);
        return Status::done;
    }
    check_paths(line);
    if (line.set->parsed())
        return run_set(line.given, out, err);
    if (line.show->parsed())
        run_show(line.given, out, err);
    else
        run_list(line.given, out);
    return Status::done;
}

Status dispatch_and_flush(int argc, const char *const *argv, std::ostream &out, std::ostream &err)
{
    const Status status = dispatch(argc, argv, out, err);
    if (!out.flush())
        throw Failure(Status::environment, "the output cannot be written");
    return status;
}

} // namespace

int run(int argc, const char *const *argv, std::ostream &out, std::ostream &err)
{
    Status status{};
    json_object_seed(0); // jansson's hashes, before they are used: at random, and before there are threads
    try {
        status = dispatch_and_flush(argc, argv, out, err);
    } catch (const Failure &failure) {
        err << failure.what() << "\n";
        status = failure.status();
    } catch (const std::exception &error) {
        err << error_line(program_name, error.what()) << "\n";
        status = Status::environment;
    }
    return static_cast<int>(status);
}

} // namespace kelmora_host
