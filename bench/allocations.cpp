// Prints what each case asks of the heap, of the library and of its baseline: "NAME ALLOCATIONS PEAK".
#include "bench/calls.h"
#include "bench/heap.h"
#include "bench/program.h"

#include <iostream>

namespace kelmora_bench {

namespace {

template <class Call> void count(const Case &measured, const char *side, Call &call)
{
    call.prepare();
    watch_heap();
    call.make();
    const HeapUse use = heap_use();
    std::cout << measured.workload.resource << " " << measured.direction << " " << measured.size << " " << side << " "
              << use.allocations << " " << use.peak << "\n";
}

} // namespace

} // namespace kelmora_bench

int main(int argc, char **argv)
{
    using namespace kelmora_bench;
    return run_program("kelmora-bench-allocations", [&] {
        for_each_case(plugin_file(argc, argv), [](const Case &measured, auto &library, auto &baseline) {
            count(measured, "library", library);
            count(measured, "baseline", baseline);
        });
    });
}
