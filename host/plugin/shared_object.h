#ifndef KELMORA_HOST_PLUGIN_SHARED_OBJECT_H
#define KELMORA_HOST_PLUGIN_SHARED_OBJECT_H

#include <filesystem>
#include <optional>
#include <string>

namespace kelmora_host {

/// Why this program cannot load the file as a shared object, as far as the file's ELF header and segments tell: part of
/// a sentence for the user ("it is empty"). Nothing where they tell nothing against it. The loader itself takes the
/// segments for granted: touching one that lies behind the file's end kills the process.
[[nodiscard]] std::optional<std::string> fault_of_shared_object(const std::filesystem::path &path);

} // namespace kelmora_host

#endif
