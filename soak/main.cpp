#include "soak/process_memory.h"
#include "soak/worker.h"

#include "harness/known_leaks.h"
#include "harness/ledger.h"

#include "kelmora_json.h"

#include <CLI/CLI.hpp>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <exception>
#include <iostream>
#include <jansson.h>
#include <string>
#include <thread>
#include <vector>

namespace kelmora_soak {

namespace {

struct Options {
    std::uint64_t calls = 100000;
    unsigned threads = 1;
    std::uint64_t seed = 1;
    bool memory_unjudged = false;
};

constexpr unsigned quarters = 4;
constexpr std::int64_t kib = 1024;

// What the memory may grow by after the warm-up, besides the documents that leak. What is in use is nearly exact;
// how much of it is resident depends on where the allocator finds room.
constexpr std::int64_t heap_slack = 4 * kib;
constexpr std::int64_t resident_slack = 1024 * kib;

struct ProcessMemory {
    std::int64_t resident = resident_memory();
    std::int64_t heap = heap_in_use();
};

std::int64_t heap_of(const Amount &blocks)
{
    constexpr std::int64_t head = sizeof(std::size_t); // the allocator's
    return blocks.bytes + blocks.blocks * head;
}

std::vector<Subject> make_subjects()
{
    kelmora_json_init();
    kelmora_host::Gateway gateway = kelmora_host::sample_gateway();
    std::vector<Subject> subjects;
    for (const kelmora_host::Resource &resource : kelmora_host::resources())
        subjects.push_back(
            {resource, *kelmora_host::Registry::instance().find(resource.number), Documents(resource, gateway)});
    return subjects;
}

/// The workers, each with its thread.
class Crew {
public:
    Crew(const std::vector<Subject> &subjects, const Options &options)
    {
        for (unsigned i = 0; i < options.threads; ++i)
            workers_.emplace_back(subjects, options.seed + i);
    }

    /// Shares the calls out, and returns when all are made.
    void serve(std::uint64_t calls)
    {
        std::vector<std::thread> threads;
        for (std::size_t i = 0; i < workers_.size(); ++i) {
            const std::uint64_t share = calls / workers_.size() + (i < calls % workers_.size() ? 1 : 0);
            threads.emplace_back([&worker = workers_[i], share] { worker.serve(share); });
        }
        for (std::thread &thread : threads)
            thread.join();
    }

    [[nodiscard]] Tally tally() const
    {
        Tally sum;
        for (const Worker &worker : workers_)
            sum += worker.tally();
        return sum;
    }

    [[nodiscard]] std::vector<std::string> faults() const
    {
        std::vector<std::string> faults;
        for (const Worker &worker : workers_) {
            if (!worker.fault().empty())
                faults.push_back(worker.fault());
        }
        return faults;
    }

private:
    std::deque<Worker> workers_;
};

std::string in_kib(std::int64_t bytes) { return std::to_string(bytes / kib) + " KiB"; }

std::ostream &operator<<(std::ostream &out, const ProcessMemory &memory)
{
    return out << "resident " << in_kib(memory.resident) << ", heap " << memory.heap << " bytes";
}

void print(const Tally &tally)
{
    std::cout << tally.reads << " reads, " << tally.accepted + tally.rejected << " writes, of which " << tally.accepted
              << " were accepted and " << tally.rejected << " rejected\n";
    const Amount leaked = tally.leaked_memory();
    std::cout << "documents leaked by contract: " << leaked.blocks << " blocks, " << leaked.bytes << " bytes\n";
    for (const KnownLeak &path : kelmora_harness::known_leaks()) {
        const auto documents = tally.leaked.find(&path);
        if (documents != tally.leaked.end())
            std::cout << "  " << path.resource << ": " << documents->second.calls << " calls, "
                      << documents->second.memory.bytes << " bytes: " << path.when << "\n";
    }
}

/// Whether everything was as it must be; says on stderr what was not.
bool soak(const Options &options)
{
    // As a host must: jansson seeds its hash tables once, here before there are threads to do it at once.
    json_object_seed(static_cast<std::size_t>(options.seed));
    const std::vector<Subject> subjects = make_subjects();
    Crew crew(subjects, options);
    std::cout << "kelmora-soak: " << subjects.size() << " resources, " << options.calls << " calls, " << options.threads
              << " threads, seed " << options.seed << "; the library "
              << (kelmora_harness::releases_all ? "releases every document" : "leaks the documents that it must")
              << "\n";

    const std::uint64_t warm_up = options.calls / quarters;
    crew.serve(warm_up);
    const Amount leaked_before = crew.tally().leaked_memory();
    const ProcessMemory before;
    ProcessMemory now = before;
    std::cout << "after a warm-up of " << warm_up << " calls more: " << now << std::endl;
    for (unsigned quarter = 0; quarter < quarters && crew.faults().empty(); ++quarter) {
        const std::uint64_t done = options.calls * quarter / quarters;
        const std::uint64_t next = options.calls * (quarter + 1) / quarters;
        crew.serve(next - done);
        now = ProcessMemory();
        std::cout << "after " << next << " calls: " << now << std::endl;
    }

    const Tally tally = crew.tally();
    print(tally);
    std::vector<std::string> faults = crew.faults();
    const Amount alive = kelmora_harness::ledger::json_of_process();
    if (alive != tally.leaked_memory())
        faults.push_back("alive at the end: " + std::to_string(alive.blocks) + " blocks, " +
                         std::to_string(alive.bytes) + " bytes of jansson's, and not those leaked");
    const std::int64_t leaked = heap_of(tally.leaked_memory() - leaked_before);
    const std::int64_t heap_growth = now.heap - before.heap - leaked;
    const std::int64_t resident_growth = now.resident - before.resident - leaked;
    std::cout << "growth after the warm-up, besides " << leaked << " bytes of leaked documents: heap " << heap_growth
              << " bytes, resident " << in_kib(resident_growth) << (options.memory_unjudged ? " (not judged)" : "")
              << "\n";
    if (!options.memory_unjudged && (heap_growth > heap_slack || resident_growth > resident_slack))
        faults.emplace_back("the process's memory grew");

    for (const std::string &fault : faults)
        std::cerr << "kelmora-soak: error: " << fault << "\n";
    if (faults.empty())
        std::cout << "kelmora-soak: passed\n";
    return faults.empty();
}

int run(int argc, char **argv)
{
    Options options;
    CLI::App app{"Serves random reads and writes over all resources, checks each, and watches the memory.",
                 "kelmora-soak"};
    app.add_option("--calls", options.calls, "Calls to make, besides a warm-up of a quarter more")
        ->capture_default_str();
    app.add_option("--threads", options.threads, "Threads to share them out to")
        ->check(CLI::Range(1, 256))
        ->capture_default_str();
    app.add_option("--seed", options.seed, "What the random numbers start from")
        ->check(CLI::PositiveNumber)
        ->capture_default_str();
    app.add_flag("--memory-unjudged", options.memory_unjudged,
                 "Only print the memory of the process: for sanitizers and emulators, whose own is part of it");
    app.footer("Exit status: 0 when everything was as it must be, 1 when not, above 100 for wrong usage.");
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError &error) {
        return app.exit(error);
    }
    return soak(options) ? 0 : 1;
}

} // namespace

} // namespace kelmora_soak

int main(int argc, char **argv)
{
    try {
        return kelmora_soak::run(argc, argv);
    } catch (const std::exception &error) {
        std::cerr << "kelmora-soak: error: " << error.what() << "\n";
        return 1;
    }
}
