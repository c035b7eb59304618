#ifndef KELMORA_BENCH_CALLGRIND_H
#define KELMORA_BENCH_CALLGRIND_H

#include <stdexcept>
#include <string>
#include <sys/wait.h>
#include <unistd.h>
#include <valgrind/callgrind.h>

namespace kelmora_bench {

/// Has callgrind, which must be running this program with --collect-atstart=no, count the instructions of call() and
/// write them to a file under this name. The call is made in a process of its own, so that all calls find the same
/// heap: what an allocation costs depends on what was freed before. Throws std::runtime_error when that fails.
template <class Call> void count_instructions(const std::string &name, Call call)
{
    const pid_t child = fork();
    if (child == 0) {
        CALLGRIND_ZERO_STATS;
        CALLGRIND_TOGGLE_COLLECT;
        call();
        CALLGRIND_TOGGLE_COLLECT;
        CALLGRIND_DUMP_STATS_AT(name.c_str());
        _exit(0);
    }
    int status = 0;
    if (child < 0 || waitpid(child, &status, 0) != child || status != 0)
        throw std::runtime_error("could not measure " + name);
}

} // namespace kelmora_bench

#endif
