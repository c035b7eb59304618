#include "host/cli/cli.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <initializer_list>
#include <ostream>
#include <sstream>
#include <streambuf>
#include <string>
#include <vector>

namespace kelmora_host {

namespace {

using ::testing::HasSubstr;
using ::testing::StartsWith;

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

TEST(CommandLine, TellsItsVersion) { EXPECT_EQ(run_with({"--version"}), (Ending{0, "kelmora-host 1.3.0\n", ""})); }

TEST(CommandLine, HelpsWithExamplesAndExitStatuses)
{
    const Ending ending = run_with({"--help"});
    EXPECT_EQ(ending.status, 0);
    EXPECT_THAT(ending.out, HasSubstr("\nExamples:\n  kelmora-host list "));
    EXPECT_THAT(ending.out, HasSubstr("\nExit status:\n  0  done\n  1  "));
    EXPECT_EQ(ending.err, "");
}

TEST(CommandLine, HelpsWithEachCommand)
{
    EXPECT_THAT(run_with({"list", "--help"}).out, HasSubstr("--group GROUP"));
    EXPECT_THAT(run_with({"show", "--help"}).out, HasSubstr("--id ID"));
    EXPECT_THAT(run_with({"set", "--help"}).out, HasSubstr("[FILE]"));
}

TEST(CommandLine, EndsWithStatus2WhenItIsWrong)
{
    const auto usage_error = [](const std::string &message) {
        return Ending{2, "", "kelmora-host: error: " + message + "\n"};
    };
    EXPECT_EQ(run_with({}), usage_error("A subcommand is required; see kelmora-host --help"));
    EXPECT_EQ(run_with({"get"}), usage_error("no command or option \"get\"; see kelmora-host --help"));
    EXPECT_EQ(run_with({"--json"}), usage_error("no command or option \"--json\"; see kelmora-host --help"));
    EXPECT_EQ(run_with({"show"}), usage_error("RESOURCE is required; see kelmora-host --help"));
    EXPECT_EQ(run_with({"show", "radio", "--json"}),
              usage_error("The following argument was not expected: --json; see kelmora-host --help"));
    EXPECT_EQ(run_with({"set", "radio", "a.json", "b.json"}),
              usage_error("The following argument was not expected: b.json; see kelmora-host --help"));
    EXPECT_EQ(run_with({"show", "radio", "--id"}), usage_error("--id: 1 required ID missing; see kelmora-host --help"));
    EXPECT_THAT(run_with({"list", "--group", "garden"}).err,
                StartsWith("kelmora-host: error: --group: garden not in {device,diagnostics,"));
    EXPECT_EQ(run_with({"list", "--group", "garden"}).status, 2);
}

TEST(CommandLine, TellsAnUnknownResourceBeforeAnythingElse)
{
    EXPECT_EQ(run_with({"set", "teapot", "--id", "x", "/nowhere/x.json", "--plugin", "/nowhere/x.so"}),
              (Ending{2, "", "kelmora-host: error: no resource \"teapot\"; kelmora-host list names them all\n"}));
}

TEST(CommandLine, TellsAnUnknownIdBeforeItReadsTheInput)
{
    EXPECT_EQ(run_with({"set", "radio", "--id", "x", "/nowhere/x.json", "--plugin", "/nowhere/x.so"}),
              (Ending{2, "", "kelmora-host: error: radio: no record of the id \"x\"; there are 2: radio0, radio1\n"}));
}

TEST(CommandLine, ReadsTheInputBeforeItLoadsThePlugIn)
{
    EXPECT_EQ(run_with({"set", "radio", "/nowhere/x.json", "--plugin", "/nowhere/x.so"}),
              (Ending{4, "", "/nowhere/x.json: error: No such file or directory\n"}));
}

TEST(CommandLine, EndsWithStatus4WhenThePlugInDoesNotLoad)
{
    const Ending expected{4, "",
                          "kelmora-host: error: /nowhere/x.so: cannot open shared object file: No such file or "
                          "directory\n"};
    EXPECT_EQ(run_with({"--plugin", "/nowhere/x.so", "list"}), expected);
    EXPECT_EQ(run_with({"list", "--plugin", "/nowhere/x.so"}), expected);
    EXPECT_EQ(run_with({"show", "radio", "--plugin=/nowhere/x.so"}), expected);
    EXPECT_EQ(run_with({"set", "radio", "/dev/null", "--plugin=/nowhere/x.so"}), expected);
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

} // namespace kelmora_host
