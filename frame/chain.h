#ifndef KELMORA_FRAME_CHAIN_H
#define KELMORA_FRAME_CHAIN_H

#include "frame/decoder.h"

#include <cstddef>
#include <cstring>

namespace kelmora {

/// The nodes of a chain inside a record, linked by `next` and ended by NULL, for a range-based for.
template <class Node> class Chain {
public:
    explicit Chain(const Node *first) : first_(first) {}

    class Iterator {
    public:
        explicit Iterator(const Node *node) : node_(node) {}
        const Node &operator*() const { return *node_; }
        Iterator &operator++()
        {
            node_ = node_->next;
            return *this;
        }
        bool operator!=(std::nullptr_t /*end*/) const { return node_ != nullptr; }

    private:
        const Node *node_;
    };

    [[nodiscard]] Iterator begin() const { return Iterator(first_); }
    [[nodiscard]] static std::nullptr_t end() { return nullptr; }

private:
    const Node *first_;
};

/// for (const auto &lease : chain(server.leases))
template <class Node> Chain<Node> chain(const Node *first) { return Chain<Node>(first); }

/// The body of new_node.
[[nodiscard]] void *new_block(const Decoder &in, std::size_t size, const char *list);

/// A new node for a chain of the host's, all zeros, which the host frees: a single block from malloc. list: the key of
/// the list. NULL after a failure, be it this one's own: (list, "out of memory", "json").
template <class Node> [[nodiscard]] Node *new_node(const Decoder &in, const char *list)
{
    return static_cast<Node *>(new_block(in, sizeof(Node), list));
}

/// Links new nodes into a chain inside a record: the first one behind the chain's first node (or as the first node of
/// an empty chain), each further one behind the one before. What was linked behind the first node is let go, not freed:
/// it is the host's.
template <class Node> class ChainBuilder {
public:
    explicit ChainBuilder(Node *&first) : link_(first != nullptr ? &first->next : &first) {}

    /// A new node, linked at once. list: as for new_node. NULL after a failure; the chain is then as it was.
    [[nodiscard]] Node *add(const Decoder &in, const char *list)
    {
        auto *node = new_node<Node>(in, list);
        if (node != nullptr) {
            *link_ = node;
            link_ = &node->next;
        }
        return node;
    }

private:
    Node **link_;
};

/// Adds a node to a chain inside a record for each string of an array; an empty string or an element that is none is
/// skipped. A string that the node's field cannot hold whole fails, and nothing of it is stored. list: the key of the
/// list; element: the error field for such a string.
template <class Node, std::size_t width>
void add_strings(const Decoder &in, const ArrayDecoder &strings, Node *&first, char (Node::*field)[width],
                 const char *list, const char *element)
{
    ChainBuilder<Node> builder(first);
    for (const Decoder string : strings) {
        const std::size_t length = std::strlen(string.string());
        if (length == 0)
            continue;
        if (length >= width)
            in.fail(element, "one or more elements exceeds the maximum of characters", "size");
        else if (Node *node = builder.add(in, list))
            string.store_string(node->*field);
    }
}

} // namespace kelmora

#endif
