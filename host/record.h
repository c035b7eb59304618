#ifndef KELMORA_HOST_RECORD_H
#define KELMORA_HOST_RECORD_H

#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <initializer_list>
#include <memory>
#include <new>
#include <type_traits>
#include <utility>
#include <vector>

namespace kelmora_host {

/// What a record (or a node of one of its chains) owns besides its own bytes: specialised in host/ownership.h for those
/// that own something. visit() hands each owning pointer to the visitor: visitor.chain(first) for a chain of blocks
/// from malloc that are linked by `next`, visitor.text(pointer) for a text from malloc.
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

/// Lists the blocks that a record owns.
struct Collect {
    template <class Node> void chain(Node *&first)
    {
        for (Node *node = first; node != nullptr; node = node->next) {
            blocks.push_back(node);
            Owned<Node>::visit(*node, *this);
        }
    }

    void text(char *&text)
    {
        if (text != nullptr)
            blocks.push_back(text);
    }

    std::vector<void *> blocks;
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

    [[nodiscard]] void *data() { return bytes_.get(); }
    [[nodiscard]] std::size_t size() const { return type_->size; }

    /// The blocks from malloc that hang on the record.
    [[nodiscard]] std::vector<void *> owned_blocks() { return type_->collect(bytes_.get()); }

    /// The record as its struct. T must be the type that it was made of.
    template <class T> [[nodiscard]] T &as() { return *std::launder(static_cast<T *>(data())); }

private:
    struct Type {
        std::size_t size;
        void (*duplicate)(void *record);
        void (*release)(void *record);
        std::vector<void *> (*collect)(void *record);
    };

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
    static constexpr Type type_of{sizeof(T), &Record::visit<T, Duplicate>, &Record::visit<T, Free>,
                                  &Record::collect<T>};

    std::unique_ptr<std::byte[]> bytes_;
    const Type *type_;
};

} // namespace kelmora_host

// Always beside the template, so that no record is taken for one that owns nothing.
#include "host/ownership.h" // IWYU pragma: export

#endif
