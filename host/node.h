#ifndef KELMORA_HOST_NODE_H
#define KELMORA_HOST_NODE_H

#include "host/record.h"

#include "kelmora_host.h"

#include <string_view>
#include <vector>

namespace kelmora_host {

/// A record with its resource node, as the host keeps it. Copies are deep and linked to nothing.
class Node {
public:
    /// id: cut to 128 bytes.
    Node(std::string_view id, Record record);
    Node(const Node &other);
    Node(Node &&other) noexcept;
    Node &operator=(Node other) noexcept;
    ~Node() = default;

    [[nodiscard]] std::string_view id() const { return header_.id; }
    [[nodiscard]] Record &record() { return record_; }

    /// What the plug-in sees of it.
    [[nodiscard]] kelmora_resource *resource() { return &header_; }

    /// Hangs another node (or none) behind this one.
    void link(Node *next);

private:
    void point_at_record();

    kelmora_resource header_{};
    Record record_;
};

/// A node whose record is all zeros and large enough to be taken for a record of any type: it stands where there is no
/// record.
Node empty_node(std::string_view id = {});

/// Links nodes into the list of one request and returns its head. as_list: whether the request is for a list. The nodes
/// must not move while the list is in use. There must be at least one.
kelmora_resource *link_request(std::vector<Node> &nodes, bool as_list);

} // namespace kelmora_host

#endif
