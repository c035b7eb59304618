// Counts the instructions of each case of each other_library.
#include "bench/counting.h"
#include "bench/other_libraries/cases.h"
#include "bench/program.h"

#include <jansson.h>
#include <string>

namespace kelmora_bench {

namespace {

void run()
{
    json_object_seed(1); // or the order in its hash tables, and with it the counts, would change from run to run
    const kelmora_host::Plugin plugin(kelmora_host::Plugin::default_path());
    for (const OtherLibrary &other_library : all_peers()) {
        in_child(other_library.name, [&] { // so that all other_libraries find the same heap
            for_each_case(other_library, [](const std::string &name, auto &call, bool /*same_bytes*/) {
                count_instructions(name, [&] { call.make(); });
            });
        });
    }
}

} // namespace

} // namespace kelmora_bench

int main() { return kelmora_bench::run_program("kelmora-bench-other-libraries", kelmora_bench::run); }
