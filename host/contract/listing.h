#ifndef KELMORA_HOST_CONTRACT_LISTING_H
#define KELMORA_HOST_CONTRACT_LISTING_H

#include "host/contract/contract.h"
#include "host/json.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kelmora_host {

// The list of the resources.

/// "both", "read-only", "write-only".
[[nodiscard]] std::string_view words_of(Directions directions);

/// The resources of a group, or of all of them when it is empty, whose translators are registered.
[[nodiscard]] std::vector<Resource> registered(std::string_view group);

/// "no resource "raido"; similar: radio": of a name that no resource has.
[[nodiscard]] std::string no_such_resource(std::string_view name);

/// Of what it writes; nothing where that is no JSON.
[[nodiscard]] std::optional<RootShape> root_of(const Resource &resource, const Registration &translators);

/// What the document that a resource writes, or else takes, is: "list or object", "8 raw bytes". root: of the document
/// that it writes.
[[nodiscard]] std::string_view shape_of(const Resource &resource, const std::optional<RootShape> &root);

/// The registered resources of a group, or of all of them when it is empty, as a JSON array of objects. records: how
/// many records there are of a resource, where that is told as well; may be empty.
[[nodiscard]] std::string list_as_json(std::string_view group,
                                       const std::function<std::size_t(const Resource &)> &records = nullptr);

} // namespace kelmora_host

#endif
