#include "host/cli/cli.h"

#include "kelmora_json.h"

#include <cstddef>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <initializer_list>
#include <ostream>
#include <sstream>
#include <streambuf>
#include <string>
#include <vector>

namespace {

int seeds = 0;

} // namespace

// The linker turns the host's calls over to this one.
extern "C" {
void __real_json_object_seed(size_t seed); // NOLINT(bugprone-reserved-identifier)
void __wrap_json_object_seed(size_t seed); // NOLINT(bugprone-reserved-identifier)

void __wrap_json_object_seed(size_t seed) // NOLINT(bugprone-reserved-identifier)
{
    ++seeds;
    __real_json_object_seed(seed);
}
}

namespace kelmora_host::cli_test {

namespace {

using ::testing::HasSubstr;

// What can be told without loading the plug-in. The rest is in cli_test.sh.

struct Ending {
    int status;
    std::string out;
    std::string err;

    bool operator==(const Ending &) const = default;
};

std::ostream &operator<<(std::ostream &stream, const Ending &ending)
{
    return stream << "status " << ending.status << ", out <" << ending.out << ">, err <" << ending.err << ">";
}

int run_on(std::initializer_list<const char *> arguments, std::ostream &out, std::ostream &err)
{
    std::vector<const char *> argv{"kelmora-host"};
    argv.insert(argv.end(), arguments);
    return run(static_cast<int>(argv.size()), argv.data(), out, err);
}

Ending run_with(std::initializer_list<const char *> arguments)
{
    std::ostringstream out;
    std::ostringstream err;
    const int status = run_on(arguments, out, err);
    return {status, out.str(), err.str()};
}

TEST(CommandLine, TellsItsVersion)
{
    EXPECT_EQ(run_with({"--version"}), (Ending{0, "kelmora-host " KELMORA_JSON_VERSION "\n", ""}));
}

TEST(CommandLine, HelpsWithExamplesAndExitStatuses)
{
    const Ending ending = run_with({"--help"});
    EXPECT_EQ(ending.status, 0);
    EXPECT_THAT(ending.out, HasSubstr("\nExamples:\n  kelmora-host list "));
    EXPECT_THAT(ending.out, HasSubstr("\nExit status:\n  0  done; of check: "));
    EXPECT_EQ(ending.err, "");
}

TEST(CommandLine, HelpsWithEachCommand)
{
    EXPECT_THAT(run_with({"list", "--help"}).out, HasSubstr("--group GROUP"));
    EXPECT_THAT(run_with({"show", "--help"}).out, HasSubstr("--id ID"));
    EXPECT_THAT(run_with({"try", "--help"}).out, HasSubstr("[FILE]"));
}

TEST(CommandLine, SaysWhichGroupsThereAre)
{
    EXPECT_THAT(run_with({"list", "--help"}).out, HasSubstr("\nGroups:\n  device\n  diagnostics\n  firewall\n"));
}

TEST(CommandLine, EndsWithStatus2WhenItIsWrong)
{
    const auto usage_error = [](const std::string &message) {
        return Ending{2, "", "kelmora-host: error: " + message + "\n"};
    };
    EXPECT_EQ(run_with({}), usage_error("a command is missing; the commands are list, show, check, try, trace, "
                                        "describe, schema, types, layout, doctor and serve; see kelmora-host --help"));
    EXPECT_EQ(run_with({"lst"}), usage_error("no command \"lst\"; similar: list; see kelmora-host --help"));
    EXPECT_EQ(run_with({"show"}), usage_error("RESOURCE is missing; see kelmora-host show --help"));
    EXPECT_EQ(run_with({"show", "radio", "--jsn"}),
              usage_error("show has no option \"--jsn\"; see kelmora-host show --help"));
    EXPECT_EQ(run_with({"show", "radio", "--json"}),
              (Ending{2,
                      "{\"error\": \"show has no option \\\"--json\\\"; see kelmora-host show --help\", "
                      "\"status\": 2}\n",
                      ""}));
    EXPECT_EQ(run_with({"try", "radio", "a", "b", "c"}),
              usage_error("2 arguments too many: \"b\" and \"c\"; see kelmora-host try --help"));
    EXPECT_EQ(run_with({"list", "--json=3"}), usage_error("--json takes no value; see kelmora-host list --help"));
    EXPECT_EQ(run_with({"layout", "--target", "arm"}),
              usage_error("no target \"arm\"; the targets are mips and x86-64"));
    EXPECT_EQ(run_with({"layout", "radio", "--target", "x86"}), usage_error("no target \"x86\"; similar: x86-64"));
    EXPECT_EQ(run_with({"layout", "rado"}), usage_error("no resource \"rado\"; similar: radio"));
    EXPECT_EQ(run_with({"layout", "--header", "--target", "mips"}).status, 2);
    EXPECT_EQ(run_with({"layout", "--header", "radio"}).status, 2);
    EXPECT_EQ(run_with({"doctor", "a.so", "--plugin", "b.so"}),
              usage_error("the plug-in is given twice, as PLUGIN and by --plugin; see kelmora-host doctor --help"));
    EXPECT_EQ(run_with({"list", "--group", "wirless"}), usage_error("no group \"wirless\"; similar: wireless"));
    EXPECT_EQ(run_with({"list", "--group", ""}).status, 2);
}

TEST(CommandLine, NeedsPathsThatAreNotEmpty)
{
    const Ending expected{2, "", "kelmora-host: error: the PATH of --plugin is empty; see kelmora-host --help\n"};
    EXPECT_EQ(run_with({"list", "--plugin", ""}), expected);
    EXPECT_EQ(run_with({"show", "radio", "--plugin", ""}), expected);
    EXPECT_EQ(run_with({"doctor", ""}),
              (Ending{2, "", "kelmora-host: error: the name of a file is empty; see kelmora-host doctor --help\n"}));
    EXPECT_EQ(run_with({"doctor", "--host", ""}).status, 2);
    EXPECT_EQ(run_with({"try", "radio", ""}),
              (Ending{2, "", "kelmora-host: error: the name of the FILE is empty; see kelmora-host try --help\n"}));
}

TEST(CommandLine, SeedsTheHashesOfTheJsonLibrary)
{
    seeds = 0;
    run_with({"--version"});
    EXPECT_EQ(seeds, 1);
}

TEST(CommandLine, TellsAnUnknownResourceBeforeAnythingElse)
{
    EXPECT_EQ(run_with({"try", "teapot", "--id", "x", "/nowhere/x.json", "--plugin", "/nowhere/x.so"}),
              (Ending{2, "", "kelmora-host: error: no resource \"teapot\"; kelmora-host list names them all\n"}));
}

TEST(CommandLine, TellsAnUnknownIdBeforeItReadsTheInput)
{
    EXPECT_EQ(
        run_with({"try", "radio", "--id", "x", "/nowhere/x.json", "--plugin", "/nowhere/x.so"}),
        (Ending{2, "", "kelmora-host: error: radio has no record of the id \"x\"; there are radio0 and radio1\n"}));
}

TEST(CommandLine, ReadsTheInputBeforeItLoadsThePlugIn)
{
    EXPECT_EQ(run_with({"try", "radio", "/nowhere/x.json", "--plugin", "/nowhere/x.so"}),
              (Ending{4, "", "/nowhere/x.json: error: No such file or directory\n"}));
}

TEST(CommandLine, EndsWithStatus4WhenThePlugInDoesNotLoad)
{
    const Ending expected{4, "", "kelmora-host: error: cannot load /nowhere/x.so: No such file or directory\n"};
    EXPECT_EQ(run_with({"--plugin", "/nowhere/x.so", "list"}), expected);
    EXPECT_EQ(run_with({"list", "--plugin", "/nowhere/x.so"}), expected);
    EXPECT_EQ(run_with({"show", "radio", "--plugin=/nowhere/x.so"}), expected);
    EXPECT_EQ(run_with({"try", "radio", "/dev/null", "--plugin=/nowhere/x.so"}), expected);
}

TEST(CommandLine, EndsWithStatus4WhenTheOutputCannotBeWritten)
{
    struct Refusing : std::streambuf {
    } refusing;
    std::ostream out(&refusing);
    std::ostringstream err;
    EXPECT_EQ(run_on({"--version"}, out, err), 4);
    EXPECT_EQ(err.str(), "kelmora-host: error: the output cannot be written\n");
}

} // namespace

} // namespace kelmora_host::cli_test
