#ifndef KELMORA_HOST_CONTRACT_IMAGE_H
#define KELMORA_HOST_CONTRACT_IMAGE_H

#include "host/contract/fields.h"
#include "host/gateway/record.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace kelmora_host {

/// The bytes of a record and of all that hangs on it, at one moment. Pointers and padding in it are
/// zeros.
class Image {
public:
    /// A record, a node of a chain, or a string that a pointer leads to.
    struct Block {
        const RecordType *type; ///< NULL for a string
        const Field *field;     ///< the chain or pointer that it hangs on; NULL for the record itself
        std::size_t parent;     ///< the block that has the field, by its index
        std::size_t index;      ///< its place in the chain
        std::size_t begin;      ///< where its bytes are in bytes()
        std::size_t size;
    };

    /// type: of the record.
    Image(Record &record, const RecordType &type);

    /// The blocks, a chain's behind the block that they hang on.
    [[nodiscard]] const std::vector<Block> &blocks() const { return blocks_; }

    /// All blocks' bytes, one behind the other.
    [[nodiscard]] const std::string &bytes() const { return bytes_; }

    /// Whether both consist of the same blocks.
    [[nodiscard]] bool same_shape(const Image &other) const;

    /// Whether both consist of the same blocks with the same bytes.
    [[nodiscard]] bool same(const Image &other) const { return same_shape(other) && bytes_ == other.bytes_; }

    /// The block's place in the record: "", "leases[2]", "neighbors[0].neighbors[1]", "body".
    [[nodiscard]] std::string path(const Block &block) const;

    /// The block that a byte belongs to, by its place in bytes().
    [[nodiscard]] const Block &block_at(std::size_t place) const;

private:
    void add_record(const void *address, const RecordType &type, const Field *field, std::size_t parent,
                    std::size_t index);
    void add_fields(const char *address, const RecordType &type, std::size_t block, std::size_t begin);

    std::vector<Block> blocks_;
    std::string bytes_;
};

} // namespace kelmora_host

#endif
