// Prints what each case of each peer asks of the heap, and how its result compares with the floor's:
// "RESOURCE DIRECTION SIZE: PEER: ALLOCATIONS PEAK same|nearest".
#include "bench/heap.h"
#include "bench/peers/cases.h"
#include "bench/program.h"

#include <iostream>
#include <string>

namespace kelmora_bench {

namespace {

void run()
{
    const kelmora_host::Plugin plugin(kelmora_host::Plugin::default_path());
    for (const Peer &peer : all_peers()) {
        for_each_case(peer, [](const std::string &name, auto &call, bool same_bytes) {
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

int main() { return kelmora_bench::run_program("kelmora-bench-peers-heap", kelmora_bench::run); }
