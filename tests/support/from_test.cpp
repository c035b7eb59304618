#include "tests/support/from_test.h"

#include "tests/support/allocations.h"
#include "tests/support/faults.h"

#include "harness/call.h"
#include "harness/jansson_alone.h"
#include "harness/known_leaks.h"

#include <algorithm>
#include <cstddef>

namespace kelmora_test {

using kelmora_host::Error;

bool FromTestBase::is_poisoned(const void *bytes, std::size_t size)
{
    const auto *first = static_cast<const unsigned char *>(bytes);
    return std::all_of(first, first + size, [](unsigned char byte) { return byte == poison_byte; });
}

int FromTestBase::call(const std::string &text, std::vector<Error> &errors)
{
    return call(text, errors, allocations::chosen());
}

int FromTestBase::call(const std::string &text, std::vector<Error> &errors, kelmora_harness::FailingAllocation memory)
{
    const auto leaks = [&](const kelmora_host::Decoded &answer) {
        if (kelmora_harness::releases_all)
            return false;
        if (answer.result == 1)
            return leaks_document_ || (leaks_document_on_success_ && !text.empty());
        const bool has_document = !answer.errors.empty() && answer.errors.back().message != "invalid json data";
        return leaks_document_ || (leaks_document_on_failure_ && has_document);
    };
    const kelmora_harness::FromAnswer answer = kelmora_harness::call_from(from_, node_, text, leaks, memory);
    expect_none(answer.faults);
    allocations_asked_for_ = answer.allocations;
    fetches_ = answer.fetches;
    errors = answer.errors;
    return answer.result;
}

namespace {

std::string listed(const std::vector<Error> &errors)
{
    std::string list;
    for (const Error &error : errors)
        list += "\n  (\"" + error.field + "\", \"" + error.message + "\", \"" + error.source + "\")";
    return errors.empty() ? " no error" : list;
}

} // namespace

testing::AssertionResult FromTestBase::accepts(const std::string &text)
{
    std::vector<Error> errors;
    if (call(text, errors) == 1 && errors.empty())
        return testing::AssertionSuccess();
    return testing::AssertionFailure() << text << "\nis rejected with" << listed(errors);
}

testing::AssertionResult FromTestBase::accepts_reporting(const std::string &text, const std::vector<Error> &errors)
{
    std::vector<Error> reported;
    const int result = call(text, reported);
    if (result == 1 && reported == errors)
        return testing::AssertionSuccess();
    return testing::AssertionFailure() << text << "\nshould be accepted with" << listed(errors) << "\nbut gives "
                                       << result << " and" << listed(reported);
}

testing::AssertionResult FromTestBase::rejects(const std::string &text, const std::string &field,
                                               const std::string &message, const std::string &source)
{
    std::vector<Error> errors;
    if (call(text, errors) == 0 && errors == std::vector<Error>{{field, message, source}})
        return testing::AssertionSuccess();
    return testing::AssertionFailure() << text << "\nshould be rejected with" << listed({{field, message, source}})
                                       << "\nbut gives" << listed(errors);
}

void FromTestBase::expect_common_contract()
{
    poison();
    const auto expect_untouched = [this, before = image()] {
        EXPECT_EQ(image(), before) << "the record was written";
        EXPECT_EQ(fetches_, fetches_without_document_) << "the record was fetched";
    };
    EXPECT_TRUE(accepts(""));
    expect_untouched();
    for (const char *broken : {"{", "}", "nonsense", " ", "{\"a\": 1,}", "{} {}", "\"text\"", "1", "true", "null",
                               "{\"a\": \"\xC3\x28\"}", "{\"a\": \"\xE2\x82\"}", "[1, 2"}) {
        EXPECT_TRUE(rejects(broken, "", "invalid json data"));
        expect_untouched();
    }
    EXPECT_TRUE(accepts(with(document_, "a key of nobody's", "{\"deep\": [1, null]}")));
    EXPECT_EQ(fetches_, 1U);
}

void FromTestBase::expect_required_in_order(const std::vector<RequiredKey> &keys)
{
    EXPECT_TRUE(accepts(document_));
    std::vector<std::string> this_and_later;
    for (auto key = keys.rbegin(); key != keys.rend(); ++key) {
        this_and_later.push_back(key->path);
        EXPECT_TRUE(rejects(without(document_, key->path), key->field, key->message, key->source));
        EXPECT_TRUE(rejects(without_all(document_, this_and_later), key->field, key->message, key->source));
        EXPECT_TRUE(accepts(with(document_, key->path, "null")));
    }
    const RequiredKey &first = keys.front();
    for (const std::string &text : {std::string("{}"), std::string("[]"), "[" + document_ + "]"})
        EXPECT_TRUE(rejects(text, first.field, first.message, first.source));
}

void FromTestBase::expect_survives_failing_memory()
{
    poison();
    EXPECT_TRUE(accepts(document_));
    const std::string complete = image();

    for (const Failing failing : {Failing::once, Failing::from_then_on}) {
        for (std::size_t n = 1;; ++n) {
            poison();
            std::vector<Error> errors;
            const int result = call(document_, errors, {n, failing});
            const bool reached = allocations_asked_for_ >= n;
            if (result == 1 && image() != complete)
                expect_explained(complete, {n, failing});
            EXPECT_LE(errors.size(), 1U);
            if (!reached) {
                EXPECT_EQ(result, 1);
                EXPECT_GT(n, 1U) << "no allocation failed";
                break;
            }
        }
    }
}

void FromTestBase::expect_explained(const std::string &complete, kelmora_harness::FailingAllocation memory)
{
    const std::string stored = image();
    const std::string which = " with allocation " + std::to_string(memory.number) + " failing";
    const kelmora_harness::Parsed parsed = kelmora_harness::parse_alone(document_, memory);
    if (memory.number > parsed.allocations) {
        EXPECT_TRUE(kelmora_harness::damaged_images(document_, complete, memory.failing).contains(stored))
            << "accepted, but not as it stands," << which;
        return;
    }
    ASSERT_TRUE(parsed.text) << "accepted although jansson parses nothing" << which;
    poison();
    EXPECT_TRUE(accepts(*parsed.text));
    EXPECT_EQ(image(), stored) << "accepted, but not as jansson parses it" << which;
}

void FromTestBase::expect_boolean(const std::string &path, const std::uint8_t &field)
{
    for (const auto &[json, expected] : std::vector<std::pair<std::string, int>>{
             {"true", 1}, {"false", 0}, {"1", 0}, {"1.0", 0}, {"\"true\"", 0}, {"null", 0}, {"{}", 0}, {"[true]", 0}}) {
        poison();
        EXPECT_TRUE(accepts(with(document_, path, json)));
        EXPECT_EQ(field, expected) << path << ": " << json;
    }
}

void FromTestBase::expect_integer(const std::string &path, const std::function<std::int64_t()> &stored,
                                  std::int64_t least, std::int64_t most)
{
    const std::int64_t modulus = most - least + 1; // the first number of another width
    const std::int64_t all_ones = least < 0 ? -1 : most;
    std::vector<std::pair<std::string, std::int64_t>> cases = {
        {"0", 0},
        {"1", 1},
        {std::to_string(least), least},
        {std::to_string(most), most},
        {"-1", all_ones},
        {std::to_string(modulus + 5), 5},
        {std::to_string(5 - modulus), 5},
        {"9223372036854775807", all_ones},
        {"-9223372036854775808", 0},
    };
    for (const char *other : {"1.0", "2.5", "\"7\"", "true", "false", "null", "{}", "[7]"})
        cases.emplace_back(other, 0);
    for (const auto &[json, expected] : cases) {
        poison();
        EXPECT_TRUE(accepts(with(document_, path, json)));
        EXPECT_EQ(stored(), expected) << path << ": " << json;
    }
}

void FromTestBase::expect_string_stored(const std::string &path, const char *field, std::size_t width)
{
    for (const std::size_t length :
         {std::size_t{0}, std::size_t{1}, width - 2, width - 1, width, width + 1, std::size_t{65536}}) {
        const std::string text = quoted(length);
        poison();
        EXPECT_TRUE(accepts(with(document_, path, text)));
        std::string expected = text.substr(1, std::min(length, width - 1));
        expected.resize(width, '\0');
        EXPECT_EQ(std::string(field, width), expected) << path << " with " << length << " characters";
    }
    for (const char *other : {"1", "1.5", "true", "false", "null", "{}", "[\"text\"]"}) {
        poison();
        EXPECT_TRUE(accepts(with(document_, path, other)));
        EXPECT_EQ(std::string(field, width), std::string(width, '\0')) << path << ": " << other;
    }
}

} // namespace kelmora_test
