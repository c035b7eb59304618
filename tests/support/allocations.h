#ifndef KELMORA_TESTS_SUPPORT_ALLOCATIONS_H
#define KELMORA_TESTS_SUPPORT_ALLOCATIONS_H

#include "harness/ledger.h"

namespace kelmora_test {

using kelmora_harness::Failing;

/// The memory of the code under test: jansson's blocks and the library's.
namespace allocations = kelmora_harness::ledger;

} // namespace kelmora_test

#endif
