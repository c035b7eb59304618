#ifndef KELMORA_HOST_PLUGIN_PLUGIN_H
#define KELMORA_HOST_PLUGIN_PLUGIN_H

#include "kelmora_json.h"

#include <filesystem>
#include <stdexcept>
#include <string>
#include <string_view>

namespace kelmora_host {

/// A plug-in could not be loaded; what() says why.
class PluginError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// A shared object that this process has loaded, with the plug-in's two entry points. It stays loaded until the process
/// ends.
struct LoadedObject {
    void *library; ///< for dlsym
    int (*init)();
    const char *(*version)();
};

/// Loads the shared object, and calls nothing in it. Throws PluginError when the file does not load, or does not export
/// the entry points.
[[nodiscard]] LoadedObject load_object(const std::filesystem::path &path);

/// The plug-in, loaded into this process. It stays loaded until the process ends: the texts of its errors are its own.
class Plugin {
public:
    /// Loads the shared object and lets it register its translators. Throws PluginError when the file does not load, a
    /// symbol is missing, or a pair was not registered.
    explicit Plugin(const std::filesystem::path &path);

    [[nodiscard]] const std::string &version() const { return version_; }

    /// The version of the plug-in that this program is made with.
    static constexpr std::string_view default_version = KELMORA_JSON_VERSION;

    /// Where that plug-in is: beside the running program, or else where it is installed together with the program.
    static std::filesystem::path default_path();

private:
    std::string version_;
};

} // namespace kelmora_host

#endif
