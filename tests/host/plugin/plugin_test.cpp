#include "host/plugin/plugin.h"

#include <cerrno>
#include <dlfcn.h>
#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>

namespace kelmora_host {

namespace {

using ::testing::HasSubstr;

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
    EXPECT_THAT(refusal_of("/nowhere/plug-in.so"), HasSubstr("/nowhere/plug-in.so: cannot open shared object file"));
}

TEST(Plugin, IsNotSearchedForInTheFoldersOfTheSystem)
{
    EXPECT_THAT(refusal_of("libjansson.so.4"), HasSubstr("/libjansson.so.4: cannot open shared object file"));
}

TEST(Plugin, IsRefusedWhenItIsNoSharedObject) { EXPECT_THAT(refusal_of("/proc/self/status"), HasSubstr("/proc/self")); }

TEST(Plugin, IsRefusedWhenItDoesNotExportItsEntryPoint)
{
    Dl_info jansson{};
    ASSERT_NE(dladdr(dlsym(RTLD_DEFAULT, "json_delete"), &jansson), 0);
    EXPECT_THAT(refusal_of(jansson.dli_fname), HasSubstr("undefined symbol: kelmora_json_init"));
}

TEST(Plugin, IsBesideTheProgramUnlessToldOtherwise)
{
    const std::filesystem::path path = Plugin::default_path();
    EXPECT_TRUE(path.is_absolute());
    EXPECT_EQ(path.filename(), "libkelmora_json.so.1.3.0");
    EXPECT_TRUE(std::filesystem::exists(path.parent_path() / program_invocation_short_name)) << path;
}

} // namespace

} // namespace kelmora_host
