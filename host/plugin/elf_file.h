#ifndef KELMORA_HOST_PLUGIN_ELF_FILE_H
#define KELMORA_HOST_PLUGIN_ELF_FILE_H

#include "host/plugin/machine.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

namespace kelmora_host {

/// An ELF file could not be looked into; what() says why, as part of a sentence for the user.
class ElfError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// A symbol that a shared object takes from the process.
struct ElfImport {
    std::string name;
    bool lazy; ///< it is resolved at its first call, not when the object is loaded
};

/// A part of a shared object that may be written to.
struct ElfSection {
    std::string name;
    std::uint64_t size; ///< in bytes
};

/// What a loader has to do with a program or shared object, whatever machine that is for.
struct ElfFile {
    Machine machine;
    std::optional<std::string> soname;
    std::vector<std::string> needed;  ///< libraries, in their order
    std::vector<std::string> exports; ///< by the alphabet
    std::vector<ElfImport> imports;   ///< by the alphabet
    std::vector<ElfSection> writable; ///< without the loader's own: the table of imports and the like
    std::vector<std::string>
        relocations;                   ///< names of the symbols, "" for none, that must be resolved when it is loaded
    bool binds_now = false;            ///< it asks for all imports to be bound when it is loaded
    bool has_text_relocations = false; ///< code is changed when it is loaded
    bool has_executable_stack = false; ///< it asks for one, or does not say that it needs none
};

/// Whether this build of the program can look into ELF files: it takes libelf.
[[nodiscard]] bool can_read_elf_files();

/// Looks into a program or shared object. Throws ElfError when that is not possible.
[[nodiscard]] ElfFile read_elf_file(const std::filesystem::path &path);

} // namespace kelmora_host

#endif
