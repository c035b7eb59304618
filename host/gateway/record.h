#ifndef KELMORA_HOST_GATEWAY_RECORD_H
#define KELMORA_HOST_GATEWAY_RECORD_H

#include "host/gateway/tails.h"

#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <initializer_list>
#include <memory>
#include <new>
#include <set>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

namespace kelmora_host {

/// What a record (or a node of one of its chains) owns besides its own bytes: specialised in host/gateway/ownership.h
/// for those that own something. visit() hands each owning pointer to the visitor: visitor.chain(first) for a chain of
/// blocks from malloc that are linked by `next`, visitor.text(pointer) for a text from malloc.
template <class Record> struct Owned {
    template <class Visitor> static void visit(Record & /*record*/, Visitor & /*visitor*/) {}
};

/// Replaces what a bytewise copy still shares with its original by copies of its own.
struct Duplicate {
    template <class Node> void chain(Node *&first)
    {
        const Node *original = first;
        Node **link = &first;
        for (; original != nullptr; original = original->next) {
            auto *copy = static_cast<Node *>(allocate(sizeof(Node)));
            std::memcpy(copy, original, sizeof(Node));
            Owned<Node>::visit(*copy, *this);
            *link = copy;
            link = &copy->next;
        }
    }

    void text(char *&text)
    {
        if (text == nullptr)
            return;
        const std::size_t size = std::strlen(text) + 1;
        auto *copy = static_cast<char *>(allocate(size));
        std::memcpy(copy, text, size);
        text = copy;
    }

    static void *allocate(std::size_t size)
    {
        void *block = std::malloc(size);
        if (block == nullptr)
            throw std::bad_alloc();
        return block;
    }
};

/// Lists the blocks that a record owns. One that hangs on it twice is listed twice, and not followed again: a ring
/// ends.
struct Collect {
    template <class Node> void chain(Node *&first)
    {
        for (Node *node = first; node != nullptr && add(node); node = node->next)
            Owned<Node>::visit(*node, *this);
    }

    void text(char *&text)
    {
        if (text != nullptr)
            add(text);
    }

    /// Whether the block is a new one.
    bool add(void *block)
    {
        blocks.push_back(block);
        return seen.insert(block).second;
    }

    std::vector<void *> blocks;
    std::set<void *> seen;
};

/// Frees what a record owns.
struct Free {
    template <class Node> void chain(Node *&first)
    {
        while (first != nullptr) {
            Node *next = first->next;
            Owned<Node>::visit(*first, *this);
            std::free(first);
            first = next;
        }
    }

    void text(char *&text)
    {
        std::free(text);
        text = nullptr;
    }
};

/// A copy of a text, a block from malloc.
inline char *make_text(std::string_view text)
{
    auto *copy = static_cast<char *>(Duplicate::allocate(text.size() + 1));
    text.copy(copy, text.size());
    copy[text.size()] = '\0';
    return copy;
}

/// Forgets what a record owns, without freeing it: for bytes that are no pointers.
struct Forget {
    template <class Node> void chain(Node *&first) { first = nullptr; }
    void text(char *&text) { text = nullptr; }
};

/// A new chain of copies of these nodes, each a block from malloc. What the nodes own becomes the chain's.
template <class Node> Node *make_chain(std::initializer_list<Node> nodes)
{
    Node *first = nullptr;
    Node **link = &first;
    for (const Node &node : nodes) {
        *link = static_cast<Node *>(Duplicate::allocate(sizeof(Node)));
        std::memcpy(*link, &node, sizeof(Node));
        link = &(*link)->next;
        *link = nullptr;
    }
    return first;
}

/// A record that is nothing but a chain: what the plug-in sees is the first node itself, or NULL.
template <class Node> struct ChainRecord {
    Node *first;
};

template <class Node> struct Owned<ChainRecord<Node>> {
    template <class Visitor> static void visit(ChainRecord<Node> &record, Visitor &visitor)
    {
        visitor.chain(record.first);
    }
};

template <class T> void *data_of(T &record) { return &record; }
template <class Node> void *data_of(ChainRecord<Node> &record) { return record.first; }

/// A record of any type, owned: a C struct and all that hangs on it. Copies are deep.
class Record {
public:
    /// A copy of `value` whose chains and texts it takes over.
    template <class T> explicit Record(const T &value) : bytes_(new std::byte[sizeof(T)]), type_(&type_of<T>)
    {
        static_assert(std::is_trivially_copyable_v<T>);
        std::memcpy(bytes_.get(), &value, sizeof(T));
    }

    Record(const Record &other) : bytes_(new std::byte[other.type_->size]), type_(other.type_)
    {
        std::memcpy(bytes_.get(), other.bytes_.get(), type_->size);
        type_->duplicate(bytes_.get());
    }

    Record(Record &&) noexcept = default;
    Record &operator=(Record &&other) noexcept
    {
        std::swap(bytes_, other.bytes_);
        std::swap(type_, other.type_);
        return *this;
    }
    Record &operator=(const Record &other) { return *this = Record(other); }

    ~Record()
    {
        if (bytes_)
            type_->release(bytes_.get());
    }

    /// What the plug-in sees as the record.
    [[nodiscard]] void *data() { return type_->data(bytes_.get()); }

    /// The struct that it is kept in.
    [[nodiscard]] void *bytes() { return bytes_.get(); }
    [[nodiscard]] const void *bytes() const { return bytes_.get(); }
    [[nodiscard]] std::size_t size() const { return type_->size; }

    /// The blocks from malloc that hang on the record; one that hangs on it twice, twice.
    [[nodiscard]] std::vector<void *> owned_blocks() { return type_->collect(bytes_.get()); }

    /// The record as its struct. T must be the type that it was made of.
    template <class T> [[nodiscard]] T &as() { return *std::launder(static_cast<T *>(bytes())); }
    template <class T> [[nodiscard]] const T &as() const { return *std::launder(static_cast<const T *>(bytes())); }

private:
    struct Type {
        std::size_t size;
        void *(*data)(void *record);
        void (*duplicate)(void *record);
        void (*release)(void *record);
        std::vector<void *> (*collect)(void *record);
    };

    template <class T> static void *data(void *record) { return data_of(*static_cast<T *>(record)); }

    template <class T, class Visitor> static void visit(void *record)
    {
        Visitor visitor;
        Owned<T>::visit(*static_cast<T *>(record), visitor);
    }

    template <class T> static std::vector<void *> collect(void *record)
    {
        Collect collect;
        Owned<T>::visit(*static_cast<T *>(record), collect);
        return collect.blocks;
    }

    template <class T>
    static constexpr Type type_of{sizeof(T), &Record::data<T>, &Record::visit<T, Duplicate>, &Record::visit<T, Free>,
                                  &Record::collect<T>};

    std::unique_ptr<std::byte[]> bytes_;
    const Type *type_;
};

/// At the end of its life, frees the blocks that hung on a record at its beginning and do no more: what a translator
/// lets go of is the host's to free. Nobody frees them earlier, so in the meantime the ends of the record's chains are
/// remembered.
class FreeLost {
public:
    explicit FreeLost(Record &record)
        : record_(record), before_(record.owned_blocks()), tails_(record.bytes(), record.size())
    {
    }
    FreeLost(const FreeLost &) = delete;
    FreeLost &operator=(const FreeLost &) = delete;
    ~FreeLost()
    {
        const std::vector<void *> after = record_.owned_blocks();
        const std::set<void *> kept(after.begin(), after.end());
        for (void *block : before_) {
            if (!kept.contains(block))
                std::free(block);
        }
    }

private:
    Record &record_;
    std::vector<void *> before_;
    Tails tails_;
};

} // namespace kelmora_host

// Always beside the template, so that no record is taken for one that owns nothing.
#include "host/gateway/ownership.h" // IWYU pragma: export

#endif
