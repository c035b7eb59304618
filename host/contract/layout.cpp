#include "host/contract/layout.h"

#include "kelmora_host.h"

#include <algorithm>
#include <array>

namespace kelmora_host {

namespace {

constexpr std::array<Target, 2> all_targets{{{"mips", "32-bit big-endian MIPS", 4}, {"x86-64", "64-bit x86-64", 8}}};

struct Extent {
    std::size_t size;
    std::size_t alignment;
};

std::size_t aligned(std::size_t offset, std::size_t alignment)
{
    return (offset + alignment - 1) / alignment * alignment;
}

/// Of a field, or of an array's element. What is neither a pointer nor made of others is as wide on every target.
Extent extent_of(const Field &field, const Target &target)
{
    switch (field.kind) {
    case FieldKind::string:
    case FieldKind::bytes:
        return {field.element_size(), 1};
    case FieldKind::string_pointer:
    case FieldKind::chain:
    case FieldKind::next:
        return {target.pointer_size, target.pointer_size};
    case FieldKind::record:
    case FieldKind::alternatives: {
        const Layout layout = layout_of(*field.record, target);
        return {layout.size, layout.alignment};
    }
    case FieldKind::unsigned_integer:
    case FieldKind::signed_integer:
    case FieldKind::real:
        break;
    }
    return {field.element_size(), field.element_size()};
}

/// Puts a field behind those that are there, or in a union beside them.
void add(Layout &layout, FieldLayout field, const Extent &element)
{
    field.size = element.size * std::max<std::size_t>(field.count, 1);
    field.offset = layout.is_union ? 0 : aligned(layout.size, element.alignment);
    layout.size = std::max(layout.size, field.offset + field.size);
    layout.alignment = std::max(layout.alignment, element.alignment);
    layout.fields.push_back(field);
}

/// Adds a type behind those that are there, and what it holds or leads to; nothing of what is there already.
void collect(const RecordType &type, std::vector<const RecordType *> &types)
{
    if (std::ranges::find(types, &type) != types.end())
        return;
    types.push_back(&type);
    for (const Field &field : type.fields) {
        if (field.record != nullptr)
            collect(*field.record, types);
    }
}

} // namespace

std::span<const Target> targets() { return all_targets; }

const Target *find_target(std::string_view name)
{
    const auto *const found = std::ranges::find(all_targets, name, &Target::name);
    return found != all_targets.end() ? found : nullptr;
}

Layout layout_of(const RecordType &type, const Target &target)
{
    // The name of a union is its struct's and its member's.
    Layout layout{type.name, type.meaning, type.name.find('.') != std::string_view::npos, 0, 1, {}};
    for (const Field &field : type.fields)
        add(layout,
            {field.name, field.type, 0, 0, field.count,
             field.record != nullptr ? field.record->name : std::string_view(), field.meaning},
            extent_of(field, target));
    layout.size = aligned(layout.size, layout.alignment);
    return layout;
}

Layout node_layout(const Target &target)
{
    Layout layout{
        "kelmora_resource", "A node: one record, and a place in the list of a request's records.", false, 0, 1, {}};
    add(layout,
        {"host_private", "void *[KELMORA_HOST_PRIVATE_POINTERS]", 0, 0, KELMORA_HOST_PRIVATE_POINTERS, "",
         "the host's own"},
        {target.pointer_size, target.pointer_size});
    add(layout, {"count", "uint32_t", 0, 0, 0, "", "nodes in the list; valid in the head node only"}, {4, 4});
    add(layout, {"id", "char[129]", 0, 0, 0, "", "what the host keys this record by"}, {KELMORA_ID_SIZE, 1});
    add(layout, {"is_list", "uint8_t", 0, 0, 0, "", "the request is for a list; valid in the head node only"}, {1, 1});
    layout.size = aligned(layout.size, layout.alignment);
    return layout;
}

std::vector<const RecordType *> record_types(const Resource &resource)
{
    std::vector<const RecordType *> types;
    collect(*record_type(resource.name), types);
    return types;
}

std::vector<const RecordType *> all_record_types()
{
    std::vector<const RecordType *> types;
    for (const Resource &resource : resources())
        collect(*record_type(resource.name), types);
    return types;
}

} // namespace kelmora_host
