#include "host/plugin/machine.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <elf.h>
#include <fstream>

namespace kelmora_host {

std::string name_of(const Machine &machine)
{
    struct Named {
        std::uint16_t number;
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
    const auto *const found = std::ranges::find(known, machine.number, &Named::number);
    return std::to_string(machine.bits) + "-bit " + (machine.big_endian ? "big-endian " : "little-endian ") +
           (found != known.end() ? found->name : "machine " + std::to_string(machine.number));
}

std::optional<Machine> machine_of(const std::filesystem::path &path)
{
    // The part of the header that is the same for all machines, but for the byte order of its two numbers.
    std::array<unsigned char, EI_NIDENT + 4> bytes{};
    std::ifstream file(path, std::ios::binary);
    if (!file.read(reinterpret_cast<char *>(bytes.data()), bytes.size()) ||
        std::memcmp(bytes.data(), ELFMAG, SELFMAG) != 0)
        return std::nullopt;
    const bool big_endian = bytes[EI_DATA] == ELFDATA2MSB;
    const unsigned char high = bytes[EI_NIDENT + (big_endian ? 2 : 3)];
    const unsigned char low = bytes[EI_NIDENT + (big_endian ? 3 : 2)];
    return Machine{bytes[EI_CLASS] == ELFCLASS64 ? 64 : 32, big_endian, static_cast<std::uint16_t>(high << 8 | low)};
}

std::optional<Machine> this_machine() { return machine_of("/proc/self/exe"); }

} // namespace kelmora_host
