#ifndef KELMORA_BENCH_CALLS_H
#define KELMORA_BENCH_CALLS_H

#include "bench/workloads.h"

#include "harness/poison.h"
#include "host/gateway/resources.h"
#include "host/plugin/errors.h"
#include "host/plugin/plugin.h"
#include "host/plugin/registry.h"
#include "host/plugin/translate.h"

#include "kelmora_host.h"

#include <cstddef>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <utility>

namespace kelmora_bench {

/// A call of a to-translator that can be made again and again.
class ToCall {
public:
    ToCall(kelmora_to_translator to, Nodes nodes, bool as_list = true)
        : to_(to), nodes_(std::move(nodes)), head_(kelmora_host::link_request(nodes_, as_list))
    {
    }

    /// Makes everything ready for the next call. Not to be measured.
    void prepare() {}

    /// The call, and nothing else.
    int make() { return to_(head_, buffer_.pointer()); }

    /// What the last call wrote.
    [[nodiscard]] std::string result() { return buffer_.bytes(); }

private:
    kelmora_to_translator to_;
    Nodes nodes_;
    kelmora_resource *head_;
    kelmora_host::OutputBuffer buffer_;
};

/// A call of a from-translator that can be made again and again, each time into a fresh record.
class FromCall {
public:
    FromCall(kelmora_from_translator from, const kelmora_host::Resource &resource, std::string document)
        : from_(from), resource_(&resource), document_(std::move(document)), node_(blank())
    {
    }

    void prepare()
    {
        node_ = blank();
        errors_.errors.clear();
    }

    int make() { return from_(node_.resource(), document_.c_str(), &errors_); }

    /// The record after the last call, as the translator `to` writes it.
    [[nodiscard]] std::string result(kelmora_to_translator to)
    {
        Nodes nodes{node_};
        return kelmora_host::to_json(to, nodes, true).text;
    }

private:
    [[nodiscard]] kelmora_host::Node blank() const { return {"0", kelmora_harness::blank_record(*resource_)}; }

    kelmora_from_translator from_;
    const kelmora_host::Resource *resource_;
    std::string document_;
    kelmora_host::Node node_;
    kelmora_errorlist errors_;
};

/// Makes a call of the library and one of its baseline in turn, until both find the memory as they left it; then they
/// must have done the same. Throws std::runtime_error otherwise.
template <class Call, class... To> void warm_up(Call &library, Call &baseline, To... to)
{
    constexpr int rounds = 3;
    for (int i = 0; i < rounds; ++i) {
        for (Call *call : {&library, &baseline}) {
            call->prepare();
            if (call->make() != 1)
                throw std::runtime_error("a call failed");
        }
    }
    if (library.result(to...) != baseline.result(to...))
        throw std::runtime_error("the library and its baseline did not do the same");
}

/// What is measured once: a direction of a workload at one size.
struct Case {
    const Workload &workload;
    const char *direction; ///< "to" or "from"
    std::size_t size;
};

/// Calls measure(case, library, baseline) for each case of this plug-in, with the two calls warmed up.
template <class Measure> void for_each_case(const std::filesystem::path &file, Measure measure)
{
    const kelmora_host::Plugin plugin(file);
    for (const Workload &workload : workloads()) {
        const kelmora_host::Resource &resource = *kelmora_host::find_resource(workload.resource);
        const kelmora_host::Registration &pair = *kelmora_host::Registry::instance().find(resource.number);
        for (const std::size_t size : workload.sizes()) {
            ToCall library(pair.to, workload.nodes(size));
            ToCall baseline(workload.to_baseline, workload.nodes(size));
            warm_up(library, baseline);
            measure(Case{workload, "to", size}, library, baseline);
        }
        for (const std::size_t size : workload.document_sizes()) {
            FromCall library(pair.from, resource, workload.document(size));
            FromCall baseline(workload.from_baseline, resource, workload.document(size));
            warm_up(library, baseline, workload.to_baseline);
            measure(Case{workload, "from", size}, library, baseline);
        }
    }
}

} // namespace kelmora_bench

#endif
