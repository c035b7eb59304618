#ifndef KELMORA_HOST_CONTRACT_TYPESCRIPT_H
#define KELMORA_HOST_CONTRACT_TYPESCRIPT_H

#include "host/contract/contract.h"

#include <string>
#include <vector>

namespace kelmora_host {

/// TypeScript declarations of the documents of all these resources: RadioOutput and RadioInput for "radio", with a
/// comment for each key, and an interface Resources that has them by the resources' names. They pass `tsc --strict`.
[[nodiscard]] std::string typescript(const std::vector<Contract> &contracts);

} // namespace kelmora_host

#endif
