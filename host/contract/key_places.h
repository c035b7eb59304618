#ifndef KELMORA_HOST_CONTRACT_KEY_PLACES_H
#define KELMORA_HOST_CONTRACT_KEY_PLACES_H

#include "host/contract/contract.h"

#include <string>
#include <string_view>
#include <vector>

namespace kelmora_host {

/// A key of this name somewhere, in one direction of a resource.
struct KeyPlace {
    const Contract *contract;
    std::string_view direction;
    std::string path;
    std::string type;
    std::string range;
    std::string_view meaning;
};

/// The keys of this name in all contracts, or where none is called so those that have it in their name: all keys where
/// it is empty. They refer to the contracts.
[[nodiscard]] std::vector<KeyPlace> key_places(const std::vector<Contract> &contracts, std::string_view name);

/// The same as a JSON array of objects, with its end; empty when there are none.
[[nodiscard]] std::string key_places_as_json(const std::vector<Contract> &contracts, std::string_view name);

} // namespace kelmora_host

#endif
