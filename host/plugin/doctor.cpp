#include "host/plugin/doctor.h"

#include "host/gateway/resources.h"
#include "host/plugin/plugin.h"
#include "host/plugin/registry.h"
#include "host/plugin/shared_object.h"

#include <algorithm>
#include <array>
#include <dlfcn.h>
#include <fmt/format.h>
#include <fmt/ranges.h>
#include <iterator>
#include <span>

namespace kelmora_host {

namespace {

using Names = std::vector<std::string>;

/// "a, b and c", or of more than a line takes the first ones and how many more there are.
std::string first_of(const Names &names)
{
    constexpr std::size_t most = 6;
    if (names.size() > most + 1)
        return fmt::format("{} and {} more", fmt::join(names.begin(), names.begin() + most, ", "), names.size() - most);
    return names.size() == 1 ? names.front()
                             : fmt::format("{} and {}", fmt::join(names.begin(), names.end() - 1, ", "), names.back());
}

bool has(const Names &names, std::string_view name) { return std::ranges::find(names, name) != names.end(); }

class Examiner {
public:
    explicit Examiner(const std::filesystem::path &plugin) : path_(plugin) { found_.file = plugin.string(); }

    Examination examine(const std::vector<std::filesystem::path> &suppliers)
    {
        if (const std::optional<std::string> fault = fault_of_file(path_))
            throw PluginError("cannot read " + found_.file + ": " + *fault);
        if (!can_read_elf_files())
            (void)read_elf_file(path_); // says why
        if (const std::optional<std::string> fault = fault_of_any_shared_object(path_)) {
            add("file", *fault);
            return std::move(found_);
        }
        try {
            found_.object = read_elf_file(path_);
        } catch (const ElfError &error) {
            add("file", error.what());
            return std::move(found_);
        }
        found_.is_for_this_machine = found_.object->machine == this_machine();
        if (!look_at_exports())
            return std::move(found_);
        look_at_imports();
        look_at_loading();
        look_at_suppliers(suppliers);
        if (found_.is_for_this_machine && has(found_.object->exports, "kelmora_json_init") &&
            has(found_.object->exports, "kelmora_json_get_version"))
            look_at_process();
        return std::move(found_);
    }

private:
    void add(std::string_view code, std::string message, Names symbols = {})
    {
        found_.faults.push_back({code, std::move(message), std::move(symbols)});
    }

    /// A fault about symbols, where there are any: "it does not export a, b and c".
    void add_if_any(std::string_view code, std::string_view what, const Names &symbols)
    {
        if (!symbols.empty())
            add(code, fmt::format("{} {}", what, first_of(symbols)), symbols);
    }

    /// Whether it is a libkelmora_json at all.
    bool look_at_exports()
    {
        const Names &exports = found_.object->exports;
        Names missing;
        Names surplus;
        std::ranges::set_difference(interface_exports(), exports, std::back_inserter(missing));
        std::ranges::set_difference(exports, interface_exports(), std::back_inserter(surplus));
        if (missing.size() == interface_exports().size()) {
            add("exports", "it is no libkelmora_json: it exports nothing of what that exports", missing);
            return false;
        }
        add_if_any("exports", "it does not export", missing);
        add_if_any("exports", "it exports what is not in the interface:", surplus);
        return true;
    }

    void look_at_imports()
    {
        Names surplus;
        Names eager;
        for (const ElfImport &import : found_.object->imports) {
            if (!provider_of(import.name))
                surplus.push_back(import.name);
            if (!import.lazy)
                eager.push_back(import.name);
        }
        add_if_any("imports", "it imports what neither host, jansson nor C library is asked for:", surplus);
        add_if_any("binding", "these imports are not left to their first call:", eager);
    }

    void look_at_loading()
    {
        const ElfFile &object = *found_.object;
        Names libraries; // of whatever C library
        std::ranges::copy_if(object.needed, std::back_inserter(libraries),
                             [](const std::string &library) { return !library.starts_with("libc."); });
        add_if_any("needs", "it needs other libraries than the C library:", libraries);
        if (object.binds_now)
            add("binding",
                "it asks for all imports to be bound when it is loaded: a host must then have all functions, also "
                "those for resources that it does not have");
        if (object.has_text_relocations)
            add("relocations", "its code is changed when it is loaded, and cannot be shared by processes");
        if (!object.relocations.empty())
            add("relocations", fmt::format("{} to be resolved when it is loaded",
                                           object.relocations.size() == 1
                                               ? "it has a relocation"
                                               : fmt::format("it has {} relocations", object.relocations.size())));
        for (const ElfSection &section : object.writable)
            add("writable", fmt::format("it has writable data: {}, {} byte{}", section.name, section.size,
                                        section.size == 1 ? "" : "s"));
        if (object.has_executable_stack)
            add("stack", "it asks for a stack that is executable");
    }

    /// The imports that a provider's functions are, of which `is_there` knows nothing.
    template <class IsThere> Names lacking(Provider provider, IsThere is_there) const
    {
        Names names;
        for (const ElfImport &import : found_.object->imports) {
            if (provider_of(import.name) == provider && !is_there(import.name))
                names.push_back(import.name);
        }
        return names;
    }

    void look_at_suppliers(const std::vector<std::filesystem::path> &paths)
    {
        if (paths.empty())
            return;
        Names exports;
        bool with_jansson = false;
        for (const std::filesystem::path &path : paths) {
            if (const std::optional<std::string> fault = fault_of_file(path))
                throw PluginError("cannot read " + path.string() + ": " + *fault);
            ElfFile supplier{};
            try {
                supplier = read_elf_file(path);
            } catch (const ElfError &error) {
                add("host", fmt::format("{} supplies nothing: {}", path.string(), error.what()));
                continue;
            }
            if (supplier.machine != found_.object->machine) {
                add("host",
                    fmt::format("{} is for {}, and supplies nothing", path.string(), name_of(supplier.machine)));
                continue;
            }
            std::ranges::copy(supplier.exports, std::back_inserter(exports));
            with_jansson |= std::ranges::any_of(
                supplier.needed, [](const std::string &library) { return library.starts_with("libjansson.so"); });
        }
        const auto exported = [&exports](const std::string &name) { return has(exports, name); };
        const std::string &program = paths.front().string();
        add_if_any("host",
                   program + " does not export these of the host's functions:", lacking(Provider::host, exported));
        if (!with_jansson)
            add_if_any("host", program + " does not load jansson, and does not export these of its functions:",
                       lacking(Provider::jansson, exported));
    }

    void look_at_process()
    {
        for (const ElfImport &import : found_.object->imports) {
            if (dlsym(RTLD_DEFAULT, import.name.c_str()) == nullptr)
                found_.unresolved.push_back(import.name);
        }
        if (!found_.unresolved.empty()) {
            add_if_any("unresolved", "it is not loaded, as this program has no", found_.unresolved);
            return;
        }
        try {
            look_at_registrations(load_object(path_));
        } catch (const PluginError &error) {
            add("load", error.what());
        }
    }

    void look_at_registrations(const LoadedObject &object)
    {
        const std::size_t before = Registry::instance().log().size();
        object.init();
        const char *version = object.version();
        found_.version = version != nullptr ? version : "";
        if (found_.version.empty()) {
            add("version", "it has no version");
            return;
        }
        const std::span<const Registration> log = std::span(Registry::instance().log()).subspan(before);
        int last = -1;
        for (const Registration &registration : log) {
            const int number = registration.number;
            found_.registrations.push_back(number);
            if (number <= last)
                add("registrations", fmt::format("it registers {} behind {}", named(number), named(last)));
            last = number;
            look_at(registration, object.library);
        }
        for (const Resource &resource : resources()) {
            if (std::ranges::find(found_.registrations, resource.number) == found_.registrations.end())
                add("registrations", fmt::format("it registers no translators for {}", named(resource.number)));
        }
    }

    static bool is_resource(int number) { return number >= 0 && number < KELMORA_RESOURCE_COUNT; }

    /// "number 5, radio"
    static std::string named(int number)
    {
        return is_resource(number)
                   ? fmt::format("number {}, {}", number, resources()[static_cast<std::size_t>(number)].name)
                   : fmt::format("number {}", number);
    }

    /// A pair is that of the functions which bear the resource's name.
    void look_at(const Registration &registration, void *library)
    {
        if (!is_resource(registration.number)) {
            add("registrations", fmt::format("it registers {}, which no resource has", named(registration.number)));
            return;
        }
        const std::string name(resources()[static_cast<std::size_t>(registration.number)].name);
        const std::array<std::pair<std::string, void *>, 2> pair{
            {{name + "_from_translator", reinterpret_cast<void *>(registration.from)},
             {name + "_to_translator", reinterpret_cast<void *>(registration.to)}}};
        for (const auto &[function, registered] : pair) {
            if (registered != dlsym(library, function.c_str()))
                add("registrations",
                    fmt::format("for {} it registers another function than {}", named(registration.number), function),
                    {function});
        }
    }

    std::filesystem::path path_;
    Examination found_;
};

} // namespace

Examination examine(const std::filesystem::path &plugin, const std::vector<std::filesystem::path> &suppliers)
{
    return Examiner(plugin).examine(suppliers);
}

} // namespace kelmora_host
