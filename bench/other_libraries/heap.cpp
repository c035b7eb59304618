// Prints what each case of each other_library asks of the heap, and how its result compares with the baseline's:
// "RESOURCE DIRECTION SIZE: LIBRARY: ALLOCATIONS PEAK same|nearest".
#include "bench/heap.h"
#include "bench/other_libraries/cases.h"
#include "bench/program.h"

#include <iostream>
#include <string>

namespace kelmora_bench {

namespace {

void run()
{
    const kelmora_host::Plugin plugin(kelmora_host::Plugin::default_path());
    for (const OtherLibrary &other_library : all_peers()) {
        for_each_case(other_library, [](const std::string &name, auto &call, bool same_bytes) {
            watch_heap();
            call.make();
            const HeapUse use = heap_use();
            std::cout << name << ": " << use.allocations << " " << use.peak << " " << (same_bytes ? "same" : "nearest")
                      << "\n";
        });
    }
}

} // namespace

} // namespace kelmora_bench

int main() { return kelmora_bench::run_program("kelmora-bench-other-libraries-heap", kelmora_bench::run); }
