#include "host/plugin/shared_object.h"

#include "host/plugin/machine.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cerrno>
#include <cstdint>
#include <cstring>
#include <elf.h>
#include <fstream>
#include <system_error>
#include <vector>

namespace kelmora_host {

namespace {

/// What ELF looks like on machines of 32 bits.
struct Elf32 {
    using Header = Elf32_Ehdr;
    using Segment = Elf32_Phdr;
    using Dynamic = Elf32_Dyn;
};

/// And on those of 64.
struct Elf64 {
    using Header = Elf64_Ehdr;
    using Segment = Elf64_Phdr;
    using Dynamic = Elf64_Dyn;
};

template <class T> bool read_at(std::ifstream &file, std::uint64_t offset, T *values, std::size_t count)
{
    const auto size = static_cast<std::streamsize>(count * sizeof(T));
    file.clear();
    file.seekg(static_cast<std::streamoff>(offset));
    return file.read(reinterpret_cast<char *>(values), size).gcount() == size;
}

/// The numbers of a file, in this program's byte order.
class ByteOrder {
public:
    explicit ByteOrder(bool big_endian) : swaps_(big_endian != (std::endian::native == std::endian::big)) {}

    template <class Number> Number operator()(Number number) const
    {
        auto bytes = std::bit_cast<std::array<unsigned char, sizeof(Number)>>(number);
        if (swaps_)
            std::ranges::reverse(bytes);
        return std::bit_cast<Number>(bytes);
    }

private:
    bool swaps_;
};

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

template <class Elf> std::string header_cut_short(std::uint64_t size)
{
    return cut_short(size, "its header alone takes " + std::to_string(sizeof(typename Elf::Header)));
}

/// Programs that can be loaded at any address look like shared objects, but for this flag.
template <class Elf>
bool is_program(std::ifstream &file, const ByteOrder &order, const std::vector<typename Elf::Segment> &segments)
{
    const auto dynamic = std::ranges::find_if(
        segments, [&order](const typename Elf::Segment &segment) { return order(segment.p_type) == PT_DYNAMIC; });
    if (dynamic == segments.end())
        return false;
    // The segment ends within the file, so the number fits.
    std::vector<typename Elf::Dynamic> entries(
        static_cast<std::size_t>(order(dynamic->p_filesz) / sizeof(typename Elf::Dynamic)));
    return read_at(file, order(dynamic->p_offset), entries.data(), entries.size()) &&
           std::ranges::any_of(entries, [&order](const typename Elf::Dynamic &entry) {
               return order(entry.d_tag) == DT_FLAGS_1 && (order(entry.d_un.d_val) & DF_1_PIE) != 0;
           });
}

template <class Elf>
std::optional<std::string> fault_of_segments(std::ifstream &file, std::uint64_t size, const ByteOrder &order)
{
    typename Elf::Header header;
    if (!read_at(file, 0, &header, 1))
        return header_cut_short<Elf>(size);
    if (header.e_phnum == 0 || order(header.e_phentsize) != sizeof(typename Elf::Segment))
        return "it has no segments that could be loaded";
    std::vector<typename Elf::Segment> segments(order(header.e_phnum));
    if (!read_at(file, order(header.e_phoff), segments.data(), segments.size()))
        return cut_short(size, "the table of its segments ends behind that");

    std::uint64_t end = 0;
    for (const typename Elf::Segment &segment : segments) {
        const std::uint64_t begin = order(segment.p_offset);
        const std::uint64_t segment_end = begin + order(segment.p_filesz);
        if (segment_end < begin)
            return "the place of one of its segments is no place in any file";
        if (segment.p_filesz != 0)
            end = std::max(end, segment_end);
    }
    if (end > size)
        return cut_short(size, "its segments take " + std::to_string(end));
    if (is_program<Elf>(file, order, segments))
        return fault_of_type(ET_EXEC);
    return std::nullopt;
}

/// Whatever is wrong with the file before one asks which machine it is for.
std::optional<std::string> fault_of_beginning(const std::filesystem::path &path)
{
    if (std::optional<std::string> fault = fault_of_file(path))
        return fault;
    std::ifstream file(path, std::ios::binary | std::ios::ate);
    const auto size = static_cast<std::uint64_t>(file.tellg());
    if (size == 0)
        return "it is empty";
    std::array<char, SELFMAG> magic{};
    if (!read_at(file, 0, magic.data(), magic.size()) || std::memcmp(magic.data(), ELFMAG, SELFMAG) != 0)
        return "it is no shared object";
    if (machine_of(path))
        return std::nullopt;
    char bits = 0;
    const bool wide = read_at(file, EI_CLASS, &bits, 1) ? bits == ELFCLASS64 : sizeof(void *) == 8;
    return wide ? header_cut_short<Elf64>(size) : header_cut_short<Elf32>(size);
}

/// And behind that. The file begins as one for this machine does.
std::optional<std::string> fault_of_rest(const std::filesystem::path &path, const Machine &machine)
{
    std::ifstream file(path, std::ios::binary | std::ios::ate);
    const auto size = static_cast<std::uint64_t>(file.tellg());
    const ByteOrder order(machine.big_endian);
    std::uint16_t type = 0;
    if (!read_at(file, EI_NIDENT, &type, 1))
        return header_cut_short<Elf32>(size);
    if (std::optional<std::string> fault = fault_of_type(order(type)))
        return fault;
    return machine.bits == 64 ? fault_of_segments<Elf64>(file, size, order)
                              : fault_of_segments<Elf32>(file, size, order);
}

} // namespace

std::optional<std::string> fault_of_file(const std::filesystem::path &path)
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
    const std::ifstream file(path, std::ios::binary);
    if (!file)
        return std::strerror(errno);
    return std::nullopt;
}

std::optional<std::string> fault_of_any_shared_object(const std::filesystem::path &path)
{
    if (std::optional<std::string> fault = fault_of_beginning(path))
        return fault;
    return fault_of_rest(path, *machine_of(path));
}

std::optional<std::string> fault_of_shared_object(const std::filesystem::path &path)
{
    if (std::optional<std::string> fault = fault_of_beginning(path))
        return fault;
    const Machine machine = *machine_of(path);
    const std::optional<Machine> ours = this_machine();
    if (ours && machine != *ours)
        return "it is for " + name_of(machine) + ", and this program is for " + name_of(*ours);
    return fault_of_rest(path, machine);
}

} // namespace kelmora_host
