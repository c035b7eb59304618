#include "host/node.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <utility>

namespace kelmora_host {

namespace {

// What this host keeps in the private part of a node.
constexpr std::size_t record_slot = 0;
constexpr std::size_t next_slot = 1;
static_assert(KELMORA_HOST_PRIVATE_POINTERS > next_slot);

} // namespace

Node::Node(std::string_view id, Record record) : record_(std::move(record))
{
    id.copy(header_.id, sizeof header_.id - 1);
    point_at_record();
}

Node::Node(const Node &other) : header_(other.header_), record_(other.record_) { point_at_record(); }

Node::Node(Node &&other) noexcept : header_(other.header_), record_(std::move(other.record_)) { point_at_record(); }

Node &Node::operator=(Node other) noexcept
{
    header_ = other.header_;
    record_ = std::move(other.record_);
    point_at_record();
    return *this;
}

void Node::point_at_record()
{
    header_.host_private[record_slot] = record_.data();
    link(nullptr);
}

void Node::link(Node *next) { header_.host_private[next_slot] = next != nullptr ? next->resource() : nullptr; }

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

void *kelmora_resource_get_data(kelmora_resource *node) { return node->host_private[kelmora_host::record_slot]; }

kelmora_resource *kelmora_resource_get_next(kelmora_resource *node)
{
    return static_cast<kelmora_resource *>(node->host_private[kelmora_host::next_slot]);
}
