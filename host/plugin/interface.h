#ifndef KELMORA_HOST_PLUGIN_INTERFACE_H
#define KELMORA_HOST_PLUGIN_INTERFACE_H

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kelmora_host {

/// Who provides a function that the plug-in may import.
enum class Provider { host, jansson, c_library };

/// A function that the plug-in may import.
struct AllowedImport {
    std::string_view name;
    Provider provider;
};

/// The names in the project's list of exports: what the plug-in exports, no more and no less. By the alphabet.
[[nodiscard]] const std::vector<std::string> &interface_exports();

/// The names in the project's list of imports: a build need not use them all, and uses no other.
[[nodiscard]] const std::vector<AllowedImport> &interface_imports();

/// Who provides an import; nothing when the plug-in may not have it.
[[nodiscard]] std::optional<Provider> provider_of(std::string_view import);

/// The lists' texts, abi/exports.txt and abi/imports.txt, which are put into the program when it is built.
extern const std::string_view exports_text;
extern const std::string_view imports_text;

} // namespace kelmora_host

#endif
