#ifndef KELMORA_BENCH_OTHER_LIBRARIES_CASES_H
#define KELMORA_BENCH_OTHER_LIBRARIES_CASES_H

#include "bench/calls.h"
#include "bench/other_libraries/other_libraries.h"
#include "bench/workloads.h"

#include <cstddef>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace kelmora_bench {

/// A resource that the other_libraries translate.
struct Subject {
    std::string_view resource;
    std::size_t nodes_size;    ///< of the request that is written, as its workload means it
    std::size_t document_size; ///< of the document that is read
    kelmora_to_translator OtherLibrary::*to;
    kelmora_from_translator OtherLibrary::*from; ///< NULL where the resource reads no document
};

[[nodiscard]] std::span<const Subject> subjects();

[[nodiscard]] const Workload &workload_of(const Subject &subject);

/// All other_libraries, with the library itself (which must be loaded) and its baselines.
[[nodiscard]] std::vector<OtherLibrary> all_peers();

/// Throws std::runtime_error unless the other_library's text has the members and values of the baseline's in the same
/// order.
void require_same_document(const std::string &name, const std::string &text, const std::string &baseline);

/// Throws std::runtime_error unless the other_library escapes, unescapes and cuts texts as the baseline does.
void require_same_odd_texts(const OtherLibrary &other_library);

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

/// Calls measure(name, call, same_bytes) for each case of a other_library, where the name is "RESOURCE DIRECTION SIZE:
/// LIBRARY". The call was checked and settled. same_bytes: its result is the baseline's byte for byte, not only the
/// same document.
template <class Measure> void for_each_case(const OtherLibrary &other_library, Measure measure)
{
    require_same_odd_texts(other_library);
    for (const Subject &subject : subjects()) {
        const Workload &workload = workload_of(subject);
        const auto check_and_measure = [&](const char *direction, std::size_t size, auto &call, auto &baseline,
                                           auto... to) {
            const std::string name = std::string(subject.resource) + " " + direction + " " + std::to_string(size) +
                                     ": " + other_library.name;
            settle(name, baseline);
            settle(name, call);
            require_same_document(name, call.result(to...), baseline.result(to...));
            const bool same_bytes = call.result(to...) == baseline.result(to...);
            call.prepare();
            measure(name, call, same_bytes);
        };
        if (other_library.*subject.to != nullptr) {
            ToCall call(other_library.*subject.to, workload.nodes(subject.nodes_size));
            ToCall baseline(workload.to_baseline, workload.nodes(subject.nodes_size));
            check_and_measure("to", subject.nodes_size, call, baseline);
        }
        if (subject.from != nullptr && other_library.*subject.from != nullptr) {
            const kelmora_host::Resource &resource = *kelmora_host::find_resource(subject.resource);
            FromCall call(other_library.*subject.from, resource, workload.document(subject.document_size));
            FromCall baseline(workload.from_baseline, resource, workload.document(subject.document_size));
            check_and_measure("from", subject.document_size, call, baseline, workload.to_baseline);
        }
    }
}

} // namespace kelmora_bench

#endif
