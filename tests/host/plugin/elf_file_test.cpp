#include "host/plugin/elf_file.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <iterator>
#include <string>
#include <unistd.h>

namespace kelmora_host::elf_file_test {

namespace {

#ifndef KELMORA_HAVE_LIBELF

TEST(ElfFile, CannotBeReadWithoutLibelf)
{
    EXPECT_FALSE(can_read_elf_files());
    EXPECT_THROW((void)read_elf_file("/proc/self/exe"), ElfError);
}

#else

using testing::Contains;
using testing::ElementsAre;
using testing::Field;
using testing::IsEmpty;
using testing::Not;

std::string error_of(const std::filesystem::path &path)
{
    try {
        (void)read_elf_file(path);
    } catch (const ElfError &error) {
        return error.what();
    }
    return "read";
}

TEST(ElfFile, OfThisProgramSaysWhatItNeeds)
{
    EXPECT_TRUE(can_read_elf_files());
    const ElfFile self = read_elf_file("/proc/self/exe");
    EXPECT_EQ(self.machine, this_machine());
    EXPECT_EQ(self.soname, std::nullopt);
    EXPECT_THAT(self.needed, Contains("libjansson.so.4"));
    EXPECT_THAT(self.imports, Contains(Field(&ElfImport::name, "json_object_seed")));
    EXPECT_FALSE(self.has_executable_stack);
    EXPECT_FALSE(self.has_text_relocations);
    EXPECT_THAT(self.writable, Contains(Field(&ElfSection::name, ".data")));
}

TEST(ElfFile, IsAnElfFile)
{
    EXPECT_EQ(error_of("/nowhere"), "No such file or directory");
    EXPECT_EQ(error_of("/etc/passwd"), "it is no ELF file");
}

TEST(ElfFile, IsLookedIntoWithCareWhereverItIsCut)
{
    std::ifstream file("/proc/self/exe", std::ios::binary);
    std::string bytes(20000, '\0');
    file.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    const std::filesystem::path path =
        std::filesystem::temp_directory_path() / ("elf_file_test." + std::to_string(getpid()));
    for (std::size_t size = 0; size < bytes.size(); size += 173) {
        std::ofstream(path, std::ios::binary) << bytes.substr(0, size);
        EXPECT_NE(error_of(path), "read") << size;
    }
    std::filesystem::remove(path);
}

#ifdef KELMORA_PLUGIN

TEST(ElfFile, OfThePluginIsLean)
{
    const ElfFile plugin = read_elf_file(KELMORA_PLUGIN);
    EXPECT_EQ(plugin.machine, this_machine());
    EXPECT_EQ(plugin.soname, std::nullopt);
    EXPECT_THAT(plugin.needed, ElementsAre("libc.so.6"));
    EXPECT_TRUE(std::ranges::is_sorted(plugin.exports));
    EXPECT_THAT(plugin.exports, Contains("kelmora_json_init"));
    EXPECT_THAT(plugin.exports, Contains("wireless_to_translator"));
    EXPECT_THAT(plugin.exports, Not(Contains("json_object")));
    EXPECT_TRUE(std::ranges::is_sorted(plugin.imports, {}, &ElfImport::name));
    for (const char *name : {"kelmora_set_translators", "json_object", "strlen"})
        EXPECT_THAT(plugin.imports, Contains(AllOf(Field(&ElfImport::name, name), Field(&ElfImport::lazy, true))));
    EXPECT_THAT(plugin.writable, IsEmpty());
    EXPECT_THAT(plugin.relocations, IsEmpty());
    EXPECT_FALSE(plugin.binds_now);
    EXPECT_FALSE(plugin.has_text_relocations);
    EXPECT_FALSE(plugin.has_executable_stack);
}

TEST(ElfFile, SaysWhatIsWrittenToAndResolvedWhenItIsLoaded)
{
    const ElfFile object = read_elf_file(KELMORA_UNLIKE_DATA);
    EXPECT_THAT(object.needed, ElementsAre("libc.so.6", "libm.so.6"));
    EXPECT_TRUE(object.binds_now);
    EXPECT_TRUE(object.has_executable_stack);
    ASSERT_EQ(object.writable.size(), 1U);
    EXPECT_EQ(object.writable[0].name, ".data");
    EXPECT_EQ(object.writable[0].size, 16U); // a long and a pointer
    EXPECT_THAT(object.relocations, ElementsAre("cbrt"));
    EXPECT_THAT(object.imports, Contains(AllOf(Field(&ElfImport::name, "cbrt"), Field(&ElfImport::lazy, false))));
}

#endif

#endif

} // namespace

} // namespace kelmora_host::elf_file_test
