#include "harness/watch.h"
#include "kelmora_json.h"

#include "host/plugin/errors.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <jansson.h>
#include <string>

namespace kelmora::lookup_test {

namespace {

using kelmora_host::Error;
using testing::ElementsAre;
using testing::IsEmpty;

/// A document with one reference more than a failing lookup may release.
class GetJsonObj : public testing::Test {
protected:
    GetJsonObj() : object_(json_loads(R"({"here": null})", 0, nullptr)) { json_incref(object_); }
    ~GetJsonObj() override { json_decref(object_); }

    json_t *object_;
    kelmora_errorlist errors_;
};

TEST_F(GetJsonObj, LendsTheMember)
{
    EXPECT_EQ(get_json_obj(object_, "here", "prefix", &errors_), json_object_get(object_, "here"));
    EXPECT_NE(json_object_get(object_, "here"), nullptr);
    EXPECT_EQ(object_->refcount, 2U);
    EXPECT_THAT(errors_.errors, IsEmpty());
    json_decref(object_);
}

TEST_F(GetJsonObj, ReportsAMissingMemberAndThenReleasesTheObject)
{
    std::size_t refcount_at_the_error = 0;
    const kelmora_harness::WatchErrors watch(
        [&](const kelmora_errorlist & /*errors*/) { refcount_at_the_error = object_->refcount; });
    EXPECT_EQ(get_json_obj(object_, "gone", "", &errors_), nullptr);
    EXPECT_EQ(refcount_at_the_error, 2U);
    EXPECT_EQ(object_->refcount, 1U);
    EXPECT_THAT(errors_.errors, ElementsAre(Error{"gone", "field not found", "json"}));
}

TEST_F(GetJsonObj, NamesTheMemberWithItsPrefix)
{
    EXPECT_EQ(get_json_obj(object_, "lan_id", "lan_list", &errors_), nullptr);
    EXPECT_THAT(errors_.errors, ElementsAre(Error{"lan_list.lan_id", "field not found", "json"}));
}

TEST_F(GetJsonObj, TakesNoPrefixForAnEmptyOne)
{
    EXPECT_EQ(get_json_obj(object_, "gone", nullptr, &errors_), nullptr);
    EXPECT_THAT(errors_.errors, ElementsAre(Error{"gone", "field not found", "json"}));
}

TEST_F(GetJsonObj, CutsADottedNameThatDoesNotFit)
{
    const std::string key(60, 'k');
    json_incref(object_);
    EXPECT_EQ(get_json_obj(object_, key.c_str(), "", &errors_), nullptr);
    json_incref(object_);
    EXPECT_EQ(get_json_obj(object_, key.c_str(), "prefix", &errors_), nullptr);
    json_incref(object_);
    EXPECT_EQ(get_json_obj(object_, "k", std::string(60, 'p').c_str(), &errors_), nullptr);
    EXPECT_EQ(get_json_obj(object_, std::string(48, 'k').c_str(), "prefix", &errors_), nullptr);
    EXPECT_THAT(errors_.errors, ElementsAre(Error{key, "field not found", "json"},
                                            Error{"prefix." + std::string(48, 'k'), "field not found", "json"},
                                            Error{std::string(55, 'p'), "field not found", "json"},
                                            Error{"prefix." + std::string(48, 'k'), "field not found", "json"}));
}

TEST_F(GetJsonObj, FindsNothingInWhatIsNoObject)
{
    json_t *array = json_array();
    EXPECT_EQ(get_json_obj(array, "key", "", &errors_), nullptr);
    EXPECT_EQ(get_json_obj(nullptr, "key", "", &errors_), nullptr);
    EXPECT_THAT(errors_.errors,
                ElementsAre(Error{"key", "field not found", "json"}, Error{"key", "field not found", "json"}));
    json_decref(object_);
}

} // namespace

} // namespace kelmora::lookup_test
