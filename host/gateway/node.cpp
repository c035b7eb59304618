#include "host/gateway/node.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <utility>

namespace kelmora_host {

static_assert(KELMORA_HOST_PRIVATE_POINTERS > 0, "this host keeps a pointer to its own node in each resource node");

Node::Node(std::string_view id, Record record) : record_(std::move(record))
{
    id.copy(header_.id, longest_id);
    point_header_here();
}

Node::Node(const Node &other) : header_(other.header_), record_(other.record_) { point_header_here(); }

Node::Node(Node &&other) noexcept : header_(other.header_), record_(std::move(other.record_)) { point_header_here(); }

Node &Node::operator=(Node other) noexcept
{
    header_ = other.header_;
    record_ = std::move(other.record_);
    next_ = nullptr;
    missing_.clear();
    fetches_ = 0;
    point_header_here();
    return *this;
}

void Node::point_header_here() { header_.host_private[0] = this; }

Node &Node::of(const kelmora_resource *resource) { return *static_cast<Node *>(resource->host_private[0]); }

Node empty_node(std::string_view id)
{
    static constexpr std::array<std::byte, 65536> zeros{};
    return {id, Record(zeros)};
}

kelmora_resource *link_request(std::vector<Node> &nodes, bool as_list)
{
    for (std::size_t i = 0; i < nodes.size(); ++i)
        nodes[i].link(i + 1 < nodes.size() ? &nodes[i + 1] : nullptr);
    kelmora_resource *head = nodes.front().resource();
    head->count = static_cast<std::uint32_t>(nodes.size());
    head->is_list = as_list ? 1 : 0;
    return head;
}

} // namespace kelmora_host

using kelmora_host::Node;

void *kelmora_resource_get_data(kelmora_resource *node) { return Node::of(node).fetch(); }

kelmora_resource *kelmora_resource_get_next(kelmora_resource *node)
{
    Node *next = Node::of(node).next();
    return next != nullptr ? next->resource() : nullptr;
}
