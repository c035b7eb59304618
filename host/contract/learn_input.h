#ifndef KELMORA_HOST_CONTRACT_LEARN_INPUT_H
#define KELMORA_HOST_CONTRACT_LEARN_INPUT_H

#include "host/contract/contract.h"

namespace kelmora_host {

/// What a from-translator takes; the resource must take JSON.
[[nodiscard]] Input learn_input(const Resource &resource, const Registration &translators);

} // namespace kelmora_host

#endif
