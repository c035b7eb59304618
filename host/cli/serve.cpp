#include "host/cli/serve.h"

#include "host/cli/diagnostics.h"
#include "host/cli/report.h"
#include "host/cli/style.h"
#include "host/serve/server.h"
#include "host/serve/state_folder.h"

#include <filesystem>
#include <fmt/format.h>
#include <ostream>
#include <system_error>
#include <unistd.h>

namespace kelmora_host {

namespace {

Gateway gateway_with(const std::optional<std::string> &folder, std::ostream &err)
{
    Gateway gateway = sample_gateway();
    if (!folder)
        return gateway;
    try {
        for (const AppliedFile &file : apply_folder(*folder, gateway))
            err << (file.checked ? diagnostics(*file.checked, Style::of(STDERR_FILENO))
                                 : error_line(file.path, file.fault) + "\n");
    } catch (const FolderError &error) {
        throw Failure(Status::environment, error.what());
    }
    return gateway;
}

/// Where `make docs` puts the reference, seen from the program that was built, or else where it is installed.
std::filesystem::path docs_folder()
{
    const std::filesystem::path folder = std::filesystem::read_symlink("/proc/self/exe").parent_path();
    std::error_code unknown;
    const std::filesystem::path built = folder / ".." / "docs";
    return is_directory(built, unknown) ? built : folder / KELMORA_INSTALLED_DOCS_DIR;
}

} // namespace

void serve(const ServeArguments &given, std::ostream &out, std::ostream &err)
{
    try {
        Server server(given.port);
        const StopOnSignals stop(server);
        State state(gateway_with(given.state, err));
        Api api(state, {server.port(), given.cors_origin, docs_folder(), page_assets()});
        out << fmt::format("kelmora-host serves http://127.0.0.1:{}/ until Ctrl-C\n", server.port()) << std::flush;
        server.run(api, err);
    } catch (const ServerError &error) {
        throw Failure(Status::environment, error.what());
    }
}

} // namespace kelmora_host
