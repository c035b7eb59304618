#include "host/cli/cli.h"

#include "host/cli/commands.h"
#include "host/cli/diagnostics.h"
#include "host/cli/doctor.h"
#include "host/cli/pretty.h"
#include "host/cli/report.h"
#include "host/cli/serve.h"
#include "host/cli/style.h"
#include "host/cli/usage.h"
#include "host/contract/listing.h"
#include "host/json.h"
#include "host/plugin/plugin.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <exception>
#include <filesystem>
#include <jansson.h>
#include <optional>
#include <ostream>
#include <string>
#include <string_view>
#include <unistd.h>
#include <vector>

namespace kelmora_host {

namespace {

constexpr const char *footer = R"(Examples:
  kelmora-host list --group wireless
  kelmora-host show wireless
  kelmora-host show radio --id radio1
  kelmora-host check radio examples/radio.json
  kelmora-host try radio --id radio0 --pretty examples/radio.json
  kelmora-host trace radio examples/radio.json
  kelmora-host show radio --id radio1 | kelmora-host try radio --json
  kelmora-host describe radio
  kelmora-host describe --key ssid
  kelmora-host schema radio --direction input
  kelmora-host layout radio --target mips
  kelmora-host doctor --host ./my-host
  kelmora-host serve --port 8098

Exit status:
  0  done; of check: the documents are accepted, and nothing of them is lost
  1  a document is rejected, or a record could not be shown; of doctor:
     something is wrong with the plug-in
  2  the command line is wrong: no such resource, record, command or option
  3  of check: the documents are accepted, and something is lost
  4  the environment fails: the plug-in does not load, a file cannot be read,
     the output cannot be written, the port is in use)";

constexpr const char *show_footer =
    R"(Some documents are always arrays, also with --id: those of action,
factory_default, gem_port_stats, lan, neighbour_hosts and session.
Two are always objects: those of mirroring and parental_control.
backup_restore is no JSON: its 8 bytes are printed in hexadecimal.)";

constexpr const char *check_footer =
    R"(Findings have codes: cut, wrapped, wrong-type, unknown, read-only, ignored,
repeated, empty, not-an-object, entries. Notes do not change the exit status.)";

constexpr const char *serve_footer =
    R"(DIR/RESOURCE/ID.json is read into the record of that id, or into a new one; in
an ID a slash is %2F. What of it is lost or rejected is told as check tells it.
Only this machine can ask, and of other sites' pages those of ORIGIN.)";

constexpr const char *schema_footer =
    R"(Directions:
  output  what the plug-in writes
  input   what it takes without a loss: nothing is cut, wrapped or of a wrong
          type
  accept  what it accepts, whatever of it is lost)";

constexpr const char *layout_footer =
    R"(Targets:
  mips    32-bit big-endian MIPS
  x86-64  64-bit x86-64)";

constexpr const char *doctor_footer =
    R"(A plug-in for another machine is looked at, and not loaded. Each fault is a
line; the exit status is 1 when there are any. The functions of the C library
are not looked for in the files of --host.)";

struct Arguments {
    std::optional<std::string> plugin;
    std::optional<std::string> group;
    std::string resource;
    std::optional<std::string> id;
    std::optional<std::string> key;
    std::optional<std::string> direction;
    std::optional<std::string> folder;
    ServeArguments serve;
    std::string file = "-";
    std::vector<std::string> files{"-"}; ///< of the command that takes several
    std::optional<std::string> target;
    std::optional<std::string> examined; ///< the plug-in, where it stands behind the command
    std::vector<std::string> suppliers;  ///< of doctor: the program that is to load the plug-in, and its libraries
    bool header = false;
    bool json = false;
    bool pretty = false;
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
        for (CLI::App *command : {list, show, check, attempt, trace, describe, schema, types, layout, doctor, serve}) {
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
        add_pretty(show);
        show->footer(show_footer);

        add_resource(check);
        check->add_option("FILE", given.files, "The documents; the standard input when it is - or absent")
            ->type_name("");
        add_target_id(check);
        add_json(check, "Print a JSON object a line for each document");
        check->footer(check_footer);

        add_resource(attempt);
        add_file(attempt);
        add_target_id(attempt);
        add_pretty(attempt);
        add_json(attempt, "Print the record and the findings as a JSON object");

        add_resource(trace);
        add_file(trace);
        add_target_id(trace);
        add_json(trace, "Print the steps as a JSON object");

        CLI::Option *described = add_resource(describe)->required(false);
        described->excludes(
            describe->add_option("--key", given.key, "Where a key of this name, or with it in its name, stands")
                ->type_name("NAME"));
        add_json(describe, "Print a JSON object, or of --key a JSON array");

        CLI::Option *resource = add_resource(schema)->required(false);
        CLI::Option *direction =
            schema->add_option("--direction", given.direction, "Of the documents that it writes, takes or accepts")
                ->type_name("output|input|accept");
        schema->add_option("--all", given.folder, "Write all schemas into this folder")
            ->type_name("DIR")
            ->excludes(resource)
            ->excludes(direction);
        schema->footer(schema_footer);

        CLI::Option *laid_out = add_resource(layout)->required(false);
        CLI::Option *target =
            layout->add_option("--target", given.target, "On this target alone")->type_name("mips|x86-64");
        CLI::Option *as_json = add_json(layout, "Print a JSON object, or of all resources a JSON array");
        layout->add_flag("--header", given.header, "Print a C header of static assertions, for all targets")
            ->disable_flag_override()
            ->excludes(laid_out)
            ->excludes(target)
            ->excludes(as_json);
        layout->footer(layout_footer);

        doctor->add_option("PLUGIN", given.examined, "The plug-in; the one beside this program when it is absent")
            ->type_name("");
        doctor
            ->add_option("--host", given.suppliers,
                         "A program that is to load it, or a library which that loads: do they have the functions")
            ->type_name("PATH")
            ->allow_extra_args(false)
            ->take_all();
        add_json(doctor, "Print a JSON object");
        doctor->footer(doctor_footer);

        serve->add_option("--port", given.serve.port, "The port, 8098 by default; 0 for any that is free")
            ->type_name("PORT")
            ->check(CLI::Range(0, 65535));
        serve->add_option("--state", given.serve.state, "A folder of documents to begin with, over the samples")
            ->type_name("DIR");
        serve->add_option("--cors-origin", given.serve.cors_origin, "Pages of this origin may ask as well")
            ->type_name("ORIGIN");
        serve->footer(serve_footer);
    }

    void add_file(CLI::App *command)
    {
        command->add_option("FILE", given.file, "The document; the standard input when it is - or absent")
            ->type_name("");
    }

    void add_target_id(CLI::App *command)
    {
        command->add_option("--id", given.id, "The record that it is for; the first one by default")->type_name("ID");
    }

    void add_pretty(CLI::App *command)
    {
        command->add_flag("--pretty", given.pretty, "Print the record for a reader's eyes, over several lines")
            ->disable_flag_override();
    }

    CLI::Option *add_resource(CLI::App *command)
    {
        return command->add_option("RESOURCE", given.resource, "The resource's name")->type_name("")->required();
    }

    CLI::Option *add_json(CLI::App *command, const std::string &description)
    {
        return command->add_flag("--json", given.json, description)->disable_flag_override();
    }

    Arguments given;
    CLI::App app{"Drives the plug-in libkelmora_json as a gateway would, on the records of a\nsample gateway.",
                 std::string(program_name)};
    CLI::App *list = app.add_subcommand("list", "List the resources whose translators the plug-in registers");
    CLI::App *show = app.add_subcommand("show", "Print a resource's records as JSON");
    CLI::App *check = app.add_subcommand("check", "Tell what is wrong with documents, and what of them is lost");
    CLI::App *attempt = app.add_subcommand("try", "Have a copy of a record take a document, and print that record");
    CLI::App *trace = app.add_subcommand("trace", "Print every step of the plug-in's in a document");
    CLI::App *describe = app.add_subcommand("describe", "Tell what a resource writes and takes, key by key");
    CLI::App *schema = app.add_subcommand("schema", "Print a resource's JSON Schema");
    CLI::App *types = app.add_subcommand("types", "Print the TypeScript types of all resources");
    CLI::App *layout = app.add_subcommand("layout", "Tell how the C records are laid out");
    CLI::App *doctor = app.add_subcommand("doctor", "Tell whether a plug-in is right, and what it needs");
    CLI::App *serve = app.add_subcommand("serve", "Serve the sample gateway over HTTP, with a page for it");
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

/// Tells of a failure: a line for people, or for programs a JSON object, of a file where it has a name. file: NULL for
/// people.
void tell(const std::string &line, const std::string &message, Status status, const std::string *file,
          std::ostream &out, std::ostream &err)
{
    if (file == nullptr) {
        err << line << "\n";
        return;
    }
    const Json object(json_object());
    if (!file->empty())
        json_object_set_new(object.get(), "file", json_text(*file));
    json_object_set_new(object.get(), "error", json_text(message));
    json_object_set_new(object.get(), "status", json_integer(static_cast<json_int_t>(status)));
    out << to_text(object) << "\n";
}

/// Prints a record, when there is one.
void print_record(const std::string &record, const Arguments &given, std::ostream &out)
{
    if (!record.empty())
        out << (given.pretty ? pretty(record, Style::of(STDOUT_FILENO)) : record) << "\n";
}

void run_show(const Arguments &given, std::ostream &out, std::ostream &err)
{
    const Gateway gateway = sample_gateway();
    const Resource &resource = resource_named(given.resource);
    std::vector<Node> nodes = select_nodes(gateway, resource, given.id);
    load_plugin(given);

    const std::string text = show(resource, nodes, !given.id);
    err << show_warning(resource);
    print_record(text, given, out);
}

Status status_of(CheckResult result)
{
    switch (result) {
    case CheckResult::lossless:
        break;
    case CheckResult::lossy:
        return Status::lossy;
    case CheckResult::rejected:
        return Status::rejected;
    }
    return Status::done;
}

/// Of two the one that is worse news.
Status worse(Status one, Status two)
{
    static constexpr Status by_badness[] = {Status::done, Status::lossy, Status::rejected, Status::usage,
                                            Status::environment};
    return std::ranges::find(by_badness, one) < std::ranges::find(by_badness, two) ? two : one;
}

/// Checks one file and tells of it.
Status check_file(const std::string &file, const Resource &resource, const Node &node, const Arguments &given,
                  std::ostream &out)
{
    const CheckedFile checked = check_document(resource, node, read_input(file));
    out << (given.json ? to_text(as_json(checked)) + "\n" : diagnostics(checked, Style::of(STDOUT_FILENO)));
    return status_of(checked.check.result);
}

Status run_check(const Arguments &given, std::ostream &out, std::ostream &err)
{
    const Gateway gateway = sample_gateway();
    const Resource &resource = resource_named(given.resource);
    const Node node = select_node(gateway, resource, given.id);
    load_plugin(given);

    Status worst = Status::done;
    for (const std::string &file : given.files) {
        try {
            worst = worse(worst, check_file(file, resource, node, given, out));
        } catch (const Failure &failure) { // the other files count all the same
            tell(failure.what(), failure.message(), failure.status(), given.json ? &file : nullptr, out, err);
            worst = worse(worst, failure.status());
        }
    }
    return worst;
}

Status run_try(const Arguments &given, std::ostream &out, std::ostream &err)
{
    const Gateway gateway = sample_gateway();
    const Resource &resource = resource_named(given.resource);
    Node node = select_node(gateway, resource, given.id);
    const InputText input = read_input(given.file);
    load_plugin(given);

    const CheckedFile tried = try_document(resource, node, input);
    if (given.json) {
        try {
            out << to_text(as_json(tried)) << "\n";
        } catch (const UnreadableRecord &error) {
            throw Failure(Status::rejected, error.what());
        }
    } else {
        err << diagnostics(tried, Style::of(STDERR_FILENO));
        print_record(tried.record.value_or(""), given, out);
    }
    if (tried.record)
        err << try_note(resource);
    return tried.check.result == CheckResult::rejected ? Status::rejected : Status::done;
}

void run_trace(const Arguments &given, std::ostream &out)
{
    const Gateway gateway = sample_gateway();
    const Resource &resource = resource_named(given.resource);
    const Node node = select_node(gateway, resource, given.id);
    const InputText input = read_input(given.file);
    load_plugin(given);
    out << trace_document(resource, node, input, given.json, Style::of(STDOUT_FILENO));
}

void run_describe(const CommandLine &line, std::ostream &out)
{
    const Arguments &given = line.given;
    const Style style = Style::of(STDOUT_FILENO);
    if (given.key) {
        load_plugin(given);
        out << describe_key(*given.key, given.json, style);
        return;
    }
    if (given.resource.empty())
        throw Failure(Status::usage, "RESOURCE is missing, or --key" + see_help(line.describe));
    const Resource &resource = resource_named(given.resource);
    load_plugin(given);
    out << describe(resource, given.json, style);
}

void run_serve(const Arguments &given, std::ostream &out, std::ostream &err)
{
    load_plugin(given);
    serve(given.serve, out, err);
}

void run_types(const Arguments &given, std::ostream &out)
{
    load_plugin(given);
    out << types();
}

Direction direction_named(const std::optional<std::string> &name, const CLI::App *command)
{
    for (const Direction direction : {Direction::output, Direction::input, Direction::accept}) {
        if (name == name_of(direction))
            return direction;
    }
    throw Failure(Status::usage, "--direction must be output, input or accept" + see_help(command));
}

void run_schema(const CommandLine &line, std::ostream &out)
{
    const Arguments &given = line.given;
    if (given.folder) {
        load_plugin(given);
        write_schemas(*given.folder);
        return;
    }
    if (given.resource.empty())
        throw Failure(Status::usage, "RESOURCE is missing, or --all" + see_help(line.schema));
    const Resource &resource = resource_named(given.resource);
    const Direction direction = direction_named(given.direction, line.schema);
    load_plugin(given);
    out << schema_of(resource, direction);
}

void run_layout(const Arguments &given, std::ostream &out)
{
    if (given.header) {
        out << layout_header();
        return;
    }
    const Resource *resource = given.resource.empty() ? nullptr : &resource_named(given.resource);
    out << layouts(resource, targets_named(given.target), given.json, Style::of(STDOUT_FILENO));
}

Status run_doctor(const CommandLine &line, std::ostream &out)
{
    const Arguments &given = line.given;
    if (given.plugin && given.examined)
        throw Failure(Status::usage, "the plug-in is given twice, as PLUGIN and by --plugin" + see_help(line.doctor));
    const std::optional<std::string> &plugin = given.plugin ? given.plugin : given.examined;
    const Examination examination =
        examination_of(plugin ? std::filesystem::path(*plugin) : Plugin::default_path(), given.suppliers);
    out << (given.json ? to_text(as_json(examination)) + "\n"
                       : examination_as_text(examination, Style::of(STDOUT_FILENO)));
    return examination.faults.empty() ? Status::done : Status::rejected;
}

/// Throws Failure (usage) when a path is empty: no file has that name.
void check_paths(const CommandLine &line)
{
    if (line.given.plugin && line.given.plugin->empty())
        throw Failure(Status::usage, "the PATH of --plugin is empty" + see_help());
    if (line.given.folder && line.given.folder->empty())
        throw Failure(Status::usage, "the DIR of --all is empty" + see_help(line.schema));
    const std::vector<std::string> &suppliers = line.given.suppliers;
    if (line.given.examined == "" || std::ranges::find(suppliers, "") != suppliers.end())
        throw Failure(Status::usage, "the name of a file is empty" + see_help(line.doctor));
    if (line.given.serve.state && line.given.serve.state->empty())
        throw Failure(Status::usage, "the DIR of --state is empty" + see_help(line.serve));
    const std::vector<std::string> &files = line.given.files;
    if (line.given.file.empty() || std::ranges::find(files, "") != files.end())
        throw Failure(Status::usage, "the name of the FILE is empty" + see_help(line.app.get_subcommands().front()));
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
    if (line.check->parsed())
        return run_check(line.given, out, err);
    if (line.attempt->parsed())
        return run_try(line.given, out, err);
    if (line.doctor->parsed())
        return run_doctor(line, out);
    if (line.trace->parsed())
        run_trace(line.given, out);
    else if (line.describe->parsed())
        run_describe(line, out);
    else if (line.schema->parsed())
        run_schema(line, out);
    else if (line.layout->parsed())
        run_layout(line.given, out);
    else if (line.types->parsed())
        run_types(line.given, out);
    else if (line.serve->parsed())
        run_serve(line.given, out, err);
    else if (line.show->parsed())
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
    const std::string no_file;
    const bool as_json = std::find(argv + 1, argv + argc, std::string_view("--json")) != argv + argc;
    json_object_seed(0); // jansson's hashes, before they are used: at random, and before there are threads
    try {
        status = dispatch_and_flush(argc, argv, out, err);
    } catch (const Failure &failure) {
        tell(failure.what(), failure.message(), failure.status(), as_json && out ? &no_file : nullptr, out, err);
        status = failure.status();
    } catch (const std::exception &error) {
        status = Status::environment;
        tell(error_line(program_name, error.what()), error.what(), status, as_json && out ? &no_file : nullptr, out,
             err);
    }
    return static_cast<int>(status);
}

} // namespace kelmora_host
