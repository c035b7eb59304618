#ifndef KELMORA_HOST_CONTRACT_LEARNED_H
#define KELMORA_HOST_CONTRACT_LEARNED_H

#include "host/contract/contract.h"

#include <vector>

namespace kelmora_host {

// Contracts that are learned at the first question about a pair of translators, and kept while the process lives. For
// all threads: who asks meanwhile waits.

/// What learn() says.
[[nodiscard]] const Contract &learned(const Resource &resource, const Registration &translators);

/// Its input alone; the resource must take JSON.
[[nodiscard]] const Input &learned_input(const Resource &resource, const Registration &translators);

/// Those of all resources in Registry::instance(), by number.
[[nodiscard]] std::vector<Contract> learned_contracts();

} // namespace kelmora_host

#endif
