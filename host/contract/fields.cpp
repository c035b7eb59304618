#include "host/contract/fields.h"

#include "host/gateway/resources.h"
#include "kelmora_records.h"

#include <algorithm>
#include <array>
#include <type_traits>

namespace kelmora_host {

namespace {

/// The elements of a field that is an array. The last dimension of strings and of blocks of bytes is their width.
template <class T> constexpr std::size_t count_of(FieldKind kind)
{
    const bool has_width = kind == FieldKind::string || kind == FieldKind::bytes;
    return std::rank_v<T> == (has_width ? 1U : 0U) ? 0 : std::extent_v<T>;
}

// One variable for each struct and union. They refer to each other, so all are declared first.
namespace record_types {

#define RECORD(name, meaning) extern const RecordType name;
#define UNION(owner, member) extern const RecordType owner##_##member;
#define FIELD(name, kind, type, meaning)
#define LINK(name, kind, record, type, meaning)
#define END(name)
#include "host/contract/fields_table.inc"
#undef RECORD
#undef UNION
#undef FIELD
#undef LINK
#undef END

// clang-format off
#define BEGIN(name, c_type, c_name, says) \
    struct name##_fields { \
        using Self = c_type; \
        static constexpr std::string_view type_name = c_name; \
        static constexpr std::string_view meaning = says; \
        static constexpr Field all[] = {
#define RECORD(name, meaning) BEGIN(name, ::name, #name, meaning)
#define UNION(owner, member) BEGIN(owner##_##member, decltype(::owner::member), #owner "." #member, "")
#define ROW(name, kind, record, type, meaning) \
            {#name, type, FieldKind::kind, offsetof(Self, name), sizeof(Self::name), \
             count_of<decltype(Self::name)>(FieldKind::kind), record, meaning},
#define FIELD(name, kind, type, meaning) ROW(name, kind, nullptr, type, meaning)
#define LINK(name, kind, record, type, meaning) ROW(name, kind, &record_types::record, type, meaning)
#define END(name) \
        }; \
    }; \
    constinit const RecordType name{name##_fields::type_name, name##_fields::meaning, sizeof(name##_fields::Self), \
                                    name##_fields::all};
// clang-format on
#include "host/contract/fields_table.inc"
#undef BEGIN
#undef RECORD
#undef UNION
#undef ROW
#undef FIELD
#undef LINK
#undef END

} // namespace record_types

/// The one field that holds all of these bytes, or NULL when there is none, or more than one as in a union.
const Field *holder(const RecordType &type, std::size_t offset, std::size_t size)
{
    const Field *found = nullptr;
    for (const Field &field : type.fields) {
        if (field.offset > offset || field.offset + field.size < offset + size)
            continue;
        if (found != nullptr)
            return nullptr;
        found = &field;
    }
    return found;
}

} // namespace

bool RecordType::is_node() const
{
    return std::ranges::any_of(fields, [](const Field &field) { return field.kind == FieldKind::next; });
}

const Field &RecordType::next() const { return *std::ranges::find(fields, FieldKind::next, &Field::kind); }

const Field *RecordType::find(std::string_view field) const
{
    const auto found = std::ranges::find(fields, field, &Field::name);
    return found != fields.end() ? &*found : nullptr;
}

const RecordType *record_type(std::string_view resource)
{
#define ROW(number, name, group, directions) &record_types::kelmora_##name,
    static constexpr std::array<const RecordType *, KELMORA_RESOURCE_COUNT> table{KELMORA_RESOURCES(ROW)};
#undef ROW
    const Resource *found = find_resource(resource);
    return found != nullptr ? table[static_cast<std::size_t>(found->number)] : nullptr;
}

std::optional<FieldPlace> describe_bytes(const RecordType &type, std::size_t offset, std::size_t size)
{
    if (size == 0 || offset > type.size || size > type.size - offset)
        return std::nullopt;
    std::optional<FieldPlace> place;
    std::size_t base = 0; // of the record looked at
    const RecordType *record = &type;
    while (record != nullptr) {
        const Field *field = holder(*record, offset - base, size);
        if (field == nullptr)
            break;
        std::string path = place ? place->path + '.' : std::string();
        place = FieldPlace{path.append(field->name), field, std::nullopt, base + field->offset, field->size};
        if (field->count != 0) {
            const std::size_t first = (offset - place->offset) / field->element_size();
            const std::size_t last = (offset + size - 1 - place->offset) / field->element_size();
            if (first != last)
                break;
            place->path += '[' + std::to_string(first) + ']';
            place->index = first;
            place->offset += first * field->element_size();
            place->size = field->element_size();
        }
        const bool inside = field->kind == FieldKind::record || field->kind == FieldKind::alternatives;
        record = inside ? field->record : nullptr;
        base = place->offset;
    }
    return place;
}

} // namespace kelmora_host
