// Counts the instructions of each case of each peer.
#include "bench/counting.h"
#include "bench/peers/cases.h"
#include "bench/program.h"

#include <jansson.h>
#include <string>

namespace kelmora_bench {

namespace {

void run()
{
    json_object_seed(1); // or the order in its hash tables, and with it the counts, would change from run to run
    const kelmora_host::Plugin plugin(kelmora_host::Plugin::default_path());
    for (const Peer &peer : all_peers()) {
        in_child(peer.name, [&] { // so that all peers find the same heap
            for_each_case(peer, [](const std::string &name, auto &call, bool /*same_bytes*/) {
                count_instructions(name, [&] { call.make(); });
            });
        });
    }
}

} // namespace

} // namespace kelmora_bench

int main() { return kelmora_bench::run_program("kelmora-bench-peers", kelmora_bench::run); }
