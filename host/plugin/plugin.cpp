#include "host/plugin/plugin.h"

#include "host/gateway/resources.h"
#include "host/plugin/registry.h"
#include "host/plugin/shared_object.h"

#include <dlfcn.h>
#include <optional>
#include <system_error>

namespace kelmora_host {

namespace {

void *load(const std::filesystem::path &path)
{
    if (const std::optional<std::string> fault = fault_of_shared_object(path))
        throw PluginError("cannot load " + path.string() + ": " + *fault);
    // A name without a slash would be searched for in the system's library folders.
    const std::string absolute = std::filesystem::absolute(path);
    void *library = dlopen(absolute.c_str(), RTLD_LAZY | RTLD_LOCAL);
    if (library != nullptr)
        return library;
    const char *words = dlerror();
    std::string reason = words != nullptr ? words : "the loader does not say why";
    if (reason.starts_with(absolute + ": "))
        reason.erase(0, absolute.size() + 2);
    throw PluginError("cannot load " + path.string() + ": " + reason);
}

template <class Function> Function *symbol(void *library, const char *name, const std::filesystem::path &path)
{
    void *address = dlsym(library, name);
    if (address == nullptr)
        throw PluginError(path.string() + " is no libkelmora_json: it does not export " + name);
    return reinterpret_cast<Function *>(address);
}

} // namespace

LoadedObject load_object(const std::filesystem::path &path)
{
    void *library = load(path);
    return {library, symbol<int()>(library, "kelmora_json_init", path),
            symbol<const char *()>(library, "kelmora_json_get_version", path)};
}

Plugin::Plugin(const std::filesystem::path &path)
{
    const LoadedObject object = load_object(path);
    object.init();
    for (const Resource &resource : resources()) {
        if (Registry::instance().find(resource.number) == nullptr)
            throw PluginError(path.string() + " registers no translators for " + std::string(resource.name));
    }
    version_ = object.version();
}

std::filesystem::path Plugin::default_path()
{
    const std::filesystem::path folder = std::filesystem::read_symlink("/proc/self/exe").parent_path();
    const std::string file = "libkelmora_json.so." + std::string(default_version);
    const std::filesystem::path installed = folder / KELMORA_INSTALLED_PLUGIN_DIR / file;
    std::error_code unknown;
    return !exists(folder / file, unknown) && exists(installed, unknown) ? installed : folder / file;
}

} // namespace kelmora_host
