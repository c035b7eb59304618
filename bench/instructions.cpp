// Counts the instructions of each case, of the library and of its baseline.
#include "bench/calls.h"
#include "bench/counting.h"
#include "bench/program.h"

#include <jansson.h>
#include <string>

namespace kelmora_bench {

namespace {

void run(const std::filesystem::path &plugin)
{
    json_object_seed(1); // or the order in its hash tables, and with it the counts, would change from run to run
    for_each_case(plugin, [](const Case &measured, auto &library, auto &baseline) {
        const std::string name =
            std::string(measured.workload.resource) + " " + measured.direction + " " + std::to_string(measured.size);
        library.prepare();
        baseline.prepare();
        count_instructions(name + " library", [&] { library.make(); });
        count_instructions(name + " baseline", [&] { baseline.make(); });
    });
}

} // namespace

} // namespace kelmora_bench

int main(int argc, char **argv)
{
    using namespace kelmora_bench;
    return run_program("kelmora-bench-instructions", [&] { run(plugin_file(argc, argv)); });
}
