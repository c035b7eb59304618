#ifndef KELMORA_HOST_CONTRACT_LEARN_INPUT_H
#define KELMORA_HOST_CONTRACT_LEARN_INPUT_H

#include "host/contract/contract.h"

#include <set>
#include <string>

namespace kelmora_host {

/// What a from-translator takes; the resource must take JSON.
[[nodiscard]] Input learn_input(const Resource &resource, const Registration &translators);

/// The paths of its keys alone, for those who need no more: in a small part of the time.
[[nodiscard]] std::set<std::string> learn_input_paths(const Resource &resource, const Registration &translators);

} // namespace kelmora_host

#endif
