#ifndef KELMORA_TESTS_SUPPORT_FROM_TEST_H
#define KELMORA_TESTS_SUPPORT_FROM_TEST_H

#include "tests/support/document.h"

#include "harness/ledger.h"
#include "harness/poison.h"
#include "host/gateway/node.h"
#include "host/plugin/errors.h"

#include "kelmora_host.h"

#include <cstdint>
#include <cstring>
#include <functional>
#include <gtest/gtest.h>
#include <limits>
#include <string>
#include <vector>

namespace kelmora_test {

using kelmora_harness::Image;

/// A required key, and the error that its absence is reported with.
struct RequiredKey {
    std::string path; ///< nested keys with dots
    std::string field;
    std::string message;
    std::string source = "json";
};

/// Calls a from-translator on one node, with the checks of harness/call.h. What the translator lets go of is freed, as
/// a host must.
class FromTestBase : public testing::Test {
protected:
    /// What a field holds that nobody has written: no plausible value.
    static constexpr unsigned char poison_byte = kelmora_harness::poison;

    FromTestBase(kelmora_from_translator from, std::string document, kelmora_host::Record record)
        : document_(std::move(document)), node_("node under test", std::move(record)), from_(from)
    {
    }

    /// Fills the record with poison; its chains and texts are freed, and empty.
    virtual void poison() = 0;

    /// The record's bytes and those of all that hangs on it, without the pointers between them.
    virtual std::string image() = 0;

    /// The translator accepts the text, without an error.
    testing::AssertionResult accepts(const std::string &text);

    /// The translator accepts the text although it reports these errors.
    testing::AssertionResult accepts_reporting(const std::string &text, const std::vector<kelmora_host::Error> &errors);

    /// The translator rejects the text with exactly this error.
    testing::AssertionResult rejects(const std::string &text, const std::string &field, const std::string &message,
                                     const std::string &source = "json");

    /// An empty text is accepted and text that does not parse rejected, and neither touches the record.
    void expect_common_contract();

    /// Each key is required, they are asked for in this order, and null counts as present.
    void expect_required_in_order(const std::vector<RequiredKey> &keys);

    /// With each allocation failing in turn, that one alone or all from there on: no crash, nothing leaked, one error
    /// at most, and what is accepted is stored right; where jansson alone parses another document then, what is stored
    /// is that one's.
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
    template <std::size_t width> void expect_string(const std::string &path, const char (&field)[width])
    {
        expect_string_stored(path, field, width);
    }

    /// Absent: accepted, and the field keeps what it held. Present: stored.
    template <class Field> void expect_optional(const std::string &path, const Field &field)
    {
        poison();
        EXPECT_TRUE(accepts(without(document_, path)));
        EXPECT_TRUE(is_poisoned(&field, sizeof field)) << path << " was stored although the document has none";
        poison();
        EXPECT_TRUE(accepts(document_));
        EXPECT_FALSE(is_poisoned(&field, sizeof field)) << path << " was not stored";
    }

    /// Whether a field still holds its poison.
    template <class Field> [[nodiscard]] static bool untouched(const Field &field)
    {
        return is_poisoned(&field, sizeof field);
    }

    /// A document that the translator accepts and that has every key it reads.
    const std::string document_;

    // Whether the contract makes the next calls leave their document unreleased: all of them, those that succeed, or
    // those that fail (a text that does not parse makes no document).
    bool leaks_document_ = false;
    bool leaks_document_on_success_ = false;
    bool leaks_document_on_failure_ = false;

    /// How often the last call fetched the record, and how often calls without a document may.
    std::size_t fetches_ = 0;
    std::size_t fetches_without_document_ = 0;

    kelmora_host::Node node_;

private:
    /// Calls the translator, with the allocation failing that a test chose, and checks what holds for every call.
    int call(const std::string &text, std::vector<kelmora_host::Error> &errors);
    int call(const std::string &text, std::vector<kelmora_host::Error> &errors,
             kelmora_harness::FailingAllocation memory);

    /// What was stored of the document is not what stands there: jansson alone must have made it so.
    void expect_explained(const std::string &complete, kelmora_harness::FailingAllocation memory);

    [[nodiscard]] static bool is_poisoned(const void *bytes, std::size_t size);

    void expect_integer(const std::string &path, const std::function<std::int64_t()> &stored, std::int64_t least,
                        std::int64_t most);
    void expect_string_stored(const std::string &path, const char *field, std::size_t width);

    kelmora_from_translator from_;
    std::size_t allocations_asked_for_ = 0; ///< by the last call
};

/// The tests of the from-translator of one record type.
template <class Type> class FromTest : public FromTestBase {
protected:
    /// document: one that the translator accepts and that has every key it reads.
    FromTest(kelmora_from_translator from, std::string document)
        : FromTestBase(from, std::move(document), kelmora_harness::filled_record<Type>(poison_byte))
    {
    }

    ~FromTest() override { free_what_it_owns(); }

    Type &record() { return node_.record().template as<Guarded>().record; }

    void poison() override
    {
        free_what_it_owns();
        kelmora_harness::fill_bytes(record(), poison_byte);
    }

    std::string image() override { return kelmora_harness::image_of(record()); }

private:
    using Guarded = kelmora_harness::Guarded<Type>;

    void free_what_it_owns()
    {
        kelmora_host::Free free;
        kelmora_host::Owned<Type>::visit(record(), free);
    }
};

} // namespace kelmora_test

#endif
