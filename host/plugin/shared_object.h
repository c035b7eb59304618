#ifndef KELMORA_HOST_PLUGIN_SHARED_OBJECT_H
#define KELMORA_HOST_PLUGIN_SHARED_OBJECT_H

#include <filesystem>
#include <optional>
#include <string>

namespace kelmora_host {

// Each of these is part of a sentence for the user ("it is empty"), or nothing where there is no such fault.

/// Why nothing can be read from the file: there is none, it is a directory, it may not be opened.
[[nodiscard]] std::optional<std::string> fault_of_file(const std::filesystem::path &path);

/// Why the file is no shared object for any machine, as far as its ELF header and segments tell. The loader itself
/// takes the segments for granted: touching one that lies behind the file's end kills the process.
[[nodiscard]] std::optional<std::string> fault_of_any_shared_object(const std::filesystem::path &path);

/// Why this program cannot load the file as a shared object: all of the above, and the machine that it is for.
[[nodiscard]] std::optional<std::string> fault_of_shared_object(const std::filesystem::path &path);

} // namespace kelmora_host

#endif
