#include "host/cli/cli.h"

#include "host/cli/commands.h"
#include "host/cli/diagnostics.h"
#include "host/plugin/plugin.h"

#include <CLI/CLI.hpp>
#include <exception>
#include <filesystem>
#include <optional>
#include <ostream>
#include <set>
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

struct Arguments {
    std::optional<std::string> plugin;
    std::string group;
    std::string resource;
    std::optional<std::string> id;
    std::string file = "-";
    bool json = false;
};

std::set<std::string> groups()
{
    std::set<std::string> groups;
    for (const Resource &resource : resources())
        groups.emplace(resource.group);
    return groups;
}

/// The program's arguments: what there is, and what was given once parse() is done.
struct CommandLine {
    CommandLine()
    {
        app.require_subcommand(1);
        for (CLI::App *command : {list, show, set})
            command->fallthrough(); // options of the whole program may stand behind the command, too
        app.footer(footer);
        app.set_version_flag("--version", std::string(program_name) + " " + std::string(Plugin::default_version),
                             "Print the version and exit");
        app.add_option("--plugin", given.plugin, "The plug-in to load, instead of the one beside this program")
            ->type_name("PATH");

        list->add_option("--group", given.group, "Only the resources of this group")
            ->type_name("GROUP")
            ->check(CLI::IsMember(groups()));
        list->add_flag("--json", given.json, "Print a JSON array of objects");

        add_resource(show);
        show->add_option("--id", given.id, "Only this record, as a JSON object")->type_name("ID");

        add_resource(set);
        set->add_option("FILE", given.file, "The document; the standard input when it is - or absent")->type_name("");
        set->add_option("--id", given.id, "The record to write into; the first one by default")->type_name("ID");
        set->add_flag("--json", given.json, "Print what became of the document as a JSON object");
    }

    void add_resource(CLI::App *command)
    {
        command->add_option("RESOURCE", given.resource, "The resource's name")->type_name("")->required();
    }

    Arguments given;
    CLI::App app{"Drives the plug-in libkelmora_json as a gateway would, on the records of a sample gateway.",
                 std::string(program_name)};
    CLI::App *list = app.add_subcommand("list", "List the resources whose translators the plug-in registers");
    CLI::App *show = app.add_subcommand("show", "Print a resource's records as JSON");
    CLI::App *set = app.add_subcommand("set", "Write a JSON document into a copy of a record and print that record");
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
    const Plugin plugin = load_plugin(given);
    out << (given.json ? list_as_json(given.group) + "\n" : list_as_table(given.group, plugin.version()));
}

void run_show(const Arguments &given, std::ostream &out, std::ostream &err)
{
    Gateway gateway = sample_gateway();
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
    Gateway gateway = sample_gateway();
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

std::string fault_of(const CLI::App &app, const CLI::ParseError &error)
{
    // An unknown command would be reported as the lack of one.
    const std::vector<std::string> unknown = app.remaining();
    return app.get_subcommands().empty() && !unknown.empty() ? "no command or option \"" + unknown.front() + "\""
                                                             : error.what();
}

Status dispatch(int argc, const char *const *argv, std::ostream &out, std::ostream &err)
{
    CommandLine line;
    try {
        line.app.parse(argc, argv);
    } catch (const CLI::ParseError &error) {
        if (error.get_exit_code() != 0)
            throw Failure(Status::usage, fault_of(line.app, error) + "; see kelmora-host --help");
        line.app.exit(error, out, err);
        return Status::done;
    }
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
