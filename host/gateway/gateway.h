#ifndef KELMORA_HOST_GATEWAY_GATEWAY_H
#define KELMORA_HOST_GATEWAY_GATEWAY_H

#include "host/gateway/node.h"

#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace kelmora_host {

/// A gateway's whole configuration and state, in memory: the nodes of each resource.
class Gateway {
public:
    /// The nodes of a resource, in order; none for a resource that this gateway does not have.
    [[nodiscard]] const std::vector<Node> &nodes(std::string_view resource) const;

    /// The same, to change them.
    [[nodiscard]] std::vector<Node> &nodes(std::string_view resource)
    {
        return nodes_.try_emplace(std::string(resource)).first->second;
    }

    /// Adds a node. Its chains and texts, from malloc, become the gateway's.
    template <class T> void add(std::string_view resource, std::string_view id, const T &record)
    {
        nodes(resource).emplace_back(id, Record(record));
    }

private:
    std::map<std::string, std::vector<Node>, std::less<>> nodes_;
};

/// A plausible household: the same records at every call.
Gateway sample_gateway();

} // namespace kelmora_host

#endif
