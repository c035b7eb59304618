#ifndef KELMORA_HOST_PLUGIN_DOCTOR_H
#define KELMORA_HOST_PLUGIN_DOCTOR_H

#include "host/plugin/elf_file.h"
#include "host/plugin/interface.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kelmora_host {

/// Something that is wrong with a plug-in.
struct PluginFault {
    std::string_view code;            ///< "exports", "imports", ...: what the fault is about, for programs
    std::string message;              ///< a sentence without its end; of many symbols it names the first ones
    std::vector<std::string> symbols; ///< those that it is about, all of them
};

/// What becomes of a plug-in that is looked at.
struct Examination {
    std::string file;
    std::optional<ElfFile> object; ///< nothing where the file is no shared object
    bool is_for_this_machine = false;
    std::vector<std::string> unresolved; ///< imports that this process does not have; where it is for this machine
    std::string version;                 ///< of one that was loaded; else empty
    std::vector<int> registrations;      ///< the numbers, in the order in which they came
    std::vector<PluginFault> faults;

    [[nodiscard]] bool is_loaded() const { return !version.empty(); }
};

/// Looks at a plug-in: its file, against the lists of what it exports and may import; and, where it is for this machine
/// and imports nothing that this process lacks, what it registers when it is loaded.
/// suppliers: a program that is to load the plug-in, and libraries that this program loads; where there are any, they
/// must have the functions that the plug-in imports, but for the C library's.
/// Throws PluginError when a file cannot be read, and ElfError when this program was built without libelf.
[[nodiscard]] Examination examine(const std::filesystem::path &plugin,
                                  const std::vector<std::filesystem::path> &suppliers);

} // namespace kelmora_host

#endif
