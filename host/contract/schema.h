#ifndef KELMORA_HOST_CONTRACT_SCHEMA_H
#define KELMORA_HOST_CONTRACT_SCHEMA_H

#include "host/contract/contract.h"

#include <string>
#include <string_view>

namespace kelmora_host {

/// Which documents a schema describes.
enum class Direction {
    output, ///< what the plug-in writes
    input,  ///< what it takes without a loss: nothing is cut, wrapped or of a wrong type, no element too many
    accept  ///< what gets the result 1, whatever is lost
};

[[nodiscard]] std::string_view name_of(Direction direction);

/// Whether there are documents in this direction: nothing is written by a write-only resource, nothing is taken without
/// a loss by a read-only one, and a raw one has no documents.
[[nodiscard]] bool has_schema(const Contract &contract, Direction direction);

/// A resource's JSON Schema, over several lines. It is of the dialect 2020-12, and but for one keyword of draft-07 as
/// well: "prefixItems", where accept has lists whose elements are looked at only up to a number.
///
/// What no schema can tell: 2.0 from 2, of which the plug-in takes the first for no integer; the bytes of a string
/// beyond ASCII ("x-kelmora-max-bytes" has their number); an integer beyond the field's width whose low bits are a
/// value that decides about another key, but for the nearest such integers; texts that the JSON library does not
/// parse. Where the record decides about a key that the document leaves out, the schema is that of a record of zeros,
/// and "x-kelmora-record-of-zeros" lists those keys. There must be documents in this direction.
[[nodiscard]] std::string schema(const Contract &contract, Direction direction);

} // namespace kelmora_host

#endif
