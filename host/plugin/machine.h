#ifndef KELMORA_HOST_PLUGIN_MACHINE_H
#define KELMORA_HOST_PLUGIN_MACHINE_H

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>

namespace kelmora_host {

/// The kind of machine that an ELF file is for.
struct Machine {
    int bits; ///< 32 or 64
    bool big_endian;
    std::uint16_t number; ///< as ELF numbers them: EM_MIPS

    bool operator==(const Machine &) const = default;
};

/// "32-bit big-endian MIPS"
[[nodiscard]] std::string name_of(const Machine &machine);

/// The machine that an ELF file says it is for; nothing when the file is none, or too short to say.
[[nodiscard]] std::optional<Machine> machine_of(const std::filesystem::path &path);

/// The one that this program is for; nothing when the program cannot read itself.
[[nodiscard]] std::optional<Machine> this_machine();

} // namespace kelmora_host

#endif
