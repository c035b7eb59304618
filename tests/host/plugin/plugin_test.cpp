#include "host/plugin/plugin.h"

#include <cerrno>
#include <dlfcn.h>
#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>

namespace kelmora_host::plugin_test {

namespace {

using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::StartsWith;

/// Why a file does not load as the plug-in.
std::string refusal_of(const std::filesystem::path &path)
{
    try {
        const Plugin plugin(path);
    } catch (const PluginError &error) {
        return error.what();
    }
    return "loaded";
}

TEST(Plugin, IsRefusedWhenThereIsNoSuchFile)
{
    EXPECT_EQ(refusal_of("/nowhere/plug-in.so"), "cannot load /nowhere/plug-in.so: No such file or directory");
    EXPECT_EQ(refusal_of(""), "cannot load : No such file or directory");
}

TEST(Plugin, IsNotSearchedForInTheFoldersOfTheSystem)
{
    EXPECT_EQ(refusal_of("libjansson.so.4"), "cannot load libjansson.so.4: No such file or directory");
}

TEST(Plugin, IsRefusedWhenItIsNoSharedObject)
{
    EXPECT_EQ(refusal_of("/proc/self/exe"), "cannot load /proc/self/exe: it is a program, no shared object");
}

TEST(Plugin, IsRefusedInTheLoadersWordsWhenTheFileGivesNoReason)
{
    // A module that needs a library that there is not.
    EXPECT_THAT(refusal_of(KELMORA_NEEDY_MODULE),
                AllOf(StartsWith("cannot load " KELMORA_NEEDY_MODULE ": libnowhere.so"),
                      HasSubstr("cannot open shared object file")));
}

TEST(Plugin, IsRefusedWhenThereIsNothingAtItsEntryPoint)
{
    EXPECT_EQ(refusal_of(KELMORA_HOLLOW_MODULE),
              KELMORA_HOLLOW_MODULE " is no libkelmora_json: it does not export kelmora_json_init");
}

TEST(Plugin, IsRefusedWhenItDoesNotExportItsEntryPoint)
{
    Dl_info jansson{};
    ASSERT_NE(dladdr(dlsym(RTLD_DEFAULT, "json_delete"), &jansson), 0);
    EXPECT_EQ(refusal_of(jansson.dli_fname),
              std::string(jansson.dli_fname) + " is no libkelmora_json: it does not export kelmora_json_init");
}

TEST(Plugin, IsBesideTheProgramUnlessToldOtherwise)
{
    const std::filesystem::path path = Plugin::default_path();
    EXPECT_TRUE(path.is_absolute());
    EXPECT_EQ(path.filename(), "libkelmora_json.so." KELMORA_JSON_VERSION);
    EXPECT_TRUE(std::filesystem::exists(path.parent_path() / program_invocation_short_name)) << path;
}

} // namespace

} // namespace kelmora_host::plugin_test
