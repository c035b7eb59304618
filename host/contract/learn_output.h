#ifndef KELMORA_HOST_CONTRACT_LEARN_OUTPUT_H
#define KELMORA_HOST_CONTRACT_LEARN_OUTPUT_H

#include "host/contract/contract.h"

namespace kelmora_host {

/// What a to-translator writes; the resource must write JSON.
[[nodiscard]] Output learn_output(const Resource &resource, const Registration &translators);

/// What the root of its text is alone.
[[nodiscard]] RootShape learn_root(const Resource &resource, const Registration &translators);

} // namespace kelmora_host

#endif
