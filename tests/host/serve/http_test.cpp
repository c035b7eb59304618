#include "host/serve/http.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace kelmora_host::http_test {

namespace {

using namespace std::string_literals;
using testing::ElementsAre;
using testing::Pair;

TEST(RequestTarget, IsTakenApartBeforeItIsDecoded)
{
    EXPECT_THAT(parse_target("/a/b%2Fc")->segments, ElementsAre("a", "b/c"));
    EXPECT_THAT(parse_target("/")->segments, ElementsAre(""));
    EXPECT_THAT(parse_target("/a/")->segments, ElementsAre("a", ""));
    EXPECT_THAT(parse_target("/a//b")->segments, ElementsAre("a", "", "b"));
    EXPECT_THAT(parse_target("/..%2f..")->segments, ElementsAre("../.."));
    EXPECT_THAT(parse_target("/a+b")->segments, ElementsAre("a+b"));
}

TEST(RequestTarget, HasAQuery)
{
    EXPECT_THAT(parse_target("/a?x=1&y=%26+%2B&&z")->query,
                ElementsAre(Pair("x", "1"), Pair("y", "& +"), Pair("z", "")));
    EXPECT_THAT(parse_target("/a?")->query, ElementsAre());
    EXPECT_THAT(parse_target("/a?b/c")->segments, ElementsAre("a"));
}

TEST(RequestTarget, IsNoneWhenItIsBroken)
{
    for (const char *target : {"", "a", "*", "http://localhost/", "/%", "/%1", "/%1g", "/%00", "/a?%", "/a?x=1&x=2"})
        EXPECT_FALSE(parse_target(target)) << target;
}

TEST(PercentEncoding, LeavesWhatUrlsHaveAsItIs)
{
    EXPECT_EQ(percent_encoded("wlan0.1-_~"), "wlan0.1-_~");
    EXPECT_EQ(percent_encoded("a/b c%\xC3\xA4"), "a%2Fb%20c%25%C3%A4");
    EXPECT_EQ(percent_decoded("a%2Fb%20c%25%c3%A4"), "a/b c%\xC3\xA4");
    EXPECT_EQ(percent_decoded("%0"), std::nullopt);
}

TEST(EntityTags, AreListedExactly)
{
    EXPECT_TRUE(lists_tag("\"a\"", "\"a\"", true));
    EXPECT_TRUE(lists_tag("\"b\" , \"a\"", "\"a\"", true));
    EXPECT_TRUE(lists_tag("*", "\"a\"", true));
    EXPECT_FALSE(lists_tag("\"ab\"", "\"a\"", true));
    EXPECT_FALSE(lists_tag("a", "\"a\"", true));
    EXPECT_FALSE(lists_tag("", "\"a\"", true));
}

TEST(EntityTags, ThatAreWeakMatchWeaklyAlone)
{
    EXPECT_FALSE(lists_tag("W/\"a\"", "\"a\"", true));
    EXPECT_TRUE(lists_tag("W/\"a\"", "\"a\"", false));
}

TEST(Headers, AreFoundWhateverTheirCapitals)
{
    Request request;
    request.headers.emplace("content-TYPE", "x");
    EXPECT_EQ(header(request, "Content-Type"), "x");
    EXPECT_EQ(header(request, "Content-Typ"), std::nullopt);
    EXPECT_EQ(header(Answer{200, "", "", {{"ETag", "\"a\""}}}, "ETag"), "\"a\"");
    EXPECT_EQ(header(Answer{}, "ETag"), "");
}

TEST(MediaType, IsWithoutParametersAndCapitals)
{
    EXPECT_EQ(media_type("Application/JSON; charset=utf-8"), "application/json");
    EXPECT_EQ(media_type(" text/plain "), "text/plain");
    EXPECT_EQ(media_type(""), "");
}

TEST(ContentTypes, FollowTheEndOfTheName)
{
    EXPECT_EQ(content_type_of("a.mjs"), "text/javascript; charset=utf-8");
    EXPECT_EQ(content_type_of("index.html"), "text/html; charset=utf-8");
    EXPECT_EQ(content_type_of("kelmora.d.ts"), "text/plain; charset=utf-8");
    EXPECT_EQ(content_type_of("html"), "application/octet-stream");
}

TEST(Reasons, StandForTheirStatus)
{
    EXPECT_EQ(reason_of(412), "Precondition Failed");
    EXPECT_EQ(reason_of(599), "Internal Server Error");
}

} // namespace

} // namespace kelmora_host::http_test
