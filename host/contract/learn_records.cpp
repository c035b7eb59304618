#include "host/contract/learn_records.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <deque>
#include <map>
#include <mutex>
#include <set>

namespace kelmora_host {

namespace {

char *pointer_at(const char *place)
{
    char *pointer = nullptr;
    std::memcpy(&pointer, place, sizeof pointer);
    return pointer;
}

void store_pointer(char *place, const char *pointer) { std::memcpy(place, &pointer, sizeof pointer); }

/// Chains within chains that go deeper repeat those above them.
constexpr int deepest_chain = 2;

class Walk {
public:
    explicit Walk(std::vector<Leaf> &leaves) : leaves_(leaves) {}

    void add(char *begin, const RecordType &type, const std::string &prefix, std::size_t base, std::size_t index)
    {
        for (const Field &field : type.fields)
            add_field(begin, field, prefix + std::string(field.name), base + field.offset, index);
    }

    void add_chain(char *first, const RecordType &node, const std::string &path)
    {
        std::size_t index = 0;
        for (; first != nullptr; first = pointer_at(first + node.next().offset))
            add(first, node, path, 0, index++);
    }

private:
    void add_field(char *begin, const Field &field, const std::string &path, std::size_t offset, std::size_t index)
    {
        switch (field.kind) {
        case FieldKind::next:
            break;
        case FieldKind::chain:
            add_chain(pointer_at(begin + offset), *field.record, path + "[].");
            break;
        case FieldKind::record:
        case FieldKind::alternatives:
            for (std::size_t i = 0; i < std::max<std::size_t>(field.count, 1); ++i)
                add(begin, *field.record, path + (field.count != 0 ? "[]." : "."), offset + i * field.element_size(),
                    field.count != 0 ? i : index);
            break;
        default:
            for (std::size_t i = 0; i < std::max<std::size_t>(field.count, 1); ++i)
                leaves_.push_back({path + (field.count != 0 ? "[]" : ""), &field, offset + i * field.element_size(),
                                   field.element_size(), field.count != 0 ? i : index,
                                   begin + offset + i * field.element_size()});
            break;
        }
    }

    std::vector<Leaf> &leaves_;
};

char *new_chain(const RecordType &node, std::size_t nodes, int mark)
{
    char *first = nullptr;
    for (std::size_t i = nodes; i-- > 0;) {
        char *block = static_cast<char *>(Duplicate::allocate(node.size));
        std::memset(block, mark == 0 ? 0 : mark + static_cast<int>(i), node.size);
        for (const Field &field : node.fields) {
            if (field.kind == FieldKind::chain || field.kind == FieldKind::string_pointer)
                store_pointer(block + field.offset, nullptr);
        }
        store_pointer(block + node.next().offset, first);
        first = block;
    }
    return first;
}

void hang(char *begin, const RecordType &type, std::size_t nodes, int depth)
{
    for (const Field &field : type.fields) {
        if (field.kind == FieldKind::record) {
            for (std::size_t i = 0; i < std::max<std::size_t>(field.count, 1); ++i)
                hang(begin + field.offset + i * field.element_size(), *field.record, nodes, depth);
        } else if (field.kind == FieldKind::chain && depth < deepest_chain) {
            char *first = new_chain(*field.record, nodes, 0);
            store_pointer(begin + field.offset, first);
            for (char *node = first; node != nullptr; node = pointer_at(node + field.record->next().offset))
                hang(node, *field.record, nodes, depth + 1);
        }
    }
}

/// A text that stays, for pointers that the record does not own.
const char *lasting(std::string_view text)
{
    static std::mutex mutex;
    static std::set<std::string, std::less<>> texts;
    const std::scoped_lock lock(mutex);
    return texts.emplace(text).first->c_str();
}

/// Whether the text behind a pointer is the record's: a host that only lends it says so by its type.
bool owns_text(const Field &field) { return !field.type.starts_with("const "); }

} // namespace

std::vector<Leaf> leaves(Record &record, const RecordType &type)
{
    std::vector<Leaf> all;
    auto *begin = static_cast<char *>(record.data());
    if (type.is_node())
        Walk(all).add_chain(begin, type, "[].");
    else
        Walk(all).add(begin, type, "", 0, 0);
    return all;
}

void hang_chains(Record &record, const RecordType &type, std::size_t nodes)
{
    auto *begin = static_cast<char *>(record.bytes());
    if (type.is_node())
        store_pointer(begin, new_chain(type, nodes, 0));
    else
        hang(begin, type, nodes, 0);
}

void hang_marked_chain(Record &record, const Field &chain, std::size_t nodes)
{
    store_pointer(static_cast<char *>(record.data()) + chain.offset, new_chain(*chain.record, nodes, 0xC1));
}

void store_number(const Leaf &leaf, std::int64_t number)
{
    switch (leaf.field->kind) {
    case FieldKind::unsigned_integer:
    case FieldKind::signed_integer:
        if (leaf.size == sizeof(std::uint8_t)) {
            const auto value = static_cast<std::uint8_t>(number);
            std::memcpy(leaf.place, &value, sizeof value);
        } else if (leaf.size == sizeof(std::uint16_t)) {
            const auto value = static_cast<std::uint16_t>(number);
            std::memcpy(leaf.place, &value, sizeof value);
        } else {
            const auto value = static_cast<std::uint32_t>(number);
            std::memcpy(leaf.place, &value, sizeof value);
        }
        break;
    case FieldKind::real:
        if (leaf.size == sizeof(float)) {
            const float value = static_cast<float>(number) + 0.5F;
            std::memcpy(leaf.place, &value, sizeof value);
        } else {
            const double value = static_cast<double>(number) + 0.5;
            std::memcpy(leaf.place, &value, sizeof value);
        }
        break;
    case FieldKind::string:
    case FieldKind::string_pointer:
        store_text(leaf, std::to_string(number));
        break;
    default:
        break;
    }
}

void store_text(const Leaf &leaf, std::string_view text)
{
    if (leaf.field->kind == FieldKind::string) {
        std::memset(leaf.place, 0, leaf.size);
        std::memcpy(leaf.place, text.data(), std::min(text.size(), leaf.size));
    } else if (leaf.field->kind == FieldKind::string_pointer && owns_text(*leaf.field)) {
        std::free(pointer_at(leaf.place));
        store_pointer(leaf.place, make_text(text));
    } else if (leaf.field->kind == FieldKind::string_pointer) {
        store_pointer(leaf.place, lasting(text));
    }
}

KeyField key_field(const Leaf &leaf)
{
    return {leaf.path, leaf.field->type, leaf.offset, leaf.size, leaf.field->meaning};
}

namespace {

/// "leases[2].ip" without its indexes: "leases[].ip".
std::string without_indexes(std::string_view path)
{
    std::string result;
    bool inside = false;
    for (const char c : path) {
        inside = c == '[' || (inside && c != ']');
        if (!inside || c == '[')
            result += c;
    }
    return result;
}

/// Where a field is in a struct, looked for in the structs within it too.
std::size_t offset_in(const RecordType &type, const Field &field, std::size_t base)
{
    for (const Field &each : type.fields) {
        if (&each == &field)
            return base + each.offset;
        if (each.kind == FieldKind::record) {
            const std::size_t offset = offset_in(*each.record, field, base + each.offset);
            if (offset != std::string::npos)
                return offset;
        }
    }
    return std::string::npos;
}

/// The last step of a path that is a name.
std::string_view name_of(std::string_view key)
{
    while (key.ends_with("/*"))
        key.remove_suffix(2);
    const std::size_t slash = key.rfind('/');
    return slash == std::string_view::npos ? key : key.substr(slash + 1);
}

/// Whether one of the steps of a JSON Pointer is this name.
bool has_step(std::string_view key, std::string_view step)
{
    while (!key.empty()) {
        const std::size_t slash = key.rfind('/');
        if (key.substr(slash + 1) == step)
            return true;
        key = key.substr(0, slash);
    }
    return false;
}

/// The field that a byte of a struct belongs to, within the alternative that the key is for.
std::optional<FieldPlace> place_of(const RecordType &type, std::size_t offset, std::string_view key)
{
    std::optional<FieldPlace> place = describe_bytes(type, offset, 1);
    if (!place || place->field->kind != FieldKind::alternatives)
        return place;
    std::optional<FieldPlace> best;
    int best_rank = -1;
    for (const Field &alternative : place->field->record->fields) {
        if (alternative.record == nullptr)
            continue;
        const std::size_t begin = place->offset + alternative.offset;
        const std::optional<FieldPlace> inner = describe_bytes(*alternative.record, offset - begin, 1);
        if (!inner)
            continue;
        const int rank = (has_step(key, alternative.name) ? 2 : 0) + (inner->field->name == name_of(key) ? 1 : 0);
        if (rank > best_rank) {
            best_rank = rank;
            best = FieldPlace{place->path + "." + std::string(alternative.name) + "." + inner->path, inner->field,
                              inner->index, begin + inner->offset, inner->size};
        }
    }
    return best ? best : place;
}

void add_field(std::vector<KeyField> &fields, KeyField field)
{
    const auto same = std::ranges::find(fields, field.path, &KeyField::path);
    if (same == fields.end())
        fields.push_back(std::move(field));
    else
        same->offset = std::min(same->offset, field.offset);
}

std::string path_in(const Image &image, const Image::Block &block, const std::string &inner)
{
    const std::string path = without_indexes(image.path(block));
    return path.empty() || inner.empty() ? path + inner : path + "." + inner;
}

/// A struct's place of an array's element, moved to the first element.
std::size_t first_element(const RecordType &type, const FieldPlace &place)
{
    for (const Field &field : type.fields) {
        const bool within = place.offset >= field.offset && place.offset < field.offset + field.size;
        if (within && field.count != 0)
            return field.offset + (place.offset - field.offset) % field.element_size();
    }
    return place.offset;
}

} // namespace

std::vector<KeyField> differing_fields(const Image &one, const Image &two, std::string_view key)
{
    std::vector<KeyField> fields;
    std::map<std::string, const Image::Block *> others;
    for (const Image::Block &block : two.blocks())
        others[two.path(block)] = &block;
    const auto add_string = [&](const Image &image, const Image::Block &block) {
        const std::size_t offset = offset_in(*image.blocks()[block.parent].type, *block.field, 0);
        add_field(fields,
                  {path_in(image, block, ""), block.field->type, offset, block.field->size, block.field->meaning});
    };
    for (const Image::Block &block : one.blocks()) {
        const auto found = others.find(one.path(block));
        const Image::Block *other = found != others.end() ? found->second : nullptr;
        if (found != others.end())
            others.erase(found);
        const std::string_view bytes = std::string_view(one.bytes()).substr(block.begin, block.size);
        const std::string_view other_bytes =
            other != nullptr ? std::string_view(two.bytes()).substr(other->begin, other->size) : std::string_view();
        if (block.type == nullptr) {
            if (bytes != other_bytes)
                add_string(one, block);
            continue;
        }
        if (other == nullptr)
            continue;
        for (std::size_t i = 0; i < bytes.size(); ++i) {
            if (bytes[i] == other_bytes[i])
                continue;
            const std::optional<FieldPlace> place = place_of(*block.type, i, key);
            if (!place)
                continue;
            add_field(fields, {path_in(one, block, without_indexes(place->path)), place->field->type,
                               first_element(*block.type, *place), place->size, place->field->meaning});
            if (place->field->kind != FieldKind::alternatives)
                i = std::max(i, place->offset + place->size - 1);
        }
    }
    for (const auto &[path, block] : others) {
        if (block->type == nullptr)
            add_string(two, *block);
    }
    return fields;
}

namespace {

/// Calls visit(bytes of the field) for each place of an image that has the field.
template <class Visit> void for_each_place(const Image &image, const KeyField &field, Visit visit)
{
    for (const Image::Block &block : image.blocks()) {
        const std::string prefix = without_indexes(image.path(block));
        const std::string_view bytes = std::string_view(image.bytes()).substr(block.begin, block.size);
        if (block.type == nullptr) {
            if (prefix == field.path)
                visit(bytes);
            continue;
        }
        const bool in_block = prefix.empty() || field.path.starts_with(prefix + ".");
        if (!in_block)
            continue;
        const std::string inner = prefix.empty() ? field.path : field.path.substr(prefix.size() + 1);
        const std::optional<FieldPlace> place = describe_bytes(*block.type, field.offset, 1);
        if (!place)
            continue;
        const std::string found = without_indexes(place->path);
        const bool in_union = place->field->kind == FieldKind::alternatives && inner.starts_with(found + ".");
        if (in_union || found == inner)
            visit(bytes.substr(field.offset, field.size));
    }
}

} // namespace

bool is_cleared(const Image &image, const KeyField &field)
{
    bool cleared = true;
    for_each_place(image, field, [&](std::string_view bytes) {
        const bool text = field.type.starts_with("char[") || field.type.starts_with("char *");
        const bool empty = text ? bytes.front() == '\0' : bytes.find_first_not_of('\0') == std::string_view::npos;
        cleared = cleared && empty;
    });
    return cleared;
}

std::string bytes_of(const Image &image, const KeyField &field)
{
    std::string first;
    for_each_place(image, field, [&](std::string_view bytes) {
        if (first.empty())
            first = bytes;
    });
    return first;
}

} // namespace kelmora_host
