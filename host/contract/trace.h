#ifndef KELMORA_HOST_CONTRACT_TRACE_H
#define KELMORA_HOST_CONTRACT_TRACE_H

#include "host/contract/fields.h"
#include "host/contract/positions.h"
#include "host/gateway/node.h"
#include "host/gateway/resources.h"
#include "host/plugin/errors.h"
#include "host/plugin/registry.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace kelmora_host {

/// How the plug-in used a value that it looked up. One that is used in no way but looked at is taken for a boolean.
enum class Use { string, integer, real, number, object, array, text };

/// A set of them.
class Uses {
public:
    void insert(Use use) { bits_ |= 1U << static_cast<unsigned>(use); }
    void insert(const Uses &others) { bits_ |= others.bits_; }
    [[nodiscard]] bool contains(Use use) const { return (bits_ >> static_cast<unsigned>(use) & 1U) != 0; }
    [[nodiscard]] bool empty() const { return bits_ == 0; }
    bool operator==(const Uses &) const = default;

private:
    unsigned bits_ = 0;
};

/// A place in a record, or in what hangs on it, and what is there after the call.
struct Stored {
    std::string path;            ///< "dmz_enabled", "lan_list[3].lan_id", "leases[0].ip", "body"
    const Field *field;          ///< the innermost field
    std::size_t offset;          ///< in bytes, from the begin of the record or of the chain's node
    std::string bytes;           ///< the field's, or the element's when it is an array
    std::optional<bool> boolean; ///< where the plug-in used the value as a boolean: what is stored
    std::string block = {};      ///< the path of that node, "leases[0]", or of the string; empty for the record

    [[nodiscard]] bool is_integer() const;

    /// The integer that the bytes are, which must be one.
    [[nodiscard]] std::int64_t integer() const;

    /// The bytes up to a NUL.
    [[nodiscard]] std::string string() const { return bytes.c_str(); }

    /// What is stored, as JSON text. Bytes of a string that are not UTF-8 are U+FFFD in it.
    [[nodiscard]] std::string json() const;
};

/// One look-up of the plug-in's in a document.
struct Step {
    const Value *parent;        ///< where it looked; of any type
    std::string key;            ///< the member that it looked for; of an element empty
    std::size_t index;          ///< the element that it looked for; of a member 0
    bool element;               ///< it looked for an element
    const Value *value;         ///< what it found, or NULL
    Uses uses;                  ///< what it then did with it
    std::vector<Stored> stored; ///< where it went; empty when nowhere
    bool decides;               ///< the plug-in takes another course when the value is another

    /// The JSON Pointer of what it looked for.
    [[nodiscard]] std::string pointer() const;
};

/// An error that the plug-in reported, and the look-up before it: what it is about.
struct TracedError {
    Error error;
    std::optional<std::size_t> step; ///< its index; nothing when nothing had been looked up
};

/// All that a from-translator did with a document.
struct Trace {
    int result;                      ///< 1 when it accepted the document
    std::vector<TracedError> errors; ///< in their order
    std::vector<Step> steps;         ///< in their order
    std::vector<int> missing;        ///< fields that it marked as not supplied, by their positions in the record

    /// How many entries the record's lists had before and have after it, by their fields: nodes of a chain, or elements
    /// of an array of structs that are not all zeros.
    std::map<std::string, std::size_t, std::less<>> entries_before;
    std::map<std::string, std::size_t, std::less<>> entries_after;
};

/// Has a from-translator read a document into a copy of the node's record, and watches: also what becomes of the record
/// when single values are others, which tells where each is stored.
/// document: what `text` was parsed to. The process must have host/plugin/interpose.cpp.
[[nodiscard]] Trace trace(const Resource &resource, const Registration &translators, const Node &node,
                          const std::string &text, const Positions &document);

} // namespace kelmora_host

#endif
