#include "soak/worker.h"

#include "harness/call.h"
#include "harness/poison.h"
#include "host/json.h"

#include <stdexcept>
#include <utility>

namespace kelmora_soak {

using kelmora_harness::FromAnswer;
using kelmora_harness::ToAnswer;
using kelmora_host::Directions;
using kelmora_host::Error;
using kelmora_host::Json;
using kelmora_host::Node;
using kelmora_host::Resource;

namespace {

struct Violation : std::runtime_error {
    using std::runtime_error::runtime_error;
};

void require(bool holds, const char *otherwise)
{
    if (!holds)
        throw Violation(otherwise);
}

void require_none(const std::vector<std::string> &faults)
{
    for (const std::string &fault : faults)
        require(false, fault.c_str());
}

/// What a resource makes of a text is jansson's to say first.
bool parses(const std::string &text) { return Json(json_loads(text.c_str(), 0, nullptr)) != nullptr; }

void check_text(const Resource &resource, const ToAnswer &answer)
{
    require(answer.result == 1, "the result is not 1");
    if (is_raw(resource))
        return;
    if (resource.directions == Directions::from_only)
        require(answer.text.empty(), "a text of a resource that cannot be read");
    else
        require(parses(answer.text), "the text is no JSON");
}

bool is_known_source(const std::string &source)
{
    return source == "json" || source == "size" || source == "ipv6_ip_port_filter_default_rule";
}

void check_answer(const Resource &resource, const Document &document, const FromAnswer &answer)
{
    const std::vector<Error> &errors = answer.errors;
    for (const Error &error : errors)
        require(is_known_source(error.source) && !error.message.empty(),
                "an error without message or of no known source");

    const bool ignores_texts = resource.directions == Directions::to_only || is_raw(resource);
    if (ignores_texts || document.text.empty()) {
        require(answer.result == 1 && errors.empty(), "nothing to look at was not accepted silently");
    } else if (!parses(document.text)) {
        require(answer.result == 0 && errors == std::vector<Error>{{"", "invalid json data", "json"}},
                "a text that is no JSON was not rejected as such");
    } else if (answer.result == 0) {
        require(!errors.back().field.empty(), "a failure of no field");
        require(!document.valid, "the example was rejected");
    }
}

Node guarded_node(const Resource &resource, Node sample)
{
    return {sample.id(), kelmora_harness::guarded_copy(resource, std::move(sample.record()))};
}

} // namespace

Tally &Tally::operator+=(const Tally &other)
{
    reads += other.reads;
    accepted += other.accepted;
    rejected += other.rejected;
    for (const auto &[path, theirs] : other.leaked) {
        leaked[path].calls += theirs.calls;
        leaked[path].memory += theirs.memory;
    }
    return *this;
}

Amount Tally::leaked_memory() const
{
    Amount sum;
    for (const auto &[path, documents] : leaked)
        sum += documents.memory;
    return sum;
}

Worker::Worker(const std::vector<Subject> &subjects, std::uint64_t seed)
    : subjects_(&subjects), samples_(kelmora_host::sample_gateway()), random_(seed)
{
}

void Worker::make_nodes()
{
    for (const Subject &subject : *subjects_) {
        std::vector<Node> nodes;
        for (const Node &sample : samples_.nodes(subject.resource.name))
            nodes.push_back(guarded_node(subject.resource, sample));
        nodes.emplace_back("blank", kelmora_harness::blank_record(subject.resource));
        nodes.emplace_back("poisoned", kelmora_harness::poisoned_record(subject.resource));
        nodes_.push_back(std::move(nodes));
    }
}

void Worker::serve(std::uint64_t calls)
{
    make_nodes();
    for (; calls > 0 && fault_.empty(); --calls) {
        const std::size_t subject = below(subjects_->size(), random_);
        if (below(2, random_) == 0)
            call_to(subject);
        else
            call_from(subject);
    }
    nodes_.clear();
}

Node Worker::fresh_node(std::size_t subject)
{
    const Resource &resource = (*subjects_)[subject].resource;
    const std::vector<Node> &samples = samples_.nodes(resource.name);
    switch (below(4, random_)) {
    case 0:
        return {"blank", kelmora_harness::blank_record(resource)};
    case 1:
        return {"poisoned", kelmora_harness::poisoned_record(resource)};
    default:
        return guarded_node(resource, samples[below(samples.size(), random_)]);
    }
}

void Worker::call_to(std::size_t subject)
{
    const auto &[resource, pair, documents] = (*subjects_)[subject];
    std::vector<Node> others; // in place of the nodes, at times: none, or very many
    const std::size_t kind = below(16, random_);
    if (kind == 0)
        others.assign(64, fresh_node(subject));
    std::vector<Node> &nodes = kind < 2 ? others : nodes_[subject];
    const bool as_list = below(2, random_) == 0;

    const std::size_t raw_bytes =
        is_raw(resource) && resource.directions != Directions::from_only ? kelmora_host::raw_size : 0;
    const ToAnswer answer = kelmora_harness::call_to(pair.to, nodes, {.as_list = as_list, .raw_bytes = raw_bytes});
    kelmora_harness::ledger::forget_json();
    ++tally_.reads;
    try {
        require_none(answer.faults);
        check_text(resource, answer);
    } catch (const Violation &fault) {
        fault_ = std::string(resource.name) + ", read of " + std::to_string(nodes.size()) + " nodes" +
                 (as_list ? " as a list" : "") + ": " + fault.what() + ": result " + std::to_string(answer.result) +
                 ", text: " + answer.text;
    }
}

void Worker::call_from(std::size_t subject)
{
    const auto &[resource, pair, documents] = (*subjects_)[subject];
    Node &node = nodes_[subject][below(nodes_[subject].size(), random_)];
    if (below(8, random_) == 0)
        node = fresh_node(subject); // also because some lists only ever grow
    const Document document = documents.pick(random_);

    const FromAnswer answer = kelmora_harness::call_from(resource, node, document.text);
    kelmora_harness::ledger::forget_json();
    ++(answer.result == 1 ? tally_.accepted : tally_.rejected);
    try {
        require_none(answer.faults);
        check_answer(resource, document, answer);
        if (answer.leaked != Amount{}) {
            const KnownLeak *path =
                kelmora_harness::known_leak(resource.name, document.text, {answer.result, answer.errors});
            ++tally_.leaked[path].calls;
            tally_.leaked[path].memory += answer.leaked;
        }
    } catch (const Violation &fault) {
        fault_ = std::string(resource.name) + ", write: " + fault.what() + ": result " + std::to_string(answer.result);
        for (const Error &error : answer.errors)
            fault_ += ", (" + error.field + ", " + error.message + ", " + error.source + ")";
        fault_ += ", text: " + document.text;
    }
}

} // namespace kelmora_soak
