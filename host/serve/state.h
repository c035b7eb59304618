#ifndef KELMORA_HOST_SERVE_STATE_H
#define KELMORA_HOST_SERVE_STATE_H

#include "host/gateway/gateway.h"
#include "host/gateway/node.h"
#include "host/gateway/resources.h"

#include <cstddef>
#include <cstdint>
#include <mutex>
#include <optional>
#include <shared_mutex>
#include <string>
#include <string_view>
#include <vector>

namespace kelmora_host {

/// A record, and which change to the resource made it what it is: no two states of a record have the same version.
struct VersionedNode {
    Node node;
    std::uint64_t version;
};

/// The records of a resource at one moment.
struct Records {
    std::vector<Node> nodes;
    std::uint64_t version; ///< of the last change to any of them
};

/// The records of a gateway that many threads read and change at once. All that is handed out are copies. Each resource
/// has locks of its own, which are held no longer than a copy takes.
class State {
public:
    /// beginning: what reset() brings back.
    explicit State(Gateway beginning);
    State(const State &) = delete;
    State &operator=(const State &) = delete;
    ~State() = default;

    [[nodiscard]] Records records(const Resource &resource) const;

    /// The record of an id; nothing when there is none.
    [[nodiscard]] std::optional<VersionedNode> find(const Resource &resource, std::string_view id) const;

    /// The ids of a resource's records, in their order.
    [[nodiscard]] std::vector<std::string> ids(const Resource &resource) const;

    [[nodiscard]] std::size_t count(const Resource &resource) const;

    /// Brings the beginning back, one resource after the other. Waits for the writers of each.
    void reset();

    /// Changes the records of a resource. There is one at a time for each resource, others wait: what it has read stays
    /// as it is until it is gone, while readers go on.
    class Writer;

private:
    struct Shelf {
        mutable std::shared_mutex mutex; ///< of all below
        std::vector<VersionedNode> nodes;
        std::uint64_t version = 0;
        std::mutex writers;
    };

    [[nodiscard]] Shelf &shelf(const Resource &resource)
    {
        return shelves_.at(static_cast<std::size_t>(resource.number));
    }
    [[nodiscard]] const Shelf &shelf(const Resource &resource) const
    {
        return shelves_.at(static_cast<std::size_t>(resource.number));
    }

    void fill(const Resource &resource, Shelf &shelf);

    const Gateway beginning_;
    std::vector<Shelf> shelves_; ///< by the resources' numbers
};

class State::Writer {
public:
    /// Waits for the writer before it, if any.
    Writer(State &state, const Resource &resource);
    Writer(const Writer &) = delete;
    Writer &operator=(const Writer &) = delete;
    ~Writer() = default;

    [[nodiscard]] std::optional<VersionedNode> find(std::string_view id) const;

    /// Puts a record in the place of the one of the same id, which must be there, and returns its version.
    std::uint64_t replace(const Node &node);

    /// Adds a record of a new id behind the others, and returns its version.
    std::uint64_t add(const Node &node);

    /// Removes the record of an id, which must be there.
    void remove(std::string_view id);

private:
    State &state_;
    const Resource &resource_;
    std::unique_lock<std::mutex> lock_;
};

} // namespace kelmora_host

#endif
