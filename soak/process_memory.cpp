#include "soak/process_memory.h"

#include <fstream>
#include <malloc.h>
#include <stdexcept>
#include <string>

namespace kelmora_soak {

std::int64_t resident_memory()
{
    malloc_trim(0);
    std::ifstream status("/proc/self/status");
    for (std::string word; status >> word;) {
        std::int64_t kibibytes = 0;
        if (word == "VmRSS:" && status >> kibibytes)
            return kibibytes * 1024;
    }
    throw std::runtime_error("no VmRSS in /proc/self/status");
}

std::int64_t heap_in_use()
{
    const auto heap = mallinfo2();
    return static_cast<std::int64_t>(heap.uordblks + heap.hblkhd); // from the heap, and mapped on their own
}

} // namespace kelmora_soak
