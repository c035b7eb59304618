#ifndef KELMORA_BENCH_WORKLOADS_H
#define KELMORA_BENCH_WORKLOADS_H

#include "host/gateway/node.h"

#include "kelmora_host.h"

#include <cstddef>
#include <set>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace kelmora_bench {

using Nodes = std::vector<kelmora_host::Node>;

/// A resource that is measured beside its baseline: the shortest sequence of calls of the JSON library that yields the
/// same document, or reads the same keys, written by hand.
struct Workload {
    std::string_view resource;
    std::size_t usual; ///< how many nodes, or of what hangs on one node, a gateway may well have

    Nodes (*make_nodes)(std::string_view resource, std::size_t size);
    const char *list; ///< the list of a document that has `size` elements; NULL when a document has always one size

    kelmora_to_translator to_baseline;
    kelmora_from_translator from_baseline; ///< NULL where the resource reads no document

    /// The sizes to measure: the usual one and those that show growth; of documents just 1 when they do not grow, and
    /// none when there are none.
    [[nodiscard]] std::set<std::size_t> sizes() const { return {1, 16, 64, 256, usual}; }
    [[nodiscard]] std::set<std::size_t> document_sizes() const
    {
        if (from_baseline == nullptr)
            return {};
        return list != nullptr ? sizes() : std::set<std::size_t>{1};
    }

    /// The nodes of a request of this size, made of the development host's samples.
    [[nodiscard]] Nodes nodes(std::size_t size) const { return make_nodes(resource, size); }

    /// A document of this size, made of the resource's example.
    [[nodiscard]] std::string document(std::size_t size) const;
};

/// The nodes of a resource in the development host's sample gateway, and its document in examples/ as one line; that is
/// empty where there is none.
[[nodiscard]] const Nodes &sample_nodes(std::string_view resource);
[[nodiscard]] std::string example(std::string_view resource);

/// The resources that are measured so.
[[nodiscard]] std::span<const Workload> workloads();

} // namespace kelmora_bench

#endif
