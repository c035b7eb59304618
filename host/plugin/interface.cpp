#include "host/plugin/interface.h"

#include <algorithm>

namespace kelmora_host {

namespace {

/// Calls look(line) for each line of a text.
template <class Look> void each_line(std::string_view text, Look look)
{
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        look(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
    }
}

bool is_name(std::string_view line) { return !line.empty() && !line.starts_with('#'); }

std::vector<std::string> read_exports()
{
    std::vector<std::string> names;
    each_line(exports_text, [&](std::string_view line) {
        if (is_name(line))
            names.emplace_back(line);
    });
    std::ranges::sort(names);
    return names;
}

std::vector<AllowedImport> read_imports()
{
    std::vector<AllowedImport> imports;
    Provider provider = Provider::c_library;
    each_line(imports_text, [&](std::string_view line) {
        if (line == "# The host's")
            provider = Provider::host;
        else if (line == "# jansson's")
            provider = Provider::jansson;
        else if (line == "# The C library's")
            provider = Provider::c_library;
        else if (is_name(line))
            imports.push_back({line, provider});
    });
    return imports;
}

} // namespace

const std::vector<std::string> &interface_exports()
{
    static const std::vector<std::string> names = read_exports();
    return names;
}

const std::vector<AllowedImport> &interface_imports()
{
    static const std::vector<AllowedImport> imports = read_imports();
    return imports;
}

std::optional<Provider> provider_of(std::string_view import)
{
    const std::vector<AllowedImport> &all = interface_imports();
    const auto found = std::ranges::find(all, import, &AllowedImport::name);
    return found != all.end() ? std::optional(found->provider) : std::nullopt;
}

} // namespace kelmora_host
