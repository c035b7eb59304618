#ifndef KELMORA_TESTS_SUPPORT_TO_TEST_H
#define KELMORA_TESTS_SUPPORT_TO_TEST_H

#include "harness/call.h"
#include "host/gateway/node.h"

#include "kelmora_host.h"

#include <cstdint>
#include <cstring>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace kelmora_test {

/// Calls a to-translator on a list of nodes, with the checks of harness/call.h.
class ToTestBase : public testing::Test {
protected:
    explicit ToTestBase(kelmora_to_translator to) : to_(to) {}

    /// The text of a request for a list of all nodes.
    std::string list() { return text(true); }

    /// The text of a request for a single record.
    std::string object() { return text(false); }

    /// The text of a request whose head gives another count than there are nodes.
    std::string list_counting(std::uint32_t count) { return text(true, count); }
    std::string object_counting(std::uint32_t count) { return text(false, count); }

    /// With each allocation failing in turn, that one alone or all from there on: the right text and 1, or the empty
    /// document of the same root and 0; or a text that jansson alone renders as wrongly.
    void expect_survives_failing_memory();

    std::vector<kelmora_host::Node> nodes_;

    // What the last call asked for.
    std::size_t allocations_ = 0;
    std::size_t reallocations_ = 0; ///< that enlarged the buffer

private:
    std::string text(bool as_list, std::optional<std::uint32_t> count = std::nullopt);

    kelmora_harness::ToAnswer call(const kelmora_harness::ToRequest &request);

    kelmora_to_translator to_;
};

/// The tests of the to-translator of one record type.
template <class Type> class ToTest : public ToTestBase {
protected:
    using ToTestBase::ToTestBase;

    /// Adds a node and returns its record, a copy of `record`.
    Type &add(std::string_view id, const Type &record = {})
    {
        return nodes_.emplace_back(id, kelmora_host::Record(record)).record().template as<Type>();
    }

    /// Each switch is written from its own field, and as true for any value but 0. The keys must occur once each.
    void expect_switches(const std::vector<std::pair<std::string, std::uint8_t Type::*>> &switches)
    {
        for (const auto &[key, field] : switches) {
            nodes_.clear();
            add("").*field = 128;
            const std::string text = object();
            for (const auto &[other, ignored] : switches) {
                const std::string expected = '"' + other + (other == key ? "\": true" : "\": false");
                EXPECT_THAT(text, testing::HasSubstr(expected)) << "with " << key << " alone";
            }
        }
    }
};

/// Fills a text field to its last byte, so that no NUL is left.
template <std::size_t width> void fill_whole(char (&field)[width], char character)
{
    std::memset(field, character, width);
}

/// Sets a text field; `text` must fit with its NUL.
template <std::size_t width> void set(char (&field)[width], std::string_view text)
{
    ASSERT_LT(text.size(), width);
    std::memset(field, 0, width);
    text.copy(field, width - 1);
}

} // namespace kelmora_test

#endif
