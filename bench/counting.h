#ifndef KELMORA_BENCH_COUNTING_H
#define KELMORA_BENCH_COUNTING_H

#include <cstdio>
#include <stdexcept>
#include <string>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#ifndef __mips__
#include <valgrind/callgrind.h>
#endif

namespace kelmora_bench {

// What counts a program's instructions is what runs it: callgrind on the developer's machine (with
// --collect-atstart=no), the emulator with bench/qemu_counter.c on the target's.

#ifdef __mips__

/// A system call that does nothing, and that nothing else here makes: the counter begins or ends with it.
inline constexpr long mark = SYS_getppid;

inline void begin_count() { syscall(mark); }

inline void end_count(const std::string &name)
{
    syscall(mark);
    std::printf("%s\n", name.c_str()); // behind the count, on the same line
    std::fflush(stdout);
}

#else

inline void begin_count()
{
    CALLGRIND_ZERO_STATS;
    CALLGRIND_TOGGLE_COLLECT;
}

inline void end_count(const std::string &name)
{
    CALLGRIND_TOGGLE_COLLECT;
    CALLGRIND_DUMP_STATS_AT(name.c_str());
}

#endif

/// Runs run() in a process of its own. Throws std::runtime_error when that fails. name: what it is called then.
template <class Run> void in_child(const std::string &name, Run run)
{
    const pid_t child = fork();
    if (child == 0) {
        run();
        _exit(0);
    }
    int status = 0;
    if (child < 0 || waitpid(child, &status, 0) != child || status != 0)
        throw std::runtime_error("could not measure " + name);
}

/// Counts the instructions of call() under this name. The call is made in a process of its own, so that all calls find
/// the same heap: what an allocation costs depends on what was freed before. Throws std::runtime_error when that fails.
template <class Call> void count_instructions(const std::string &name, Call call)
{
    in_child(name, [&] {
        begin_count();
        call();
        end_count(name);
    });
}

} // namespace kelmora_bench

#endif
