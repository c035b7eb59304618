#include "host/contract/image.h"

#include <algorithm>
#include <cstring>

namespace kelmora_host {

namespace {

/// The pointer that a field holds.
const char *pointer_in(const char *address)
{
    const char *pointer = nullptr;
    std::memcpy(&pointer, address, sizeof pointer);
    return pointer;
}

} // namespace

Image::Image(Record &record, const RecordType &type)
{
    const void *data = record.data();
    if (data != nullptr)
        add_record(data, type, nullptr, 0, 0);
}

void Image::add_record(const void *address, const RecordType &type, const Field *field, std::size_t parent,
                       std::size_t index)
{
    const std::size_t begin = bytes_.size();
    bytes_.resize(begin + type.size); // padding and pointers stay zeros
    blocks_.push_back({&type, field, parent, index, begin, type.size});
    add_fields(static_cast<const char *>(address), type, blocks_.size() - 1, begin);
}

void Image::add_fields(const char *address, const RecordType &type, std::size_t block, std::size_t begin)
{
    for (const Field &field : type.fields) {
        const char *place = address + field.offset;
        switch (field.kind) {
        case FieldKind::record:
            for (std::size_t i = 0; i < std::max<std::size_t>(field.count, 1); ++i)
                add_fields(place + i * field.element_size(), *field.record, block,
                           begin + field.offset + i * field.element_size());
            break;
        case FieldKind::next:
            break;
        case FieldKind::string_pointer:
            if (const char *string = pointer_in(place)) {
                const std::size_t size = std::strlen(string) + 1;
                blocks_.push_back({nullptr, &field, block, 0, bytes_.size(), size});
                bytes_.append(string, size);
            }
            break;
        case FieldKind::chain: {
            std::size_t index = 0;
            for (const char *node = pointer_in(place); node != nullptr;
                 node = pointer_in(node + field.record->next().offset))
                add_record(node, *field.record, &field, block, index++);
            break;
        }
        default:
            bytes_.replace(begin + field.offset, field.size, place, field.size);
            break;
        }
    }
}

bool Image::same_shape(const Image &other) const
{
    return std::ranges::equal(blocks_, other.blocks_, [](const Block &one, const Block &two) {
        return one.field == two.field && one.parent == two.parent && one.index == two.index && one.size == two.size;
    });
}

std::string Image::path(const Block &block) const
{
    if (block.field == nullptr)
        return "";
    std::string path = this->path(blocks_[block.parent]);
    if (!path.empty())
        path += '.';
    path += block.field->name;
    if (block.field->kind == FieldKind::chain)
        path.append("[").append(std::to_string(block.index)).append("]");
    return path;
}

const Image::Block &Image::block_at(std::size_t place) const
{
    const auto behind = std::ranges::upper_bound(blocks_, place, {}, &Block::begin);
    return *(behind - 1);
}

} // namespace kelmora_host
