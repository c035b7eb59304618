#ifndef KELMORA_SOAK_WORKER_H
#define KELMORA_SOAK_WORKER_H

#include "soak/documents.h"

#include "harness/known_leaks.h"
#include "harness/ledger.h"
#include "host/gateway/node.h"
#include "host/gateway/resources.h"
#include "host/plugin/registry.h"

#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace kelmora_soak {

using kelmora_harness::Amount;
using kelmora_harness::KnownLeak;

/// A resource under load: what the threads share, none of which changes.
struct Subject {
    kelmora_host::Resource resource;
    kelmora_host::Registration pair;
    Documents documents;
};

/// What came of many calls.
struct Tally {
    /// The documents that one path leaked.
    struct Leaked {
        std::uint64_t calls = 0;
        Amount memory;
    };

    std::uint64_t reads = 0;
    std::uint64_t accepted = 0;
    std::uint64_t rejected = 0;
    std::map<const KnownLeak *, Leaked> leaked;

    Tally &operator+=(const Tally &other);

    /// The documents of all paths together.
    [[nodiscard]] Amount leaked_memory() const;
};

/// One thread's host: its own nodes, buffers and random numbers.
class Worker {
public:
    Worker(const std::vector<Subject> &subjects, std::uint64_t seed);

    /// Makes calls and checks each. The first fault ends it for good. The nodes live no longer than this, so that what
    /// is in memory between two calls of it can be compared.
    void serve(std::uint64_t calls);

    [[nodiscard]] const Tally &tally() const { return tally_; }

    /// What was wrong with which call; empty as long as nothing was.
    [[nodiscard]] const std::string &fault() const { return fault_; }

private:
    void make_nodes();
    void call_to(std::size_t subject);
    void call_from(std::size_t subject);
    kelmora_host::Node fresh_node(std::size_t subject);

    const std::vector<Subject> *subjects_;
    kelmora_host::Gateway samples_;
    std::vector<std::vector<kelmora_host::Node>> nodes_; ///< by subject
    Random random_;
    Tally tally_;
    std::string fault_;
};

} // namespace kelmora_soak

#endif
