#include "host/serve/routes.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace kelmora_host::routes_test {

namespace {

using testing::ElementsAre;

const Route &route(std::string_view method, std::string_view path)
{
    for (const Route &each : routes()) {
        if (each.method == method && each.path == path)
            return each;
    }
    throw std::out_of_range(std::string(path));
}

bool is_for(const Route &route, const std::vector<std::string> &segments)
{
    PathArguments arguments;
    return matches(route, segments, arguments);
}

TEST(Routes, MatchWholePaths)
{
    const Route &ids = route("GET", "/api/v1/ids/{resource}");
    EXPECT_TRUE(is_for(ids, {"api", "v1", "ids", "radio"}));
    EXPECT_FALSE(is_for(ids, {"api", "v1", "ids"}));
    EXPECT_FALSE(is_for(ids, {"api", "v1", "ids", "radio", ""}));
    EXPECT_FALSE(is_for(ids, {"api", "v2", "ids", "radio"}));
    EXPECT_TRUE(is_for(route("GET", "/"), {""}));
    EXPECT_FALSE(is_for(route("GET", "/"), {"a"}));
}

TEST(Routes, HandOutWhatTheyLeaveOpen)
{
    PathArguments arguments;
    const std::vector<std::string> record{"api", "v1", "gateway", "qos", "1024/down"};
    ASSERT_TRUE(matches(route("PUT", "/api/v1/gateway/{resource}/{id}"), record, arguments));
    EXPECT_EQ(arguments.resource, "qos");
    EXPECT_EQ(arguments.id, "1024/down");
    const std::vector<std::string> file{"page", "codemirror", "lib", "codemirror.js"};
    ASSERT_TRUE(matches(route("GET", "/page/{file}"), file, arguments));
    EXPECT_THAT(arguments.file, ElementsAre("codemirror", "lib", "codemirror.js"));
}

TEST(Routes, AreOneForEachMethodAndPath)
{
    for (const Route &one : routes()) {
        for (const Route &other : routes())
            EXPECT_TRUE(&one == &other || one.method != other.method || one.path != other.path) << one.path;
    }
}

TEST(Directions, AreWhatTheResourceHas)
{
    const Resource both{0, "a", "g", Directions::both};
    const Resource reads{0, "a", "g", Directions::to_only};
    const Resource writes{0, "a", "g", Directions::from_only};
    EXPECT_TRUE(has_direction(both, Operation::get_record));
    EXPECT_TRUE(has_direction(both, Operation::put_record));
    EXPECT_FALSE(has_direction(writes, Operation::get_record));
    EXPECT_FALSE(has_direction(writes, Operation::get_records));
    EXPECT_TRUE(has_direction(writes, Operation::delete_record));
    EXPECT_FALSE(has_direction(reads, Operation::put_record));
    EXPECT_FALSE(has_direction(reads, Operation::post_record));
    EXPECT_TRUE(has_direction(reads, Operation::check));
}

} // namespace

} // namespace kelmora_host::routes_test
