#ifndef KELMORA_HOST_GATEWAY_NODE_H
#define KELMORA_HOST_GATEWAY_NODE_H

#include "host/gateway/record.h"

#include "kelmora_host.h"

#include <cstddef>
#include <string_view>
#include <vector>

namespace kelmora_host {

/// A record with its resource node, as the host keeps it. Copies are deep, linked to nothing, and miss nothing.
class Node {
public:
    /// Bytes of an id.
    static constexpr std::size_t longest_id = sizeof kelmora_resource::id - 1;

    /// id: cut to the longest.
    Node(std::string_view id, Record record);
    Node(const Node &other);
    Node(Node &&other) noexcept;
    Node &operator=(Node other) noexcept;
    ~Node() = default;

    [[nodiscard]] std::string_view id() const { return header_.id; }
    [[nodiscard]] Record &record() { return record_; }
    [[nodiscard]] const Record &record() const { return record_; }

    /// What the plug-in sees of it.
    [[nodiscard]] kelmora_resource *resource() { return &header_; }
    [[nodiscard]] const kelmora_resource *resource() const { return &header_; }

    /// Hangs another node (or none) behind this one.
    void link(Node *next) { next_ = next; }
    [[nodiscard]] Node *next() const { return next_; }

    /// The fields, by their positions in the record, that the plug-in marked as not supplied, in the order of its
    /// calls.
    [[nodiscard]] const std::vector<int> &missing() const { return missing_; }
    void mark_missing(int field) { missing_.push_back(field); }

    /// The record, for the plug-in; counts how often it asked.
    [[nodiscard]] void *fetch()
    {
        ++fetches_;
        return record_.data();
    }
    [[nodiscard]] std::size_t fetches() const { return fetches_; }

    /// The node that a resource node of this host belongs to.
    static Node &of(const kelmora_resource *resource);

private:
    void point_header_here();

    kelmora_resource header_{};
    Record record_;
    Node *next_ = nullptr;
    std::vector<int> missing_;
    std::size_t fetches_ = 0;
};

/// A node whose record is all zeros and large enough to be taken for a record of any type: it stands where there is no
/// record.
Node empty_node(std::string_view id = {});

/// Links nodes into the list of one request and returns its head. as_list: whether the request is for a list. The nodes
/// must not move while the list is in use. There must be at least one.
kelmora_resource *link_request(std::vector<Node> &nodes, bool as_list);

} // namespace kelmora_host

#endif
