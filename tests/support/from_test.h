#ifndef KELMORA_TESTS_SUPPORT_FROM_TEST_H
#define KELMORA_TESTS_SUPPORT_FROM_TEST_H

#include "tests/support/document.h"

#include "host/errors.h"
#include "host/node.h"

#include "kelmora_host.h"

#include <cstdint>
#include <cstring>
#include <functional>
#include <gtest/gtest.h>
#include <limits>
#include <string>
#include <vector>

namespace kelmora_test {

/// A required key, and the error that its absence is reported with.
struct RequiredKey {
    std::string path; ///< nested keys with dots
    std::string field;
    std::string message;
};

/// Calls a from-translator on one node and checks what holds for every call of any: the result and the errors fit
/// together, no JSON value outlives the call, the document is released before an error is reported, and nothing is
/// written behind the record or into the node.
class FromTestBase : public testing::Test {
protected:
    /// What a field holds that nobody has written: no plausible value.
    static constexpr unsigned char stale = 0xA5;

    FromTestBase(kelmora_from_translator from, std::string document, kelmora_host::Record record);

    /// Fills the record with stale bytes.
    void make_stale();

    /// The translator accepts the text, without an error.
    testing::AssertionResult accepts(const std::string &text);

    /// The translator rejects the text with exactly this error.
    testing::AssertionResult rejects(const std::string &text, const std::string &field, const std::string &message,
                                     const std::string &source = "json");

    /// An empty text is accepted and text that does not parse rejected, and neither touches the record.
    void expect_common_contract();

    /// Each key is required, they are asked for in this order, and null counts as present.
    void expect_required_in_order(const std::vector<RequiredKey> &keys);

    /// With each allocation failing in turn, that one alone or all from there on: no crash, nothing leaked, one error
    /// at most, and what is accepted is stored right.
    void expect_survives_failing_memory();

    // The rules of one key. `field` is where the record keeps it.

    /// 1 for JSON true alone; 0 for every other value.
    void expect_boolean(const std::string &path, const std::uint8_t &field);

    /// The integer's low bits; 0 for every other type.
    template <class Integer> void expect_integer(const std::string &path, const Integer &field)
    {
        using Limits = std::numeric_limits<Integer>;
        expect_integer(
            path, [&field] { return static_cast<std::int64_t>(field); }, Limits::min(), Limits::max());
    }

    /// The text, cut to the field's width less one; the rest filled with NULs; empty for every other type.
    template <std::size_t width> void expect_text(const std::string &path, const char (&field)[width])
    {
        expect_text_stored(path, field, width);
    }

    /// Absent: accepted, and the field keeps what it held. Present: stored.
    template <class Field> void expect_optional(const std::string &path, const Field &field)
    {
        make_stale();
        EXPECT_TRUE(accepts(without(document_, path)));
        EXPECT_TRUE(is_stale(&field, sizeof field)) << path << " was stored although the document has none";
        make_stale();
        EXPECT_TRUE(accepts(document_));
        EXPECT_FALSE(is_stale(&field, sizeof field)) << path << " was not stored";
    }

    /// Whether a field still holds its stale bytes.
    template <class Field> [[nodiscard]] static bool untouched(const Field &field)
    {
        return is_stale(&field, sizeof field);
    }

    /// A document that the translator accepts and that has every key it reads.
    const std::string document_;

    kelmora_host::Node node_;

private:
    /// Calls the translator and checks what holds for every call.
    int call(const std::string &text, std::vector<kelmora_host::Error> &errors);

    [[nodiscard]] static bool is_stale(const void *bytes, std::size_t size);

    void expect_integer(const std::string &path, const std::function<std::int64_t()> &stored, std::int64_t least,
                        std::int64_t most);
    void expect_text_stored(const std::string &path, const char *field, std::size_t width);

    kelmora_from_translator from_;
    std::size_t allocations_asked_for_ = 0; ///< by the last call
};

/// The tests of the from-translator of one record type.
template <class Type> class FromTest : public FromTestBase {
protected:
    /// document: one that the translator accepts and that has every key it reads.
    FromTest(kelmora_from_translator from, std::string document)
        : FromTestBase(from, std::move(document), kelmora_host::Record(Guarded{}))
    {
        make_stale();
    }

    Type &record() { return node_.record().template as<Guarded>().record; }

private:
    /// A record, and bytes behind it that nobody may write.
    struct Guarded {
        Type record;
        unsigned char guard[64];
    };
};

} // namespace kelmora_test

#endif
