#ifndef KELMORA_HOST_CONTRACT_CONTRACT_H
#define KELMORA_HOST_CONTRACT_CONTRACT_H

#include "host/contract/fields.h"
#include "host/gateway/resources.h"
#include "host/plugin/errors.h"
#include "host/plugin/registry.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kelmora_host {

// What a resource takes and writes, as it was learned by asking the plug-in (learn). Paths are JSON Pointers in which
// "*" stands for any element of a list: "/lan_list/*/lan_id".

/// The C field behind a key.
struct KeyField {
    std::string path;         ///< from the record on: "dmz_enabled", "lan_list[].lan_id", "leases[].ip", "body"
    std::string_view type;    ///< in C, as the header has it: "char[33]"
    std::size_t offset;       ///< in bytes, of the field in the record or in the chain's node; of the first element
    std::size_t size;         ///< in bytes; of one element
    std::string_view meaning; ///< one line, in English; may be empty
};

/// The record or the document that decides about a key.
///
/// A key decides by its value as the plug-in reads it: one of another type counts as false, 0 or an empty string. With
/// neither values nor `except` it is so when the key is there, whatever its value.
struct Condition {
    std::string path;                ///< of the key; with a field, of the key without which the field decides, or empty
    std::string field;               ///< of the record as it was before, when that decides; else empty
    std::vector<std::string> values; ///< the key's or field's values with which it is so, as JSON texts
    bool except = false;             ///< it is so with all other values, and without the key
};

/// What a key takes.
enum class InputType {
    boolean,
    integer,
    real,   ///< a number with a fraction or an exponent, no integer
    number, ///< any number
    string,
    object,
    array,
    text, ///< an object or array, kept as JSON text
    any   ///< whatever it is, nothing is stored: it is looked at alone
};

/// JSON's word for it, or "text" or "any".
[[nodiscard]] std::string_view name_of(InputType type);

/// What becomes of the entries that a list had when a document brings others.
enum class ListEffect {
    none,        ///< it is no list that is stored
    replaces,    ///< they are replaced
    appends,     ///< they stay, the new ones come behind them
    prepends,    ///< they stay, the new ones come in front of them, each in front of the one before
    keeps_first, ///< the first stays, the new ones come behind it, and the others go
    overwrites   ///< the new ones are written over the first ones; what is behind stays
};

/// What happens to too much of something, or too little.
enum class Excess { none, cut, ignored, rejected };

/// A key as the from-translator takes it, or the element of a list ("/lan_list/*").
struct InputKey {
    std::string path;
    InputType type;

    /// Its absence is an error; with conditions, when one of them holds.
    bool required = false;
    std::vector<Condition> required_when;

    /// It is looked at only when one of these holds; always when there are none.
    std::vector<Condition> looked_at_when;

    /// Its presence is an error.
    bool refused = false;

    /// Without one of these others it is looked at alone: nothing is stored.
    std::vector<std::string> only_with;

    /// With others of one number, at least one of which must be there; 0 with none.
    int at_least_one = 0;

    /// A value of another type is an error; or it counts as absent. Else it stores false, 0 or an empty string.
    bool checked = false;
    bool skipped = false;

    std::optional<Error> absent;      ///< the error of its absence
    std::optional<Error> unfit;       ///< the error of its presence, where it is refused, or of a value of another type
    std::optional<Error> out_of_size; ///< the error of too long a string, or of too many or few elements
    std::optional<Error> unknown;     ///< reported, though the document is accepted, of a value that is not in `values`

    bool cleared_when_absent = false; ///< what is stored is then 0 or empty; else it stays as it was
    bool marked_when_absent = false;  ///< its absence is marked in the node, for the host

    // Integers and numbers that are stored as integers.
    unsigned bits = 0; ///< of the field; 0 for everything else
    bool is_signed = false;
    bool saturates = false;          ///< what does not fit becomes the nearest that does; else its low bits are stored
    std::vector<std::string> values; ///< those that change what the plug-in does, as JSON texts

    // Strings.
    std::optional<std::size_t> longest; ///< bytes; nothing where there is no limit
    Excess too_long = Excess::none;
    bool empty_is_skipped = false; ///< of a list's element: it is then not stored at all

    // Lists.
    std::optional<std::size_t> most; ///< elements; nothing where there is no limit but memory
    Excess too_many = Excess::none;
    std::size_t least = 0; ///< fewer elements are rejected
    ListEffect effect = ListEffect::none;
    bool empty_keeps = false; ///< an empty list leaves the entries that there are

    std::vector<KeyField> fields;
    std::vector<KeyField> also_sets; ///< further fields, which its presence sets whatever its value
};

/// What a from-translator takes: its keys in the order in which it looks for them, members behind their object or list.
struct Input {
    std::vector<InputKey> keys;
};

/// Of which type what the to-translator writes is.
enum class OutputType { boolean, integer, real, string, object, array };

/// JSON's word for it; a real is one of its own.
[[nodiscard]] std::string_view name_of(OutputType type);

/// A key as the to-translator writes it, or the element of a list.
struct OutputKey {
    std::string path;
    std::vector<OutputType> types; ///< more than one where the record decides
    bool always = true;            ///< in every record whose strings are UTF-8 and whose reals are finite
    std::vector<Condition> when;   ///< else: of the record; empty when not known
    unsigned bits = 0;             ///< of an integer; 0 for everything else
    bool is_signed = false;
    std::optional<std::size_t> longest; ///< of a string: bytes
    std::optional<std::size_t> most;    ///< of a list: elements
    std::vector<std::string> values;    ///< of a string that is made of a number: all of them, as JSON texts, if few
    bool id = false;                    ///< it is the node's identifier, no field
    std::string like; ///< of a list within lists: the path of the one whose elements are of the same form
    std::vector<KeyField> fields;
};

/// What the root of the output is.
enum class RootShape { by_list_flag, array, object };

/// Which nodes of a request the output has.
enum class NodesShown { counted, all, head, head_repeated };

/// What a to-translator writes: its keys in their order, members behind their object or list.
struct Output {
    std::vector<OutputKey> keys;
    bool sorted = false; ///< by name, be it that the plug-in sorts or that its order is just that
    bool pretty = false; ///< over several lines
    RootShape root = RootShape::by_list_flag;
    NodesShown nodes = NodesShown::counted;
    bool empty_without_count = false; ///< "[]" when the head's count is 0
    bool head_id = false;             ///< every node is written with the head's identifier
};

/// A resource's contract.
struct Contract {
    const Resource *resource;
    std::optional<Input> input;   ///< nothing where nothing is taken, or no JSON
    std::optional<Output> output; ///< nothing where nothing is written, or no JSON
};

/// Learns a resource's contract by asking the plug-in. The process must have host/plugin/interpose.cpp.
[[nodiscard]] Contract learn(const Resource &resource, const Registration &translators);

/// The contract as a JSON object, for programs and for all that is made of it.
[[nodiscard]] std::string contract_as_json(const Contract &contract);

} // namespace kelmora_host

#endif
