#include "host/plugin/shared_object.h"

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <elf.h>
#include <filesystem>
#include <fstream>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <link.h>
#include <string>
#include <sys/stat.h>
#include <unistd.h>

namespace kelmora_host::shared_object_test {

namespace {

using ::testing::AnyOf;
using ::testing::HasSubstr;
using ::testing::StartsWith;

constexpr bool big_endian = std::endian::native == std::endian::big;
constexpr bool wide = sizeof(void *) == 8;

/// Starts from a shared object that loads, and takes files made of its bytes.
class SharedObject : public ::testing::Test {
protected:
    SharedObject()
    {
        std::ifstream file(KELMORA_HOLLOW_MODULE, std::ios::binary);
        whole_.assign(std::istreambuf_iterator<char>(file), {});
        std::memcpy(&header_, whole_.data(), sizeof header_);
    }
    ~SharedObject() override { std::filesystem::remove(path_); }

    std::string fault_of(const std::string &bytes)
    {
        std::ofstream(path_, std::ios::binary) << bytes;
        return fault_of_shared_object(path_).value_or("");
    }

    /// What is wrong with the whole file after one number of its header is another.
    template <class Number> std::string fault_with(Number ElfW(Ehdr)::*field, int value)
    {
        ElfW(Ehdr) header = header_;
        header.*field = static_cast<Number>(value);
        return fault_of(std::string(reinterpret_cast<const char *>(&header), sizeof header) +
                        whole_.substr(sizeof header));
    }

    std::string fault_with_byte(std::size_t index, char byte)
    {
        std::string bytes = whole_;
        bytes[index] = byte;
        return fault_of(bytes);
    }

    ElfW(Phdr) & segment(std::string &bytes, std::size_t index) const
    {
        void *place = &bytes[header_.e_phoff + index * sizeof(ElfW(Phdr))];
        return *static_cast<ElfW(Phdr) *>(place);
    }

    /// The end of the last segment: what comes behind it is not loaded.
    std::size_t loaded_size()
    {
        std::size_t end = 0;
        for (std::size_t i = 0; i < header_.e_phnum; ++i) {
            if (segment(whole_, i).p_filesz != 0)
                end = std::max<std::size_t>(end, segment(whole_, i).p_offset + segment(whole_, i).p_filesz);
        }
        return end;
    }

    const std::filesystem::path path_ =
        std::filesystem::temp_directory_path() / ("shared_object_test." + std::to_string(getpid()));
    std::string whole_;
    ElfW(Ehdr) header_{};
};

TEST_F(SharedObject, HasNoFaultAsItWasBuilt)
{
    EXPECT_EQ(fault_of_shared_object(KELMORA_HOLLOW_MODULE), std::nullopt);
    EXPECT_EQ(fault_of(whole_), "");
}

TEST_F(SharedObject, NeedsAFile)
{
    EXPECT_EQ(fault_of_shared_object("/nowhere/x.so"), "No such file or directory");
    EXPECT_EQ(fault_of_shared_object(""), "No such file or directory");
    EXPECT_EQ(fault_of_shared_object("/"), "it is a directory");
    EXPECT_EQ(fault_of_shared_object("/dev/null"), "it is no regular file");
    ASSERT_EQ(mkfifo(path_.c_str(), 0600), 0);
    EXPECT_EQ(fault_of_shared_object(path_), "it is no regular file");
}

TEST_F(SharedObject, OfAFileThatCannotBeReadSaysNothingElse)
{
    EXPECT_EQ(fault_of_file("/nowhere/x.so"), "No such file or directory");
    EXPECT_EQ(fault_of_file("/"), "it is a directory");
    EXPECT_EQ(fault_of_file("/dev/null"), "it is no regular file");
    EXPECT_EQ(fault_of_file("/proc/self/exe"), std::nullopt);
    EXPECT_EQ(fault_of_any_shared_object("/nowhere/x.so"), "No such file or directory");
    EXPECT_EQ(fault_of("{}"), "it is no shared object");
    EXPECT_EQ(fault_of_file(path_), std::nullopt);
}

TEST_F(SharedObject, MayBeForAnyMachineWhereThatIsAskedFor)
{
    EXPECT_EQ(fault_of_any_shared_object(KELMORA_HOLLOW_MODULE), std::nullopt);
    EXPECT_THAT(fault_with(&ElfW(Ehdr)::e_machine, EM_AARCH64), StartsWith("it is for "));
    EXPECT_EQ(fault_of_any_shared_object(path_), std::nullopt);
    EXPECT_EQ(fault_of_any_shared_object("/proc/self/exe"), "it is a program, no shared object");
}

/// The numbers of a file's header and segments in the other byte order.
TEST_F(SharedObject, IsReadInTheByteOrderOfItsMachine)
{
    std::string bytes = whole_;
    const auto turn = [&bytes](std::size_t offset, std::size_t size) {
        std::reverse(bytes.begin() + static_cast<std::ptrdiff_t>(offset),
                     bytes.begin() + static_cast<std::ptrdiff_t>(offset + size));
    };
#define TURN(base, type, field) turn((base) + offsetof(type, field), sizeof(type::field))
    for (std::size_t i = 0; i < header_.e_phnum; ++i) {
        const std::size_t base = header_.e_phoff + i * sizeof(ElfW(Phdr));
        TURN(base, ElfW(Phdr), p_type);
        TURN(base, ElfW(Phdr), p_offset);
        TURN(base, ElfW(Phdr), p_filesz);
    }
    bytes[EI_DATA] = big_endian ? ELFDATA2LSB : ELFDATA2MSB;
    TURN(0, ElfW(Ehdr), e_type);
    TURN(0, ElfW(Ehdr), e_machine);
    TURN(0, ElfW(Ehdr), e_phoff);
    TURN(0, ElfW(Ehdr), e_phnum);
    TURN(0, ElfW(Ehdr), e_phentsize);
#undef TURN
    EXPECT_THAT(fault_of(bytes), StartsWith("it is for "));
    // Its section for the loader is not turned, and tells nothing.
    EXPECT_EQ(fault_of_any_shared_object(path_), std::nullopt);
    const std::size_t loaded = loaded_size();
    EXPECT_THAT(fault_of(bytes.substr(0, loaded - 1)), StartsWith("it is for "));
    EXPECT_EQ(fault_of_any_shared_object(path_), "it is cut short: it has " + std::to_string(loaded - 1) +
                                                     " bytes, and its segments take " + std::to_string(loaded));
}

TEST_F(SharedObject, IsNotJustAnyFile)
{
    EXPECT_EQ(fault_of(""), "it is empty");
    EXPECT_EQ(fault_of("{}"), "it is no shared object");
    EXPECT_EQ(fault_of("#!/bin/sh\n"), "it is no shared object");
    EXPECT_EQ(fault_of(std::string(100000, '\0')), "it is no shared object");
}

TEST_F(SharedObject, IsRefusedWhereverItIsCutShort)
{
    const std::size_t loaded = loaded_size();
    ASSERT_LT(loaded, whole_.size());
    for (std::size_t size = SELFMAG; size < loaded; size += size < 128 ? 1 : 499)
        EXPECT_THAT(fault_of(whole_.substr(0, size)),
                    StartsWith("it is cut short: it has " + std::to_string(size) + " bytes, and "));
    EXPECT_EQ(fault_of(whole_.substr(0, loaded - 1)), "it is cut short: it has " + std::to_string(loaded - 1) +
                                                          " bytes, and its segments take " + std::to_string(loaded));
    EXPECT_EQ(fault_of(whole_.substr(0, loaded)), "");
}

TEST_F(SharedObject, IsMadeForThisMachine)
{
    const std::string bits = wide ? "64-bit " : "32-bit ";
    const std::string order = big_endian ? "big-endian " : "little-endian ";
    EXPECT_THAT(fault_with(&ElfW(Ehdr)::e_machine, EM_AARCH64),
                StartsWith("it is for " + bits + order + "AArch64, and this program is for " + bits + order));
    EXPECT_THAT(fault_with(&ElfW(Ehdr)::e_machine, 9999), StartsWith("it is for " + bits + order + "machine 9999, "));
    EXPECT_THAT(fault_with_byte(EI_CLASS, wide ? ELFCLASS32 : ELFCLASS64),
                StartsWith(std::string("it is for ") + (wide ? "32-bit " : "64-bit ") + order));
    EXPECT_THAT(fault_with_byte(EI_DATA, big_endian ? ELFDATA2LSB : ELFDATA2MSB),
                StartsWith("it is for " + bits + (big_endian ? "little-endian " : "big-endian ") + "machine "));

    // The first bytes of a shared object for 32-bit big-endian MIPS, and of one for x86-64.
    const std::string mips("\x7f"
                           "ELF\1\2\1\0\0\0\0\0\0\0\0\0\0\3\0\10",
                           20);
    const std::string x86("\x7f"
                          "ELF\2\1\1\0\0\0\0\0\0\0\0\0\3\0\x3e\0",
                          20);
    EXPECT_THAT(fault_of(header_.e_machine == EM_MIPS ? x86 : mips),
                AnyOf("it is for 32-bit big-endian MIPS, and this program is for 64-bit little-endian x86-64",
                      "it is for 64-bit little-endian x86-64, and this program is for 32-bit big-endian MIPS"));
}

TEST_F(SharedObject, IsNoOtherKindOfElfFile)
{
    EXPECT_EQ(fault_with(&ElfW(Ehdr)::e_type, ET_REL), "it is an object file that was not linked");
    EXPECT_EQ(fault_with(&ElfW(Ehdr)::e_type, ET_EXEC), "it is a program, no shared object");
    EXPECT_EQ(fault_with(&ElfW(Ehdr)::e_type, ET_CORE), "it is no shared object, but an ELF file of another type (4)");
    EXPECT_EQ(fault_of_shared_object("/proc/self/exe"), "it is a program, no shared object");
}

TEST_F(SharedObject, HasSegmentsInTheFile)
{
    EXPECT_EQ(fault_with(&ElfW(Ehdr)::e_phnum, 0), "it has no segments that could be loaded");
    EXPECT_EQ(fault_with(&ElfW(Ehdr)::e_phentsize, 1), "it has no segments that could be loaded");
    EXPECT_THAT(fault_with(&ElfW(Ehdr)::e_phoff, static_cast<int>(whole_.size()) - 1),
                HasSubstr("the table of its segments ends behind that"));
    EXPECT_THAT(fault_with(&ElfW(Ehdr)::e_phoff, -1), HasSubstr("the table of its segments ends behind that"));

    std::string bytes = whole_;
    segment(bytes, 0).p_filesz = static_cast<decltype(ElfW(Phdr)::p_filesz)>(whole_.size() + 1);
    const std::size_t end = segment(bytes, 0).p_offset + whole_.size() + 1;
    EXPECT_THAT(fault_of(bytes), HasSubstr("its segments take " + std::to_string(end)));
    bytes = whole_;
    segment(bytes, 0).p_offset = static_cast<decltype(ElfW(Phdr)::p_offset)>(-8);
    EXPECT_THAT(fault_of(bytes), AnyOf(HasSubstr("its segments take 4294967"),
                                       "the place of one of its segments is no place in any file"));
}

} // namespace

} // namespace kelmora_host::shared_object_test
