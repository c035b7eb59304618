#ifndef KELMORA_BENCH_PEERS_CASES_H
#define KELMORA_BENCH_PEERS_CASES_H

#include "bench/calls.h"
#include "bench/peers/peers.h"
#include "bench/workloads.h"

#include <cstddef>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace kelmora_bench {

/// A resource that the peers translate.
struct Subject {
    std::string_view resource;
    std::size_t nodes_size;    ///< of the request that is written, as its workload means it
    std::size_t document_size; ///< of the document that is read
    kelmora_to_translator Peer::*to;
    kelmora_from_translator Peer::*from; ///< NULL where the resource reads no document
};

[[nodiscard]] std::span<const Subject> subjects();

[[nodiscard]] const Workload &workload_of(const Subject &subject);

/// All peers, with the library itself (which must be loaded) and its floors.
[[nodiscard]] std::vector<Peer> all_peers();

/// Throws std::runtime_error unless the peer's text has the members and values of the floor's in the same order.
void require_same_document(const std::string &name, const std::string &text, const std::string &floor);

/// Throws std::runtime_error unless the peer escapes, unescapes and cuts texts as the floor does.
void require_same_odd_texts(const Peer &peer);

/// Makes a call until it finds the memory as it left it. Throws std::runtime_error when it fails.
template <class Call> void settle(const std::string &name, Call &call)
{
    constexpr int rounds = 3;
    for (int i = 0; i < rounds; ++i) {
        call.prepare();
        if (call.make() != 1)
            throw std::runtime_error(name + " failed");
    }
}

/// Calls measure(name, call, same_bytes) for each case of a peer, where the name is "RESOURCE DIRECTION SIZE: PEER".
/// The call was checked and settled. same_bytes: its result is the floor's byte for byte, not only the same document.
template <class Measure> void for_each_case(const Peer &peer, Measure measure)
{
    require_same_odd_texts(peer);
    for (const Subject &subject : subjects()) {
        const Workload &workload = workload_of(subject);
        const auto check_and_measure = [&](const char *direction, std::size_t size, auto &call, auto &floor,
                                           auto... to) {
            const std::string name =
                std::string(subject.resource) + " " + direction + " " + std::to_string(size) + ": " + peer.name;
            settle(name, floor);
            settle(name, call);
            require_same_document(name, call.result(to...), floor.result(to...));
            const bool same_bytes = call.result(to...) == floor.result(to...);
            call.prepare();
            measure(name, call, same_bytes);
        };
        if (peer.*subject.to != nullptr) {
            ReadCall call(peer.*subject.to, workload.nodes(subject.nodes_size));
            ReadCall floor(workload.to_floor, workload.nodes(subject.nodes_size));
            check_and_measure("to", subject.nodes_size, call, floor);
        }
        if (subject.from != nullptr && peer.*subject.from != nullptr) {
            const kelmora_host::Resource &resource = *kelmora_host::find_resource(subject.resource);
            WriteCall call(peer.*subject.from, resource, workload.document(subject.document_size));
            WriteCall floor(workload.from_floor, resource, workload.document(subject.document_size));
            check_and_measure("from", subject.document_size, call, floor, workload.to_floor);
        }
    }
}

} // namespace kelmora_bench

#endif
