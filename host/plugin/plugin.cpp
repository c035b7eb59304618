#include "host/plugin/plugin.h"

#include "host/gateway/resources.h"
#include "host/plugin/registry.h"

#include <dlfcn.h>
#include <system_error>

namespace kelmora_host {

namespace {

template <class Function> Function *symbol(void *library, const char *name)
{
    void *address = dlsym(library, name);
    if (address == nullptr)
        throw PluginError(dlerror());
    return reinterpret_cast<Function *>(address);
}

} // namespace

Plugin::Plugin(const std::filesystem::path &path)
{
    // A name without a slash would be searched for in the system's library folders.
    void *library = dlopen(std::filesystem::absolute(path).c_str(), RTLD_LAZY | RTLD_LOCAL);
    if (library == nullptr)
        throw PluginError(dlerror());
    auto *init = symbol<int()>(library, "kelmora_json_init");
    auto *get_version = symbol<const char *()>(library, "kelmora_json_get_version");

    init();
    for (const Resource &resource : resources()) {
        if (Registry::instance().find(resource.number) == nullptr)
            throw PluginError(path.string() + ": no translators registered for " + std::string(resource.name));
    }
    version_ = get_version();
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
