#ifndef KELMORA_HOST_CONTRACT_KEYS_H
#define KELMORA_HOST_CONTRACT_KEYS_H

#include "host/gateway/node.h"
#include "host/gateway/resources.h"
#include "host/plugin/registry.h"

#include <set>
#include <string>
#include <string_view>

namespace kelmora_host {

/// The keys that a resource knows, as JSON Pointers in which "*" is any element of a list: "/lan_list/*/lan_id".
struct KnownKeys {
    std::set<std::string> taken; ///< those that the from-translator looks for, if only in some documents
    std::set<std::string> shown; ///< those that the to-translator gives a record, or some record
};

/// Finds a resource's keys out by asking the plug-in: the from-translator by giving it whatever it looks for, the
/// to-translator by letting it write the node, and records of many contents. The process must have
/// host/plugin/interpose.cpp.
[[nodiscard]] KnownKeys known_keys(const Resource &resource, const Registration &translators, const Node &node);

} // namespace kelmora_host

#endif
