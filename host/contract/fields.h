#ifndef KELMORA_HOST_CONTRACT_FIELDS_H
#define KELMORA_HOST_CONTRACT_FIELDS_H

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace kelmora_host {

/// What a field of a record holds. A boolean of the host is an unsigned integer of 8 bits.
enum class FieldKind {
    unsigned_integer,
    signed_integer,
    real,
    string,         ///< characters up to a NUL, or to the field's end
    bytes,          ///< a block of bytes
    string_pointer, ///< a pointer to a NUL-terminated string, or NULL
    chain,          ///< a pointer to the first node of a chain, or NULL
    next,           ///< a pointer to the next node of the chain that the record itself is a node of, or NULL
    record,         ///< a struct
    alternatives,   ///< a union: its fields share their bytes
};

struct RecordType;

/// A field of a record. Sizes and offsets are those of the machine that the host runs on.
struct Field {
    std::string_view name;
    std::string_view type;    ///< in C, as the header has it: "char[33]"
    FieldKind kind;           ///< of an array: its elements' kind
    std::size_t offset;       ///< in bytes, from the begin of the record
    std::size_t size;         ///< in bytes, all elements of an array together
    std::size_t count;        ///< elements of an array; 0 when the field is none. A string or a block of bytes is none.
    const RecordType *record; ///< what a record or alternatives consist of, a chain's or next's nodes; else NULL
    std::string_view meaning; ///< one line, in English; may be empty

    /// The bytes of an array's element, or of the whole field when it is no array.
    [[nodiscard]] constexpr std::size_t element_size() const { return count == 0 ? size : size / count; }
};

/// A struct or union of the public headers: a resource's record, a node of a chain or a part of these.
struct RecordType {
    std::string_view name;    ///< "kelmora_radio"; of a union: the struct's and the member's, "kelmora_x.member"
    std::string_view meaning; ///< one line or more sentences, in English; may be empty
    std::size_t size;
    std::span<const Field> fields; ///< in their order

    /// Whether it is a node of a chain. A resource whose record is one (qos_available_dscp) has no struct around the
    /// chain: what the plug-in sees as the record is the first node, or NULL.
    [[nodiscard]] bool is_node() const;

    /// Of a node: the field that leads to the next one.
    [[nodiscard]] const Field &next() const;

    /// The field of this name, or NULL.
    [[nodiscard]] const Field *find(std::string_view field) const;
};

/// The type of a resource's record, or NULL when there is no such resource.
[[nodiscard]] const RecordType *record_type(std::string_view resource);

/// A place in a record.
struct FieldPlace {
    std::string path;                 ///< "dmz_enabled", "lan_list[3].lan_id", "vlan_list[15]"
    const Field *field;               ///< the innermost field
    std::optional<std::size_t> index; ///< the element, when that field is an array and the place is in one element
    std::size_t offset;               ///< of the field or element, from the begin of the outermost record
    std::size_t size;                 ///< of the field or element
};

/// The innermost place that holds all of these bytes of a record: a field, an element of an array or, when they belong
/// to several of a struct's fields, that struct. Nothing when no field of the record holds them all: padding, several
/// fields, none at all. It ends at a union when more than one of its alternatives could hold the bytes.
[[nodiscard]] std::optional<FieldPlace> describe_bytes(const RecordType &type, std::size_t offset, std::size_t size);

} // namespace kelmora_host

#endif
