#include "host/plugin/elf_file.h"

// Instead of elf_file.cpp where libelf is not found, as it is for the target.

namespace kelmora_host {

bool can_read_elf_files() { return false; }

ElfFile read_elf_file(const std::filesystem::path &)
{
    throw ElfError("this program was built without libelf, which reads such files");
}

} // namespace kelmora_host
