#ifndef KELMORA_BENCH_PROGRAM_H
#define KELMORA_BENCH_PROGRAM_H

#include "host/plugin/plugin.h"

#include <exception>
#include <filesystem>
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

/// The plug-in that a program measures: the file that its first argument names, or the one beside it.
inline std::filesystem::path plugin_file(int argc, char **argv)
{
    return argc > 1 ? std::filesystem::path(argv[1]) : kelmora_host::Plugin::default_path();
}

} // namespace kelmora_bench

#endif
