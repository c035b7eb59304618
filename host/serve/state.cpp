#include "host/serve/state.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace kelmora_host {

namespace {

template <class Nodes> auto find_in(Nodes &nodes, std::string_view id)
{
    return std::ranges::find(nodes, id, [](const VersionedNode &each) { return each.node.id(); });
}

} // namespace

State::State(Gateway beginning) : beginning_(std::move(beginning)), shelves_(resources().size())
{
    for (const Resource &resource : resources())
        fill(resource, shelf(resource));
}

Records State::records(const Resource &resource) const
{
    const Shelf &shelf = this->shelf(resource);
    const std::shared_lock lock(shelf.mutex);
    Records records{{}, shelf.version};
    records.nodes.reserve(shelf.nodes.size());
    std::ranges::transform(shelf.nodes, std::back_inserter(records.nodes), &VersionedNode::node);
    return records;
}

std::optional<VersionedNode> State::find(const Resource &resource, std::string_view id) const
{
    const Shelf &shelf = this->shelf(resource);
    const std::shared_lock lock(shelf.mutex);
    const auto found = find_in(shelf.nodes, id);
    if (found == shelf.nodes.end())
        return std::nullopt;
    return *found;
}

std::vector<std::string> State::ids(const Resource &resource) const
{
    const Shelf &shelf = this->shelf(resource);
    const std::shared_lock lock(shelf.mutex);
    std::vector<std::string> ids;
    std::ranges::transform(shelf.nodes, std::back_inserter(ids),
                           [](const VersionedNode &each) { return std::string(each.node.id()); });
    return ids;
}

std::size_t State::count(const Resource &resource) const
{
    const Shelf &shelf = this->shelf(resource);
    const std::shared_lock lock(shelf.mutex);
    return shelf.nodes.size();
}

void State::reset()
{
    for (const Resource &resource : resources()) {
        Shelf &shelf = this->shelf(resource);
        const std::scoped_lock writers(shelf.writers);
        const std::scoped_lock lock(shelf.mutex);
        fill(resource, shelf);
    }
}

void State::fill(const Resource &resource, Shelf &shelf)
{
    ++shelf.version;
    shelf.nodes.clear();
    for (const Node &node : beginning_.nodes(resource.name))
        shelf.nodes.push_back({node, shelf.version});
}

State::Writer::Writer(State &state, const Resource &resource)
    : state_(state), resource_(resource), lock_(state.shelf(resource).writers)
{
}

std::optional<VersionedNode> State::Writer::find(std::string_view id) const { return state_.find(resource_, id); }

std::uint64_t State::Writer::replace(const Node &node)
{
    Node copy = node; // made while readers may still read
    Shelf &shelf = state_.shelf(resource_);
    const std::scoped_lock lock(shelf.mutex);
    const auto found = find_in(shelf.nodes, copy.id());
    std::swap(found->node, copy);
    ++shelf.version;
    return found->version = shelf.version;
}

std::uint64_t State::Writer::add(const Node &node)
{
    Shelf &shelf = state_.shelf(resource_);
    const std::scoped_lock lock(shelf.mutex);
    ++shelf.version;
    shelf.nodes.push_back({node, shelf.version});
    return shelf.version;
}

void State::Writer::remove(std::string_view id)
{
    Shelf &shelf = state_.shelf(resource_);
    const std::scoped_lock lock(shelf.mutex);
    shelf.nodes.erase(find_in(shelf.nodes, id));
    ++shelf.version;
}

} // namespace kelmora_host
