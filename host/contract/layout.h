#ifndef KELMORA_HOST_CONTRACT_LAYOUT_H
#define KELMORA_HOST_CONTRACT_LAYOUT_H

#include "host/contract/fields.h"
#include "host/gateway/resources.h"

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace kelmora_host {

/// A machine that host and plug-in are built for. On each a field stands at a multiple of its width, up to 8 bytes.
struct Target {
    std::string_view name;    ///< "mips"
    std::string_view machine; ///< "32-bit big-endian MIPS"
    std::size_t pointer_size; ///< in bytes
};

/// The gateway's and the developer's, in this order.
[[nodiscard]] std::span<const Target> targets();

/// The target of this name, or NULL.
[[nodiscard]] const Target *find_target(std::string_view name);

/// Where a field stands in a struct or union.
struct FieldLayout {
    std::string_view name;
    std::string_view type;   ///< in C, as the header has it
    std::size_t offset;      ///< in bytes
    std::size_t size;        ///< in bytes, all elements of an array together
    std::size_t count;       ///< elements of an array; 0 when the field is none
    std::string_view record; ///< what it consists of or points to, "kelmora_route"; else empty
    std::string_view meaning;
};

/// How a struct or union is laid out on a target.
struct Layout {
    std::string_view name; ///< "kelmora_radio"; of a union: the struct's and the member's, "kelmora_x.member"
    std::string_view meaning;
    bool is_union;
    std::size_t size;
    std::size_t alignment;
    std::vector<FieldLayout> fields; ///< in their order
};

/// The layout of a struct or union.
[[nodiscard]] Layout layout_of(const RecordType &type, const Target &target);

/// The layout of a node, struct kelmora_resource, with as many of the host's own pointers as this program was built
/// with.
[[nodiscard]] Layout node_layout(const Target &target);

/// A resource's record, and the structs and unions that it holds or leads to: each once, behind the first that names
/// it.
[[nodiscard]] std::vector<const RecordType *> record_types(const Resource &resource);

/// Those of all resources, each once.
[[nodiscard]] std::vector<const RecordType *> all_record_types();

/// A header in C99 and C++11 of static assertions: that nodes and records are laid out as they are here, for all
/// targets at once. Whoever includes it has proof that his program's records are the plug-in's.
[[nodiscard]] std::string layout_header();

/// The layouts of a resource's record and of what belongs to it as JSON text, on each of these targets: an object.
[[nodiscard]] std::string layouts_as_json(const Resource &resource, std::span<const Target> on);

/// The same of all resources, and of the node: an array of such objects.
[[nodiscard]] std::string layouts_as_json(std::span<const Target> on);

} // namespace kelmora_host

#endif
