#include "harness/call.h"

#include "harness/address_sanitizer.h"
#include "harness/known_leaks.h"
#include "harness/poison.h"
#include "harness/watch.h"

#include "host/json.h"

#include "kelmora_json.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <set>

#ifdef KELMORA_ADDRESS_SANITIZER
#include <sanitizer/asan_interface.h>
#endif

namespace kelmora_harness {

using kelmora_host::Decoded;
using kelmora_host::Error;
using kelmora_host::Node;
using kelmora_host::Resource;

namespace {

constexpr std::size_t promised_size = kelmora_host::OutputBuffer::initial_size;

/// Bytes that nobody may write; under AddressSanitizer nobody may read them either while this lives.
class Guard {
public:
    explicit Guard(void *bytes) : bytes_(static_cast<const unsigned char *>(bytes))
    {
#ifdef KELMORA_ADDRESS_SANITIZER
        __asan_poison_memory_region(bytes_, guard_size);
#endif
    }
    Guard(const Guard &) = delete;
    Guard &operator=(const Guard &) = delete;
    ~Guard() { lift(); }

    void lift()
    {
#ifdef KELMORA_ADDRESS_SANITIZER
        if (bytes_ != nullptr)
            __asan_unpoison_memory_region(bytes_, guard_size);
#endif
        bytes_ = nullptr;
    }

    /// The bytes are no more.
    void forget() { bytes_ = nullptr; }

private:
    const unsigned char *bytes_;
};

bool is_untouched(const void *bytes, std::size_t size)
{
    const auto *first = static_cast<const unsigned char *>(bytes);
    return std::all_of(first, first + size, [](unsigned char byte) { return byte == guard_byte; });
}

/// The bytes of all records and nodes, to compare.
std::vector<std::string> bytes_of(std::vector<Node> &nodes)
{
    std::vector<std::string> bytes;
    for (Node &node : nodes) {
        bytes.emplace_back(reinterpret_cast<const char *>(node.resource()), sizeof(kelmora_resource));
        bytes.emplace_back(static_cast<const char *>(node.record().bytes()), node.record().size());
    }
    return bytes;
}

std::size_t library_blocks() { return ledger::alive() - ledger::json_alive(); }

std::string blocks(std::int64_t count) { return std::to_string(count) + " blocks"; }

/// The blocks that jansson alone makes of a document.
std::int64_t blocks_of_document(const std::string &text)
{
    const Amount before = ledger::json();
    const kelmora_host::Json document(json_loads(text.c_str(), 0, nullptr));
    return (ledger::json() - before).blocks;
}

void check_text(const char *buffer, bool moved, const ToRequest &request, ToAnswer &answer)
{
    const bool half = answer.result == 0 && request.may_leave_half; // in a buffer that grew, but not enough
    const std::size_t capacity = moved && !half ? answer.reallocated_size : promised_size;
    if (request.raw_bytes != 0) {
        answer.text.assign(buffer, request.raw_bytes);
    } else {
        answer.text.assign(buffer, strnlen(buffer, capacity));
        if (answer.text.size() == capacity)
            answer.faults.emplace_back("the text does not end within its buffer");
    }
    if (half) {
        if (answer.reallocations == 0 && !is_untouched(buffer + capacity, guard_size))
            answer.faults.emplace_back("written behind the buffer");
        return;
    }
    if (moved) {
        if (answer.reallocated_size != answer.text.size() + 1)
            answer.faults.push_back("the buffer has room for " + std::to_string(answer.reallocated_size) +
                                    " bytes, and the text " + std::to_string(answer.text.size()) + " characters");
        return;
    }
    const std::size_t written = answer.text.size() + (request.raw_bytes != 0 ? 0 : 1);
    if (written < capacity && !is_untouched(buffer + written, capacity - written))
        answer.faults.emplace_back("written behind the text");
    if (!is_untouched(buffer + capacity, guard_size))
        answer.faults.emplace_back("written behind the buffer");
}

} // namespace

const kelmora_host::Registration &translators_of(const Resource &resource)
{
    kelmora_host::Registry &registry = kelmora_host::Registry::instance();
    if (registry.log().empty())
        kelmora_json_init();
    return *registry.find(resource.number);
}

bool is_remark(const Error &error) { return error == Error{"mtp.protocol", "invalid protocol", "json"}; }

ToAnswer call_to(kelmora_to_translator to, std::vector<Node> &nodes, const ToRequest &request)
{
    std::vector<Node> nothing;
    if (nodes.empty())
        nothing.push_back(kelmora_host::empty_node());
    std::vector<Node> &requested = nodes.empty() ? nothing : nodes;
    kelmora_resource *head = kelmora_host::link_request(requested, request.as_list);
    head->count = request.count.value_or(static_cast<std::uint32_t>(nodes.size()));
    const std::vector<std::string> bytes_before = bytes_of(requested);

    auto *buffer = static_cast<char *>(std::malloc(promised_size + guard_size));
    if (buffer == nullptr)
        std::abort();
    std::memset(buffer, guard_byte, promised_size + guard_size);
    buffer[0] = '\0'; // for a translator that writes nothing
    char *out = buffer;
    const std::size_t alive_before = ledger::alive();

    Guard guard(buffer + promised_size);
    ledger::follow(buffer);
    ledger::fail(request.memory);
    ToAnswer answer{to(head, &out), {}, ledger::asked_for(), ledger::reallocations(), ledger::reallocated_size(), {}};
    ledger::pass();
    ledger::follow(nullptr);
    // The buffer is moved by a reallocation that does not fail, and by that alone.
    const bool moved = answer.reallocations != 0 && (out != buffer || answer.result == 1);
    if (out != buffer)
        guard.forget();
    else
        guard.lift();

    if (ledger::alive() != alive_before)
        answer.faults.push_back("memory outlives the call: " +
                                blocks(static_cast<std::int64_t>(ledger::alive() - alive_before)));
    if (bytes_of(requested) != bytes_before)
        answer.faults.emplace_back("a record or a node was written");
    check_text(out, moved, request, answer);
    std::free(out);
    return answer;
}

namespace {

/// The resource node's bytes, to compare.
std::string node_bytes(Node &node)
{
    return {reinterpret_cast<const char *>(node.resource()), sizeof(kelmora_resource)};
}

} // namespace

FromAnswer call_from(kelmora_from_translator from, Node &node, const std::string &text, const Leaks &leaks,
                     FailingAllocation memory)
{
    FromAnswer answer{};
    const std::string node_before = node_bytes(node);
    const std::size_t fetches_before = node.fetches();
    const Amount json_before = ledger::json();
    const std::size_t library_before = library_blocks();
    const std::size_t owned_before = node.record().owned_blocks().size();
    std::optional<kelmora_host::FreeLost> free_lost(node.record());

    kelmora_errorlist list;
    const WatchErrors watch([&](const kelmora_errorlist &reported) {
        const Error &error = reported.errors.back();
        if (error.source == "host" || is_remark(error)) // the translation goes on
            return;
        const bool released = ledger::json() == json_before;
        if (leaks({0, reported.errors}) ? released : !released)
            answer.faults.push_back(released ? "the document is not leaked at its error"
                                             : "the document is not released before its error");
    });

    auto *record_guard = static_cast<unsigned char *>(node.record().bytes()) + node.record().size() - guard_size;
    Guard guard(record_guard);
    ledger::fail(memory);
    answer.result = from(node.resource(), text.c_str(), &list);
    answer.allocations = ledger::asked_for();
    ledger::pass();
    guard.lift();
    answer.fetches = node.fetches() - fetches_before;
    answer.errors = list.errors;
    const Amount left = ledger::json() - json_before;

    if (answer.result != 0 && answer.result != 1)
        answer.faults.push_back("the result is " + std::to_string(answer.result));
    const auto failures = std::count_if(answer.errors.begin(), answer.errors.end(), std::not_fn(is_remark));
    if (failures != (answer.result == 1 ? 0 : 1))
        answer.faults.push_back("the result is " + std::to_string(answer.result) + " with " + std::to_string(failures) +
                                " errors");

    if (!leaks({answer.result, answer.errors})) {
        if (left != Amount{})
            answer.faults.push_back("JSON values outlive the call: " + blocks(left.blocks));
    } else {
        answer.leaked = left;
        if (memory.number == 0 ? left.blocks != blocks_of_document(text) : left.blocks <= 0)
            answer.faults.push_back("not exactly the document is leaked: " + blocks(left.blocks));
    }

    if (node_bytes(node) != node_before)
        answer.faults.emplace_back("the node was written into");
    if (!is_untouched(record_guard, guard_size))
        answer.faults.emplace_back("written behind the record");

    const std::vector<void *> owned = node.record().owned_blocks();
    if (std::set<void *>(owned.begin(), owned.end()).size() != owned.size()) {
        answer.faults.emplace_back("a node or a string hangs on the record twice");
        std::memset(node.record().bytes(), 0, node.record().size() - guard_size);
        return answer;
    }
    free_lost.reset();
    if (library_blocks() - library_before != owned.size() - owned_before)
        answer.faults.push_back(
            "memory outlives the call that does not hang on the record: " +
            blocks(static_cast<std::int64_t>(library_blocks() - library_before - owned.size() + owned_before)));
    return answer;
}

FromAnswer call_from(const Resource &resource, Node &node, const std::string &text, FailingAllocation memory)
{
    return call_from(
        translators_of(resource).from, node, text,
        [&](const Decoded &answer) { return !releases_all && known_leak(resource.name, text, answer) != nullptr; },
        memory);
}

} // namespace kelmora_harness
