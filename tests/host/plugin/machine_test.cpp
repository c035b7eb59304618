#include "host/plugin/machine.h"

#include <bit>
#include <elf.h>
#include <fstream>
#include <gtest/gtest.h>
#include <string>
#include <unistd.h>

namespace kelmora_host::machine_test {

namespace {

std::optional<Machine> machine_in(const std::string &bytes)
{
    const std::filesystem::path path =
        std::filesystem::temp_directory_path() / ("machine_test." + std::to_string(getpid()));
    std::ofstream(path, std::ios::binary) << bytes;
    const std::optional<Machine> machine = machine_of(path);
    std::filesystem::remove(path);
    return machine;
}

TEST(Machine, HasAName)
{
    EXPECT_EQ(name_of({32, true, EM_MIPS}), "32-bit big-endian MIPS");
    EXPECT_EQ(name_of({64, false, EM_X86_64}), "64-bit little-endian x86-64");
    EXPECT_EQ(name_of({32, false, 9999}), "32-bit little-endian machine 9999");
}

TEST(Machine, StandsInTheFirstBytesOfAFile)
{
    const std::string mips("\x7f"
                           "ELF\1\2\1\0\0\0\0\0\0\0\0\0\0\3\0\10",
                           20);
    const std::string x86("\x7f"
                          "ELF\2\1\1\0\0\0\0\0\0\0\0\0\3\0\x3e\0",
                          20);
    EXPECT_EQ(machine_in(mips), (Machine{32, true, EM_MIPS}));
    EXPECT_EQ(machine_in(x86), (Machine{64, false, EM_X86_64}));
    EXPECT_EQ(machine_in(x86.substr(0, 19)), std::nullopt);
    EXPECT_EQ(machine_in("{\"a document\": \"and no program\"}"), std::nullopt);
    EXPECT_EQ(machine_of("/nowhere"), std::nullopt);
}

TEST(Machine, OfThisProgramIsWhatItWasCompiledFor)
{
    ASSERT_TRUE(this_machine());
    EXPECT_EQ(this_machine()->bits, static_cast<int>(8 * sizeof(void *)));
    EXPECT_EQ(this_machine()->big_endian, std::endian::native == std::endian::big);
}

} // namespace

} // namespace kelmora_host::machine_test
