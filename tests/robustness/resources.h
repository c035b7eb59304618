#ifndef KELMORA_TESTS_ROBUSTNESS_RESOURCES_H
#define KELMORA_TESTS_ROBUSTNESS_RESOURCES_H

#include "tests/support/allocations.h"

#include "harness/address_sanitizer.h"
#include "harness/poison.h"
#include "host/gateway/node.h"
#include "host/gateway/resources.h"
#include "host/plugin/errors.h"

#include <cstddef>
#include <functional>
#include <gtest/gtest.h>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

namespace kelmora_host {

/// How a test that goes through the resources names one in its messages.
inline void PrintTo(const Resource &resource, std::ostream *out) { *out << resource.name; }

} // namespace kelmora_host

namespace kelmora_test {

using kelmora_host::Resource;
using Nodes = std::vector<kelmora_host::Node>;
using kelmora_harness::FailingAllocation;
using kelmora_harness::fill;

/// Whether AddressSanitizer watches each access.
#ifdef KELMORA_ADDRESS_SANITIZER
inline constexpr bool address_sanitizer = true;
#else
inline constexpr bool address_sanitizer = false;
#endif

/// Whether the program runs much slower than it does on the developer's machine: with a sanitizer, or emulated.
#ifdef __mips__
inline constexpr bool slow = true;
#else
inline constexpr bool slow = address_sanitizer;
#endif

/// The resources whose to-translator writes JSON, and those whose from-translator reads it.
[[nodiscard]] std::vector<Resource> written_resources();
[[nodiscard]] std::vector<Resource> read_resources();

/// The name of a test with a resource for its parameter.
[[nodiscard]] std::string test_name(const testing::TestParamInfo<Resource> &info);

/// The resource's nodes in the sample gateway.
[[nodiscard]] Nodes samples_of(const Resource &resource);

/// The resource's document in examples/.
[[nodiscard]] std::string example_of(const Resource &resource);

/// What a to-translator answered.
struct Written {
    int result;
    std::string text;
    std::size_t allocations;      ///< that it asked for, reallocations included
    std::size_t reallocations;    ///< of the buffer, among them
    std::size_t reallocated_size; ///< what the last of those asked for
};

/// Calls the resource's to-translator, with the checks of harness/call.h.
Written write_out(const Resource &resource, Nodes &nodes, bool as_list, FailingAllocation memory = {});

/// What a from-translator answered, and what the record then held.
struct Answer {
    int result;
    std::vector<kelmora_host::Error> errors;
    std::string image; ///< the record's bytes and those of all that hangs on it, without the pointers between them
    std::size_t allocations;

    /// The same for the host.
    bool operator==(const Answer &other) const
    {
        return result == other.result && errors == other.errors && image == other.image;
    }
};

/// Calls the resource's from-translator on a new poisoned record, with the checks of harness/call.h, and checks that no
/// memory outlives the node but documents that leak by contract.
/// look: called with the node while it is there.
Answer read_in(const Resource &resource, const std::string &text, FailingAllocation memory = {},
               const std::function<void(Nodes &)> &look = nullptr);

} // namespace kelmora_test

#endif
