#ifndef KELMORA_BENCH_PROGRAM_H
#define KELMORA_BENCH_PROGRAM_H

#include <exception>
#include <iostream>

namespace kelmora_bench {

/// A program's exit status: 0 when its work is done, 1 when an exception ended it, whose message is then on stderr.
template <class Work> int run_program(const char *name, Work work)
{
    try {
        work();
        return 0;
    } catch (const std::exception &error) {
        std::cerr << name << ": error: " << error.what() << "\n";
        return 1;
    }
}

} // namespace kelmora_bench

#endif
