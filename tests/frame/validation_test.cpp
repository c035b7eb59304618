#include "frame/validation.h"
#include "harness/watch.h"

#include "tests/support/allocations.h"

#include "host/plugin/errors.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <map>
#include <string>

namespace kelmora::validation_test {

namespace {

using kelmora_host::Error;
using testing::ElementsAre;
using testing::IsEmpty;
namespace allocations = kelmora_test::allocations;

/// A document of one member of each kind, and the checks on it. Each check runs on a document with one reference more
/// than the check may release.
class Validate : public testing::Test {
protected:
    Validate()
        : document_(json_loads(R"({"string": "s", "integer": 1, "real": 1.0, "true": true, "false": false,
                                   "null": null, "array": [], "object": {}})",
                               0, nullptr))
    {
    }
    ~Validate() override { json_decref(document_); }

    const kelmora_harness::WatchErrors watch_{
        [this](const kelmora_errorlist & /*errors*/) { released_before_the_error_ = document_->refcount == 1; }};

    using SingleCheck = int (*)(json_t *, const json_t *, const char *, kelmora_errorlist *);

    /// One of the single checks on a member.
    int check(SingleCheck single, const char *member)
    {
        return checked([=, this](const json_t *value) { return single(document_, value, "the field", &errors_); },
                       member);
    }

    /// kelmora_json_validate with this code on a member.
    int check(int code, const char *member)
    {
        return checked(
            [=, this](const json_t *value) {
                return kelmora_json_validate(document_, value, "the field", code, &errors_);
            },
            member);
    }

    template <class Run> int checked(Run run, const char *member)
    {
        errors_.errors.clear();
        released_before_the_error_ = false;
        json_incref(document_);
        const int result = run(json_object_get(document_, member));
        if (result == 1) {
            EXPECT_EQ(document_->refcount, 2U) << "released although the check passed";
            EXPECT_THAT(errors_.errors, IsEmpty());
            json_decref(document_);
        } else {
            EXPECT_EQ(result, 0);
            EXPECT_EQ(document_->refcount, 1U) << "not released exactly once";
            EXPECT_TRUE(released_before_the_error_);
        }
        return result;
    }

    json_t *document_;
    kelmora_errorlist errors_;
    bool released_before_the_error_ = false;
};

constexpr const char *members[] = {"string", "integer", "real", "true", "false", "null", "array", "object", "missing"};

TEST_F(Validate, FieldAsksForPresenceAlone)
{
    for (const char *member : {"string", "integer", "real", "true", "false", "null", "array", "object"})
        EXPECT_EQ(check(kelmora_json_validate_field, member), 1) << member;
    EXPECT_EQ(check(kelmora_json_validate_field, "missing"), 0);
    EXPECT_THAT(errors_.errors, ElementsAre(Error{"the field", "field not found", "json"}));
}

TEST_F(Validate, EachTypeCheckTakesItsTypeAlone)
{
    struct Check {
        SingleCheck single;
        std::vector<std::string> accepted;
        std::string message;
    };
    const Check checks[] = {
        {kelmora_json_validate_string_type, {"string"}, "data type must be a valid string"},
        {kelmora_json_validate_integer_type, {"integer"}, "data type must be a valid integer"},
        {kelmora_json_validate_boolean_type, {"true", "false"}, "data type must be a valid boolean"},
        {kelmora_json_validate_array_type, {"array"}, "data type must be a valid array"},
    };
    for (const Check &type : checks) {
        for (const char *member : members) {
            const bool accepted = testing::Matches(testing::Contains(member))(type.accepted);
            EXPECT_EQ(check(type.single, member), accepted ? 1 : 0) << type.message << ": " << member;
            if (!accepted) {
                EXPECT_THAT(errors_.errors, ElementsAre(Error{"the field", type.message, "json"})) << member;
            }
        }
    }
}

TEST_F(Validate, ChecksPresenceThenTheTypeOfTheCode)
{
    const std::map<int, std::pair<std::vector<std::string>, std::string>> codes = {
        {0, {{"string"}, "data type must be a valid string"}},
        {1, {{"integer"}, "data type must be a valid integer"}},
        {2, {{"true", "false"}, "data type must be a valid boolean"}},
        {3, {{"array"}, "data type must be a valid array"}},
    };
    for (const auto &[code, expected] : codes) {
        for (const char *member : members) {
            const bool accepted = testing::Matches(testing::Contains(member))(expected.first);
            EXPECT_EQ(check(code, member), accepted ? 1 : 0) << code << ": " << member;
            const std::string message = member == std::string("missing") ? "field not found" : expected.second;
            if (!accepted) {
                EXPECT_THAT(errors_.errors, ElementsAre(Error{"the field", message, "json"})) << code << ": " << member;
            }
        }
    }
}

TEST_F(Validate, AcceptsAnyPresentValueForOtherCodes)
{
    for (const int code : {4, 7, -1, 2147483647, -2147483647 - 1}) {
        for (const char *member : members) {
            const bool missing = member == std::string("missing");
            EXPECT_EQ(check(code, member), missing ? 0 : 1) << code << ": " << member;
        }
        EXPECT_THAT(errors_.errors, ElementsAre(Error{"the field", "field not found", "json"}));
    }
}

TEST_F(Validate, TakesARootOfNull)
{
    EXPECT_EQ(kelmora_json_validate_field(nullptr, nullptr, "f", &errors_), 0);
    EXPECT_EQ(kelmora_json_validate_string_type(nullptr, nullptr, "f", &errors_), 0);
    EXPECT_EQ(kelmora_json_validate(nullptr, nullptr, "f", 0, &errors_), 0);
    EXPECT_THAT(errors_.errors, ElementsAre(Error{"f", "field not found", "json"},
                                            Error{"f", "data type must be a valid string", "json"},
                                            Error{"f", "field not found", "json"}));
}

TEST(ValidateDocument, FreesTheLastReference)
{
    const std::size_t alive = allocations::json_alive();
    kelmora_errorlist errors;
    json_t *document = json_loads(R"({"a": [1, 2, 3]})", 0, nullptr);
    EXPECT_EQ(kelmora_json_validate(document, nullptr, "b", 0, &errors), 0);
    EXPECT_EQ(allocations::json_alive(), alive);
}

} // namespace

} // namespace kelmora::validation_test
