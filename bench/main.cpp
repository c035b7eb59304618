// Times every translator; where there is a baseline, beside it, in turn, and at growing sizes.
#include "bench/calls.h"
#include "bench/program.h"

#include <algorithm>
#include <benchmark/benchmark.h>
#include <chrono>
#include <cstddef>
#include <stdexcept>
#include <string>
#include <vector>

namespace kelmora_bench {

namespace {

using kelmora_host::Directions;
using kelmora_host::Registration;
using kelmora_host::Registry;
using kelmora_host::Resource;

/// The seconds that a call takes, without what makes it ready.
template <class Call> double time_call(Call &call, benchmark::State &state)
{
    using Clock = std::chrono::steady_clock;
    call.prepare();
    const Clock::time_point begin = Clock::now();
    const int result = call.make();
    const Clock::time_point end = Clock::now();
    if (result != 1)
        state.SkipWithError("the call failed");
    return std::chrono::duration<double>(end - begin).count();
}

template <class Run> void register_benchmark([[maybe_unused]] const std::string &name, [[maybe_unused]] Run run)
{
#ifndef __clang_analyzer__ // which takes what is registered for lost
    benchmark::RegisterBenchmark(name.c_str(), run)->UseManualTime();
#endif
}

/// Times the library's call.
template <class MakeCall> void add(const std::string &name, MakeCall make_call)
{
    register_benchmark(name, [=](benchmark::State &state) {
        auto call = make_call();
        for ([[maybe_unused]] auto round : state)
            state.SetIterationTime(time_call(call, state));
    });
}

double median(std::vector<double> &times)
{
    const auto middle = times.begin() + static_cast<std::ptrdiff_t>(times.size() / 2);
    std::nth_element(times.begin(), middle, times.end());
    return *middle;
}

/// The same with the baseline's call after each of the library's; the medians of both and their ratio stand beside.
template <class MakeCall, class Translator>
void add_with_baseline(const std::string &name, MakeCall make_call, Translator library, Translator baseline)
{
    register_benchmark(name, [=](benchmark::State &state) {
        auto library_call = make_call(library);
        auto baseline_call = make_call(baseline);
        std::vector<double> library_times;
        std::vector<double> baseline_times;
        for ([[maybe_unused]] auto round : state) {
            library_times.push_back(time_call(library_call, state));
            baseline_times.push_back(time_call(baseline_call, state));
            state.SetIterationTime(library_times.back());
        }
        state.counters["library"] = median(library_times);
        state.counters["baseline"] = median(baseline_times);
        state.counters["ratio"] = median(library_times) / median(baseline_times);
    });
}

void add_workload(const Workload &workload, const Resource &resource, const Registration &pair)
{
    const std::string name(workload.resource);
    for (const std::size_t size : workload.sizes()) {
        add_with_baseline(
            name + "/to/" + std::to_string(size),
            [&workload, size](kelmora_to_translator to) { return ToCall(to, workload.nodes(size)); }, pair.to,
            workload.to_baseline);
    }
    for (const std::size_t size : workload.document_sizes()) {
        add_with_baseline(
            name + "/from/" + std::to_string(size),
            [&workload, &resource, size](kelmora_from_translator from) {
                return FromCall(from, resource, workload.document(size));
            },
            pair.from, workload.from_baseline);
    }
}

void add_alone(const Resource &resource, const Registration &pair)
{
    const std::string name(resource.name);
    if (resource.directions != Directions::from_only)
        add(name + "/to", [&resource, &pair] { return ToCall(pair.to, sample_nodes(resource.name)); });
    const std::string document = kelmora_host::is_raw(resource) ? "8 bytes!" : example(resource.name);
    if (resource.directions != Directions::to_only)
        add(name + "/from", [&resource, &pair, document] { return FromCall(pair.from, resource, document); });
}

void add_all()
{
    for (const Resource &resource : kelmora_host::resources()) {
        const Registration &pair = *Registry::instance().find(resource.number);
        const auto workload = std::ranges::find(workloads(), resource.name, &Workload::resource);
        if (workload != workloads().end())
            add_workload(*workload, resource, pair);
        else
            add_alone(resource, pair);
    }
}

} // namespace

} // namespace kelmora_bench

int main(int argc, char **argv)
{
    return kelmora_bench::run_program("kelmora-bench", [&] {
        const kelmora_host::Plugin plugin(kelmora_host::Plugin::default_path());
        kelmora_bench::add_all();
        benchmark::Initialize(&argc, argv);
        if (benchmark::ReportUnrecognizedArguments(argc, argv))
            throw std::invalid_argument("unknown arguments");
        benchmark::RunSpecifiedBenchmarks();
    });
}
