#include "host/cli/usage.h"

#include "host/cli/diagnostics.h"
#include "host/names.h"

#include <algorithm>
#include <iterator>

namespace kelmora_host {

namespace {

const CLI::App *command_of(const CLI::App &app)
{
    const std::vector<CLI::App *> commands = app.get_subcommands();
    return commands.empty() ? nullptr : commands.front();
}

/// What the parser had no use for, in the order in which it was given: the parser has an order of its own.
std::vector<std::string> unexpected(const CLI::App &app, const std::vector<std::string> &arguments)
{
    std::vector<std::string> rest = app.remaining(true);
    std::vector<std::string> ordered;
    for (const std::string &argument : arguments) {
        if (const auto found = std::ranges::find(rest, argument); found != rest.end()) {
            rest.erase(found);
            ordered.push_back(argument);
        }
    }
    ordered.insert(ordered.end(), rest.begin(), rest.end());
    return ordered;
}

bool is_option(const std::string &argument) { return argument.size() > 1 && argument.front() == '-'; }

std::string similar(const std::string &name, const std::vector<std::string> &names)
{
    const std::vector<std::string> found = similar_names(name, names);
    return found.empty() ? "" : "; similar: " + enumeration(found);
}

std::vector<std::string> commands(const CLI::App &app)
{
    std::vector<std::string> names;
    for (const CLI::App *command : app.get_subcommands([](const CLI::App *) { return true; }))
        names.push_back(command->get_name());
    return names;
}

std::vector<std::string> long_names(const CLI::App &app)
{
    std::vector<std::string> names;
    for (const CLI::Option *option : app.get_options()) {
        for (const std::string &name : option->get_lnames())
            names.push_back("--" + name);
    }
    return names;
}

std::string misplaced_option(const CLI::App &app, const std::string &argument)
{
    const std::string name = argument.substr(0, argument.find('='));
    std::vector<std::string> names = long_names(app);
    const CLI::App *command = command_of(app);
    if (command == nullptr)
        return "no option " + in_quotes(name) + similar(name, names) + see_help();
    const std::vector<std::string> own = long_names(*command);
    if (std::ranges::find(own, name) != own.end())
        return name + " belongs behind the command" + see_help(command);
    names.insert(names.end(), own.begin(), own.end());
    return command->get_name() + " has no option " + in_quotes(name) + similar(name, names) + see_help(command);
}

std::string too_many(const std::vector<std::string> &arguments)
{
    std::vector<std::string> names;
    std::ranges::transform(arguments, std::back_inserter(names), in_quotes);
    return (names.size() == 1 ? "one argument" : std::to_string(names.size()) + " arguments") +
           " too many: " + enumeration(names);
}

std::string no_command(const CLI::App &app, const std::string &given)
{
    const std::vector<std::string> all = commands(app);
    const std::string near = similar(given, all);
    return (given.empty() ? "a command is missing" : "no command " + in_quotes(given)) +
           (near.empty() ? "; the commands are " + enumeration(all) : near) + see_help();
}

std::string misplaced(const CLI::App &app, const std::vector<std::string> &extra)
{
    const CLI::App *command = command_of(app);
    const auto option = std::ranges::find_if(extra, is_option);
    if (command == nullptr && option != extra.begin())
        return no_command(app, extra.front());
    return option != extra.end() ? misplaced_option(app, *option) : too_many(extra) + see_help(command);
}

/// What lacks where something that is required was not given.
std::string missing(const CLI::App &app)
{
    const CLI::App *command = command_of(app);
    if (command == nullptr)
        return no_command(app, "");
    for (const CLI::Option *option : command->get_options()) {
        if (option->get_required() && option->count() == 0)
            return option->get_name() + " is missing" + see_help(command);
    }
    return "";
}

/// What is wrong where one of the options has too many values, none, or one that it does not take.
std::string mismatch(const CLI::App &app, const CLI::App *command, const std::string &parser_says)
{
    for (const CLI::Option *option : app.get_options()) {
        const std::string name = option->get_name();
        if (option->get_expected_max() == 1 && option->count() > 1)
            return name + " is given more than once" + see_help(command);
        if (parser_says.starts_with(name + ":"))
            return name + " needs a value" + see_help(command);
        if (!option->get_lnames().empty() && parser_says.starts_with(option->get_lnames().front() + " "))
            return name + " takes no value" + see_help(command);
    }
    return "";
}

/// What is wrong, with where to read on; empty when the parser's words have to do.
std::string fault_of(const CLI::App &app, const CLI::ParseError &error, const std::vector<std::string> &arguments)
{
    // An unknown command would be reported as the lack of one.
    if (const std::vector<std::string> extra = unexpected(app, arguments); !extra.empty())
        return misplaced(app, extra);
    if (dynamic_cast<const CLI::RequiredError *>(&error) != nullptr)
        return missing(app);
    if (dynamic_cast<const CLI::ArgumentMismatch *>(&error) == nullptr)
        return "";
    const CLI::App *command = command_of(app);
    const std::string fault = command != nullptr ? mismatch(*command, command, error.what()) : "";
    return fault.empty() ? mismatch(app, nullptr, error.what()) : fault;
}

} // namespace

std::string see_help(const CLI::App *command)
{
    return "; see " + std::string(program_name) + (command != nullptr ? " " + command->get_name() : "") + " --help";
}

std::string usage_fault(const CLI::App &app, const CLI::ParseError &error, const std::vector<std::string> &arguments)
{
    const std::string fault = fault_of(app, error, arguments);
    return fault.empty() ? error.what() + see_help(command_of(app)) : fault;
}

} // namespace kelmora_host
