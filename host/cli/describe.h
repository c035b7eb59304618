#ifndef KELMORA_HOST_CLI_DESCRIBE_H
#define KELMORA_HOST_CLI_DESCRIBE_H

#include "host/cli/style.h"
#include "host/contract/contract.h"

#include <string>
#include <string_view>
#include <vector>

namespace kelmora_host {

/// A contract for a terminal: a table for each direction, a line or more a key, each with its end. Names of keys, types
/// and errors stand within 80 columns unless they are longer themselves.
[[nodiscard]] std::string contract_as_tables(const Contract &contract, const Style &style);

/// The keys of this name in all contracts, or where none is called so those that have it in their name: a line each
/// with its end. Empty when there are none.
[[nodiscard]] std::string find_key(const std::vector<Contract> &contracts, std::string_view name, const Style &style);

} // namespace kelmora_host

#endif
