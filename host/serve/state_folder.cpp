#include "host/serve/state_folder.h"

#include "host/contract/listing.h"
#include "host/gateway/blank.h"
#include "host/plugin/translate.h"
#include "host/serve/http.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fstream>
#include <sstream>
#include <system_error>

namespace kelmora_host {

namespace {

namespace fs = std::filesystem;

/// What is in a folder by name, but for what is hidden. Throws FolderError.
std::vector<fs::path> entries(const fs::path &folder)
{
    std::error_code error;
    std::vector<fs::path> paths;
    for (fs::directory_iterator entry(folder, error); !error && entry != fs::directory_iterator();
         entry.increment(error)) {
        if (!entry->path().filename().string().starts_with('.'))
            paths.push_back(entry->path());
    }
    if (error)
        throw FolderError(folder.string() + ": " + error.message());
    std::ranges::sort(paths);
    return paths;
}

AppliedFile not_applied(const fs::path &path, std::string fault)
{
    return {path.string(), std::nullopt, std::move(fault)};
}

AppliedFile apply(const fs::path &path, const Resource &resource, std::vector<Node> &nodes)
{
    const std::optional<std::string> id = percent_decoded(path.stem().string());
    if (!id || id->empty() || id->size() > Node::longest_id || id->find('\0') != std::string::npos)
        return not_applied(path, "its name is no id");
    std::error_code error;
    if (fs::is_directory(path, error))
        return not_applied(path, std::strerror(EISDIR));
    errno = 0;
    std::ifstream file(path, std::ios::binary);
    std::ostringstream text;
    if (!file || !(text << file.rdbuf() || file.peek() == std::ifstream::traits_type::eof()))
        return not_applied(path, std::strerror(errno != 0 ? errno : EIO));

    const auto found = std::ranges::find(nodes, *id, &Node::id);
    Node node = found != nodes.end() ? *found : Node(*id, blank_record(resource));
    const Registration &translators = *Registry::instance().find(resource.number);
    AppliedFile applied{path.string(),
                        CheckedFile{path.string(), resource.name, check(resource, translators, node, text.str()),
                                    std::nullopt, is_raw(resource)},
                        ""};
    if (applied.checked->check.result == CheckResult::rejected)
        return applied;
    from_json(translators.from, node, text.str());
    if (found != nodes.end())
        *found = std::move(node);
    else
        nodes.push_back(std::move(node));
    return applied;
}

} // namespace

std::vector<AppliedFile> apply_folder(const fs::path &folder, Gateway &gateway)
{
    std::vector<AppliedFile> applied;
    for (const fs::path &of_resource : entries(folder)) {
        std::error_code error;
        if (!fs::is_directory(of_resource, error))
            continue;
        const std::string name = of_resource.filename().string();
        const Resource *resource = find_resource(name);
        if (resource == nullptr) {
            applied.push_back(not_applied(of_resource, no_such_resource(name)));
            continue;
        }
        for (const fs::path &path : entries(of_resource)) {
            if (path.extension() == ".json")
                applied.push_back(apply(path, *resource, gateway.nodes(name)));
        }
    }
    return applied;
}

} // namespace kelmora_host
