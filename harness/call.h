#ifndef KELMORA_HARNESS_CALL_H
#define KELMORA_HARNESS_CALL_H

#include "harness/ledger.h"

#include "host/gateway/node.h"
#include "host/gateway/resources.h"
#include "host/plugin/errors.h"
#include "host/plugin/registry.h"
#include "host/plugin/translate.h"

#include "kelmora_host.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace kelmora_harness {

// Calls of translators, each with checks of what holds for every call of any. What is wrong is handed back as plain
// sentences, so that tests, soak and fuzzers report it in their own ways; no sentence, and nothing is wrong.

/// The pair of translators of a resource, from the registry; the library is initialised when it is empty.
[[nodiscard]] const kelmora_host::Registration &translators_of(const kelmora_host::Resource &resource);

/// How a to-translator is called.
struct ToRequest {
    bool as_list = false;
    std::optional<std::uint32_t> count = std::nullopt; ///< of the head; that of the nodes where none is given
    std::size_t raw_bytes = 0;                         ///< that a raw resource writes; 0 where it writes a text
    FailingAllocation memory = {};
    bool may_leave_half = false; ///< behind the empty document of a call that ran out of memory: half a text
};

/// What a to-translator answered.
struct ToAnswer {
    int result;
    std::string text;             ///< or the bytes of a raw resource; empty when nothing was written
    std::size_t allocations;      ///< that it asked for, reallocations included
    std::size_t reallocations;    ///< of the buffer, among them
    std::size_t reallocated_size; ///< what the last of those asked for
    std::vector<std::string> faults;
};

/// Calls a to-translator with a buffer of 4096 bytes, and checks: no memory outlives the call, records and nodes are
/// only read, a longer text gets exactly the room that it needs, and of the buffer nothing is written behind the text
/// and its NUL, nor anything behind the buffer's end. No nodes: the head is an empty record, with a count of 0.
ToAnswer call_to(kelmora_to_translator to, std::vector<kelmora_host::Node> &nodes, const ToRequest &request = {});

/// What a from-translator answered.
struct FromAnswer {
    int result;
    std::vector<kelmora_host::Error> errors;
    std::size_t allocations; ///< that it asked for
    std::size_t fetches;     ///< of the record
    Amount leaked;           ///< the document, where the contract leaves it unreleased
    std::vector<std::string> faults;
};

/// Whether a call that answered this, so far, leaves its document unreleased.
using Leaks = std::function<bool(const kelmora_host::Decoded &answer)>;

/// Calls a from-translator on a node whose record is guarded (harness/poison.h), and checks: the result is 0 or 1 and
/// fits the errors, the document is released before its error is reported, no JSON value outlives the call but, whole,
/// a document that leaks, no other memory does but what hangs on the record, the node and the guard are untouched, and
/// nothing hangs on the record twice. What the translator lets go of is freed, as a host must; where something hangs
/// on the record twice the record is cleared, as it cannot be freed.
FromAnswer call_from(kelmora_from_translator from, kelmora_host::Node &node, const std::string &text,
                     const Leaks &leaks, FailingAllocation memory = {});

/// The same of the resource, whose known leaks (harness/known_leaks.h) are those of the build.
FromAnswer call_from(const kelmora_host::Resource &resource, kelmora_host::Node &node, const std::string &text,
                     FailingAllocation memory = {});

/// An error that is reported while the translation goes on: the one of a protocol that
/// tr369_local_agent_controller does not know.
[[nodiscard]] bool is_remark(const kelmora_host::Error &error);

} // namespace kelmora_harness

#endif
