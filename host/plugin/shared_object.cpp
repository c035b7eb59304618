#include "host/plugin/shared_object.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdint>
#include <cstring>
#include <elf.h>
#include <fstream>
#include <link.h>
#include <system_error>
#include <vector>

namespace kelmora_host {

namespace {

/// The part of the header that is the same for all machines, but for the byte order of its two numbers.
struct Beginning {
    std::array<unsigned char, EI_NIDENT> ident;
    std::uint16_t type;
    std::uint16_t machine;
};

template <class T> bool read_at(std::ifstream &file, std::uint64_t offset, T *values, std::size_t count)
{
    const auto size = static_cast<std::streamsize>(count * sizeof(T));
    file.clear();
    file.seekg(static_cast<std::streamoff>(offset));
    return file.read(reinterpret_cast<char *>(values), size).gcount() == size;
}

std::uint16_t in_our_byte_order(std::uint16_t number, const Beginning &of, const Beginning &ours)
{
    return of.ident[EI_DATA] == ours.ident[EI_DATA] ? number : static_cast<std::uint16_t>(number << 8 | number >> 8);
}

/// "32-bit big-endian MIPS"
std::string machine_name(const Beginning &object, const Beginning &ours)
{
    struct Named {
        std::uint16_t machine;
        const char *name;
    };
    static constexpr std::array<Named, 8> known{{{EM_386, "x86"},
                                                 {EM_X86_64, "x86-64"},
                                                 {EM_MIPS, "MIPS"},
                                                 {EM_ARM, "Arm"},
                                                 {EM_AARCH64, "AArch64"},
                                                 {EM_PPC, "PowerPC"},
                                                 {EM_PPC64, "PowerPC 64"},
                                                 {EM_RISCV, "RISC-V"}}};
    const std::uint16_t machine = in_our_byte_order(object.machine, object, ours);
    const auto *const found = std::ranges::find(known, machine, &Named::machine);
    return std::string(object.ident[EI_CLASS] == ELFCLASS64 ? "64-bit " : "32-bit ") +
           (object.ident[EI_DATA] == ELFDATA2MSB ? "big-endian " : "little-endian ") +
           (found != known.end() ? found->name : "machine " + std::to_string(machine));
}

std::optional<std::string> fault_of_machine(const Beginning &object)
{
    std::ifstream program("/proc/self/exe", std::ios::binary);
    Beginning ours{};
    if (!read_at(program, 0, &ours, 1))
        return std::nullopt; // the loader will tell
    const bool same = object.ident[EI_CLASS] == ours.ident[EI_CLASS] && object.ident[EI_DATA] == ours.ident[EI_DATA] &&
                      object.machine == ours.machine;
    if (same)
        return std::nullopt;
    return "it is for " + machine_name(object, ours) + ", and this program is for " + machine_name(ours, ours);
}

std::optional<std::string> fault_of_type(std::uint16_t type)
{
    switch (type) {
    case ET_DYN:
        return std::nullopt;
    case ET_REL:
        return "it is an object file that was not linked";
    case ET_EXEC:
        return "it is a program, no shared object";
    default:
        return "it is no shared object, but an ELF file of another type (" + std::to_string(type) + ")";
    }
}

std::string cut_short(std::uint64_t size, const std::string &needed)
{
    return "it is cut short: it has " + std::to_string(size) + (size == 1 ? " byte" : " bytes") + ", and " + needed;
}

/// Programs that can be loaded at any address look like shared objects, but for this flag.
bool is_program(std::ifstream &file, const std::vector<ElfW(Phdr)> &segments)
{
    const auto dynamic = std::ranges::find(segments, std::uint32_t{PT_DYNAMIC}, &ElfW(Phdr)::p_type);
    if (dynamic == segments.end())
        return false;
    std::vector<ElfW(Dyn)> entries(dynamic->p_filesz / sizeof(ElfW(Dyn)));
    return read_at(file, dynamic->p_offset, entries.data(), entries.size()) &&
           std::ranges::any_of(entries, [](const ElfW(Dyn) & entry) {
               return entry.d_tag == DT_FLAGS_1 && (entry.d_un.d_val & DF_1_PIE) != 0;
           });
}

std::optional<std::string> fault_of_segments(std::ifstream &file, std::uint64_t size)
{
    ElfW(Ehdr) header;
    if (!read_at(file, 0, &header, 1))
        return cut_short(size, "its header alone takes " + std::to_string(sizeof header));
    if (header.e_phnum == 0 || header.e_phentsize != sizeof(ElfW(Phdr)))
        return "it has no segments that could be loaded";
    std::vector<ElfW(Phdr)> segments(header.e_phnum);
    if (!read_at(file, header.e_phoff, segments.data(), segments.size()))
        return cut_short(size, "the table of its segments ends behind that");

    std::uint64_t end = 0;
    for (const ElfW(Phdr) & segment : segments) {
        const std::uint64_t segment_end = std::uint64_t{segment.p_offset} + segment.p_filesz;
        if (segment_end < segment.p_offset)
            return "the place of one of its segments is no place in any file";
        if (segment.p_filesz != 0)
            end = std::max(end, segment_end);
    }
    if (end > size)
        return cut_short(size, "its segments take " + std::to_string(end));
    if (is_program(file, segments))
        return fault_of_type(ET_EXEC);
    return std::nullopt;
}

} // namespace

std::optional<std::string> fault_of_shared_object(const std::filesystem::path &path)
{
    std::error_code error;
    const std::filesystem::file_status status = std::filesystem::status(path, error);
    if (!std::filesystem::exists(status))
        return error.message();
    if (std::filesystem::is_directory(status))
        return "it is a directory";
    if (!std::filesystem::is_regular_file(status)) // opening a pipe would wait for its other end
        return "it is no regular file";

    errno = 0;
    std::ifstream file(path, std::ios::binary | std::ios::ate);
    if (!file)
        return std::strerror(errno);
    const auto size = static_cast<std::uint64_t>(file.tellg());
    if (size == 0)
        return "it is empty";
    std::array<char, SELFMAG> magic{};
    if (!read_at(file, 0, magic.data(), magic.size()) || std::memcmp(magic.data(), ELFMAG, SELFMAG) != 0)
        return "it is no shared object";
    Beginning beginning{};
    if (!read_at(file, 0, &beginning, 1))
        return cut_short(size, "its header alone takes " + std::to_string(sizeof(ElfW(Ehdr))));
    if (std::optional<std::string> fault = fault_of_machine(beginning))
        return fault;
    if (std::optional<std::string> fault = fault_of_type(beginning.type))
        return fault;
    return fault_of_segments(file, size);
}

} // namespace kelmora_host
