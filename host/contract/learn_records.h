#ifndef KELMORA_HOST_CONTRACT_LEARN_RECORDS_H
#define KELMORA_HOST_CONTRACT_LEARN_RECORDS_H

#include "host/contract/contract.h"
#include "host/contract/fields.h"
#include "host/contract/image.h"
#include "host/gateway/record.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace kelmora_host {

// Records of any type, made and changed by the table of fields alone.

/// A field that holds a value of its own, somewhere in a record or in a node that hangs on it.
struct Leaf {
    std::string path; ///< without indexes: "lan_list[].lan_id", "leases[].ip", "body"
    const Field *field;
    std::size_t offset; ///< from the begin of the record or node
    std::size_t size;   ///< of one element
    std::size_t index;  ///< of the element or node that it is in, the innermost; 0 when there is none
    char *place;        ///< in memory
};

/// All of them, those of chains behind their chain's field. Alternatives share their bytes.
[[nodiscard]] std::vector<Leaf> leaves(Record &record, const RecordType &type);

/// What hangs on a record is as many nodes for each of its chains, and on a node of the first level likewise; all are
/// zeros. What was there before must be nothing.
void hang_chains(Record &record, const RecordType &type, std::size_t nodes);

/// A chain of this field alone, whose i-th node's bytes are all 0xC1 + i: nodes that can be told from each other.
void hang_marked_chain(Record &record, const Field &chain, std::size_t nodes);

/// Stores a number into a leaf: the low bits of an integer, a real, and for the other kinds a text of the number.
void store_number(const Leaf &leaf, std::int64_t number);

/// Stores a text: all that a string has room for, without a NUL behind it where it is as long as the field.
void store_text(const Leaf &leaf, std::string_view text);

/// The leaf as the field behind a key.
[[nodiscard]] KeyField key_field(const Leaf &leaf);

/// The fields whose bytes differ. Of alternatives the one is taken that the key's path names, or that has a field of
/// the key's name. Entries that only one of them has do not count, strings do.
[[nodiscard]] std::vector<KeyField> differing_fields(const Image &one, const Image &two, std::string_view key);

/// Whether all bytes of the field are 0, a string's first one, in all places of the image that have it.
[[nodiscard]] bool is_cleared(const Image &image, const KeyField &field);

/// The bytes of the field where it stands first in the image; empty when it is nowhere.
[[nodiscard]] std::string bytes_of(const Image &image, const KeyField &field);

} // namespace kelmora_host

#endif
