// Prints what memory the plug-in takes once it is loaded and has registered its translators: a line for each of its
// mappings, "PERMISSIONS RSS PRIVATE_CLEAN PRIVATE_DIRTY" in KiB.
#include "bench/program.h"

#include "host/plugin/plugin.h"

#include <fstream>
#include <iostream>
#include <sstream>
#include <stdexcept>
#include <string>

namespace {

/// The lines of /proc/self/smaps: a mapping's begins with its addresses, and those on it follow.
void print_mappings(const std::string &file)
{
    std::ifstream smaps("/proc/self/smaps");
    bool mapped = false;
    bool ours = false;
    for (std::string line; std::getline(smaps, line);) {
        std::istringstream words(line);
        std::string first;
        std::string second;
        words >> first >> second;
        if (first.back() != ':') {
            ours = line.ends_with("/" + file);
            mapped = mapped || ours;
            if (ours)
                std::cout << second;
        } else if (ours && (first == "Rss:" || first == "Private_Clean:" || first == "Private_Dirty:")) {
            std::cout << " " << second << (first == "Private_Dirty:" ? "\n" : "");
        }
    }
    if (!mapped)
        throw std::runtime_error("/proc/self/smaps does not name the plug-in");
}

} // namespace

int main()
{
    return kelmora_bench::run_program("kelmora-bench-pages", [] {
        const auto path = kelmora_host::Plugin::default_path();
        const kelmora_host::Plugin plugin(path);
        print_mappings(path.filename());
    });
}
