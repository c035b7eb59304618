#include "soak/worker.h"

#include "host/gateway/blank.h"
#include "host/json.h"
#include "host/plugin/translate.h"

#include <stdexcept>
#include <utility>

namespace kelmora_soak {

using kelmora_host::Decoded;
using kelmora_host::Directions;
using kelmora_host::Encoded;
using kelmora_host::Error;
using kelmora_host::Json;
using kelmora_host::Node;
using kelmora_host::Resource;

namespace {

struct Fault : std::runtime_error {
    using std::runtime_error::runtime_error;
};

void require(bool holds, const char *otherwise)
{
    if (!holds)
        throw Fault(otherwise);
}

std::string described(const Amount &amount)
{
    return std::to_string(amount.blocks) + " blocks (" + std::to_string(amount.bytes) + " bytes)";
}

/// What a resource makes of a text is jansson's to say first.
struct Parsed {
    explicit Parsed(const std::string &text)
    {
        const Amount before = json_blocks::of_this_thread();
        const Json root(json_loads(text.c_str(), 0, nullptr));
        valid = root != nullptr;
        memory = json_blocks::of_this_thread() - before;
    }

    bool valid;
    Amount memory;
};

void check_text(const Resource &resource, const Encoded &answer)
{
    require(answer.result == 1, "the result is not 1");
    if (is_raw(resource))
        return;
    if (resource.directions == Directions::from_only)
        require(answer.text.empty(), "a text of a resource that cannot be read");
    else
        require(Parsed(answer.text).valid, "the text is no JSON");
}

bool is_known_source(const std::string &source)
{
    return source == "json" || source == "size" || source == "ipv6_ip_port_filter_default_rule";
}

/// Whether the from-translator takes anything without looking at it.
bool ignores_texts(const Resource &resource)
{
    return resource.directions == Directions::to_only || resource.name == "connected_device";
}

void check_answer(const Resource &resource, const Document &document, bool parses, const Decoded &answer)
{
    const std::vector<Error> &errors = answer.errors;
    for (const Error &error : errors)
        require(is_known_source(error.source) && !error.message.empty(),
                "an error without message or of no known source");

    if (is_raw(resource) || ignores_texts(resource) || document.text.empty()) {
        require(answer.result == 1 && errors.empty(), "nothing to look at was not accepted silently");
    } else if (!parses) {
        require(answer.result == 0 && errors == std::vector<Error>{{"", "invalid json data", "json"}},
                "a text that is no JSON was not rejected as such");
    } else if (answer.result == 1) {
        // The one resource that reports a protocol that it does not know, and goes on.
        require(errors.empty() || resource.name == "tr369_local_agent_controller", "success with an error");
    } else {
        require(answer.result == 0, "the result is neither 0 nor 1");
        require(errors.size() == 1 || (!errors.empty() && resource.name == "tr369_local_agent_controller"),
                "a failure without exactly one error");
        require(!errors.back().field.empty(), "a failure of no field");
        require(!document.valid, "the example was rejected");
    }
}

} // namespace

Tally &Tally::operator+=(const Tally &other)
{
    reads += other.reads;
    accepted += other.accepted;
    rejected += other.rejected;
    for (const auto &[path, theirs] : other.kept) {
        kept[path].calls += theirs.calls;
        kept[path].memory += theirs.memory;
    }
    return *this;
}

Amount Tally::leaked_memory() const
{
    Amount sum;
    for (const auto &[path, documents] : kept)
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
        std::vector<Node> nodes = samples_.nodes(subject.resource.name);
        nodes.emplace_back("blank", blank_record(subject.resource));
        nodes.emplace_back("stale", poisoned_record(subject.resource));
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
        return {"blank", blank_record(resource)};
    case 1:
        return {"stale", poisoned_record(resource)};
    default:
        return samples[below(samples.size(), random_)];
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

    const Amount before = json_blocks::of_this_thread();
    const std::size_t raw_bytes =
        is_raw(resource) && resource.directions != Directions::from_only ? kelmora_host::raw_size : 0;
    const Encoded answer = kelmora_host::to_json(pair.to, nodes, as_list, raw_bytes);
    const Amount left = json_blocks::of_this_thread() - before;
    json_blocks::forget_blocks();
    ++tally_.reads;
    try {
        check_text(resource, answer);
        require(left == Amount{}, "a read left JSON values behind");
    } catch (const Fault &fault) {
        fault_ = std::string(resource.name) + ", read of " + std::to_string(nodes.size()) + " nodes" +
                 (as_list ? " as a list" : "") + ": " + fault.what() + ": left " + described(left) + ", result " +
                 std::to_string(answer.result) + ", text: " + answer.text;
    }
}

void Worker::call_from(std::size_t subject)
{
    const auto &[resource, pair, documents] = (*subjects_)[subject];
    Node &node = nodes_[subject][below(nodes_[subject].size(), random_)];
    if (below(8, random_) == 0)
        node = fresh_node(subject); // also because some lists only ever grow
    const Document document = documents.pick(random_);
    const Parsed parsed(document.text);

    const Amount before = json_blocks::of_this_thread();
    const Decoded answer = kelmora_host::from_json(pair.from, node, document.text);
    const Amount left = json_blocks::of_this_thread() - before;
    json_blocks::forget_blocks();
    ++(answer.result == 1 ? tally_.accepted : tally_.rejected);
    try {
        check_answer(resource, document, parsed.valid, answer);
        const KnownLeak *path = releases_all ? nullptr : known_leak(resource.name, document.text, answer);
        if (path == nullptr) {
            require(left == Amount{}, "a write left JSON values behind");
        } else {
            require(left.blocks == parsed.memory.blocks, "a write did not keep exactly its document");
            ++tally_.kept[path].calls;
            tally_.kept[path].memory += left;
        }
    } catch (const Fault &fault) {
        fault_ = std::string(resource.name) + ", write: " + fault.what() + ": left " + described(left) + ", result " +
                 std::to_string(answer.result);
        for (const Error &error : answer.errors)
            fault_ += ", (" + error.field + ", " + error.message + ", " + error.source + ")";
        fault_ += ", text: " + document.text;
    }
}

} // namespace kelmora_soak
