#include "host/cli/usage.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace kelmora_host::usage_test {

namespace {

/// A program with the options --till and --quiet, and two commands: "pay" with an optional SUM and --tip, and "order"
/// with a DISH that is required.
std::string fault_of(const std::vector<std::string> &arguments)
{
    CLI::App app{"", "waiter"};
    app.require_subcommand(1);
    std::string value;
    bool flag = false;
    app.add_option("--till", value);
    app.add_flag("--quiet", flag)->disable_flag_override();
    CLI::App *pay = app.add_subcommand("pay");
    CLI::App *order = app.add_subcommand("order");
    pay->fallthrough();
    order->fallthrough();
    pay->add_option("SUM", value);
    pay->add_option("--tip", value);
    order->add_option("DISH", value)->required();
    try {
        app.parse(std::vector<std::string>(arguments.rbegin(), arguments.rend()));
    } catch (const CLI::ParseError &error) {
        return usage_fault(app, error, arguments);
    }
    return "accepted";
}

TEST(UsageFault, IsNoneOfWhatIsAccepted)
{
    EXPECT_EQ(fault_of({"pay", "12", "--tip", "1", "--till", "bar", "--quiet"}), "accepted");
}

TEST(UsageFault, NamesTheCommandsWhereOneIsMissing)
{
    EXPECT_EQ(fault_of({}), "a command is missing; the commands are pay and order; see kelmora-host --help");
    EXPECT_EQ(fault_of({"--quiet"}), "a command is missing; the commands are pay and order; see kelmora-host --help");
}

TEST(UsageFault, NamesAnUnknownCommandAndTheSimilarOnes)
{
    EXPECT_EQ(fault_of({"sing"}), "no command \"sing\"; the commands are pay and order; see kelmora-host --help");
    EXPECT_EQ(fault_of({"odrer", "soup"}), "no command \"odrer\"; similar: order; see kelmora-host --help");
    EXPECT_EQ(fault_of({"pya", "--tip", "1"}), "no command \"pya\"; the commands are pay and order; see kelmora-host "
                                               "--help");
}

TEST(UsageFault, NamesAnUnknownOptionAndTheSimilarOnes)
{
    EXPECT_EQ(fault_of({"--quite", "pay"}),
              "pay has no option \"--quite\"; similar: --quiet; see kelmora-host pay --help");
    EXPECT_EQ(fault_of({"--quite"}), "no option \"--quite\"; similar: --quiet; see kelmora-host --help");
    EXPECT_EQ(fault_of({"pay", "--tpi=3"}), "pay has no option \"--tpi\"; similar: --tip; see kelmora-host pay --help");
    EXPECT_EQ(fault_of({"pay", "1", "--zzz", "3"}), "pay has no option \"--zzz\"; see kelmora-host pay --help");
    EXPECT_EQ(fault_of({"order", "--tip", "3"}), "order has no option \"--tip\"; see kelmora-host order --help");
    EXPECT_EQ(fault_of({"pay", "-x"}), "pay has no option \"-x\"; see kelmora-host pay --help");
}

TEST(UsageFault, TellsWhereAnOptionOfTheCommandBelongs)
{
    EXPECT_EQ(fault_of({"--tip=3", "pay"}), "--tip belongs behind the command; see kelmora-host pay --help");
}

TEST(UsageFault, NamesWhatIsTooMuchInTheOrderInWhichItWasGiven)
{
    EXPECT_EQ(fault_of({"pay", "1", "2"}), "one argument too many: \"2\"; see kelmora-host pay --help");
    EXPECT_EQ(fault_of({"pay", "1", "-"}), "one argument too many: \"-\"; see kelmora-host pay --help");
    EXPECT_EQ(fault_of({"pay", "1", "b", "a", "c"}),
              "3 arguments too many: \"b\", \"a\" and \"c\"; see kelmora-host pay --help");
}

TEST(UsageFault, NamesTheArgumentThatIsMissing)
{
    EXPECT_EQ(fault_of({"order"}), "DISH is missing; see kelmora-host order --help");
}

TEST(UsageFault, TellsWhatIsWrongWithTheValueOfAnOption)
{
    EXPECT_EQ(fault_of({"pay", "--tip"}), "--tip needs a value; see kelmora-host pay --help");
    EXPECT_EQ(fault_of({"pay", "--till"}), "--till needs a value; see kelmora-host --help");
    EXPECT_EQ(fault_of({"pay", "--tip", "1", "--tip", "2"}),
              "--tip is given more than once; see kelmora-host pay --help");
    EXPECT_EQ(fault_of({"--till", "a", "--till", "b", "pay"}),
              "--till is given more than once; see kelmora-host --help");
    EXPECT_EQ(fault_of({"pay", "--quiet=3"}), "--quiet takes no value; see kelmora-host --help");
}

} // namespace

} // namespace kelmora_host::usage_test
