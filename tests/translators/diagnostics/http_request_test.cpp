#include "tests/support/allocations.h"
#include "tests/support/from_test.h"
#include "tests/support/to_test.h"

#include "kelmora_json.h"
#include "records/diagnostics.h"

namespace kelmora_test::http_request_test {

namespace {

using kelmora_host::make_text;
using testing::AllOf;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;

constexpr kelmora_http_request without_body{
    .dest = "http://192.168.17.2/api",
    .mesh_session = 1,
    .method = 3,
    .token = "5f0e8d3a91c64b27",
    .timeout = 15,
    .status = 200,
    .body = nullptr,
};

/// A new record each time, as each node owns its body.
kelmora_http_request sample()
{
    kelmora_http_request request = without_body;
    request.body = make_text(R"({"name": "Küche/1", "list": [1]})");
    return request;
}

constexpr char sample_text[] =
    R"({"id": "0", "dest": "http://192.168.17.2/api", "mesh_session": true, "method": 3, "timeout": 15, )"
    R"("token": "5f0e8d3a91c64b27", "status": 200, "body": "{\"name\": \"Küche/1\", \"list\": [1]}"})";

class HttpRequestTo : public ToTest<kelmora_http_request> {
protected:
    HttpRequestTo() : ToTest(http_request_to_translator) {}
};

TEST_F(HttpRequestTo, WritesTheKeysInOrder)
{
    add("0", sample());
    EXPECT_EQ(object(), sample_text);
    EXPECT_EQ(list(), "[" + std::string(sample_text) + "]");
}

TEST_F(HttpRequestTo, WritesNoBodyAsAnEmptyText)
{
    add("0", without_body);
    EXPECT_THAT(object(), EndsWith(R"("status": 200, "body": ""})"));
    add("1").body = make_text("");
    EXPECT_THAT(object(), EndsWith(R"("status": 0, "body": ""})"));
}

TEST_F(HttpRequestTo, WritesABodyOfAnyLengthWhole)
{
    for (const std::size_t length : {127U, 128U, 4095U, 4096U, 70000U}) {
        nodes_.clear();
        add("0", without_body).body = make_text(std::string(length, 'b'));
        EXPECT_THAT(object(), EndsWith(R"("body": ")" + std::string(length, 'b') + "\"}"));
    }
    EXPECT_EQ(reallocations_, 1U);
}

TEST_F(HttpRequestTo, WritesABodyThatIsNoJsonAsItIs)
{
    add("0", without_body).body = make_text("<p class=\"a\">\\ 北\n</p>");
    EXPECT_THAT(object(), EndsWith("\"body\": \"<p class=\\\"a\\\">\\\\ 北\\n</p>\"}"));
}

TEST_F(HttpRequestTo, LeavesOutABodyThatIsNotUtf8)
{
    add("0", without_body).body = make_text("caf\xE9");
    EXPECT_THAT(object(), AllOf(EndsWith(R"("status": 200})"), Not(HasSubstr("body"))));
}

TEST_F(HttpRequestTo, WritesTheMethodAsUnsignedAndTimeoutAndStatusAsSigned)
{
    add("0", {.method = 4294967295, .timeout = -1, .status = -2147483648});
    EXPECT_EQ(object(), R"({"id": "0", "dest": "", "mesh_session": false, "method": 4294967295, "timeout": -1, )"
                        R"("token": "", "status": -2147483648, "body": ""})");
}

TEST_F(HttpRequestTo, WritesAnySwitchButZeroAsTrue)
{
    expect_switches({{"mesh_session", &kelmora_http_request::mesh_session}});
}

TEST_F(HttpRequestTo, CutsTextsToOneByteLessThanTheirField)
{
    kelmora_http_request &request = add("0", without_body);
    fill_whole(request.dest, 'd');
    fill_whole(request.token, 't');
    fill_whole(nodes_.front().resource()->id, 'n');
    EXPECT_EQ(object(), R"({"id": ")" + std::string(128, 'n') + R"(", "dest": ")" + std::string(256, 'd') +
                            R"(", "mesh_session": true, "method": 3, "timeout": 15, "token": ")" +
                            std::string(128, 't') + R"(", "status": 200, "body": ""})");
}

TEST_F(HttpRequestTo, LeavesOutTextsThatAreNotUtf8OrWhoseCutSplitsACharacter)
{
    kelmora_http_request &request = add("caf\xE9", without_body);
    fill_whole(request.dest, 'd');
    request.dest[255] = '\xC3'; // the last byte that is written
    request.dest[256] = '\xA4';
    fill_whole(request.token, 't');
    request.token[127] = '\xC3';
    request.token[128] = '\xA4';
    EXPECT_EQ(object(), R"({"mesh_session": true, "method": 3, "timeout": 15, "status": 200, "body": ""})");
}

TEST_F(HttpRequestTo, SurvivesFailingMemoryWithABodyThatNeedsALargerBuffer)
{
    add("0", without_body).body = make_text(std::string(4096, 'b'));
    expect_survives_failing_memory();
}

constexpr char document[] = R"({
    "dest": "http://192.168.17.3/api/led", "mesh_session": false, "method": 2, "token": "b83d12f07ac95e64",
    "timeout": 30, "body": {"on":true,"level":10}, "id": "never read", "status": 404
})";

class HttpRequestFrom : public FromTest<kelmora_http_request> {
protected:
    HttpRequestFrom() : FromTest(http_request_from_translator, document) {}

    /// How many allocations this document takes. The last of them is the body that is stored, if it has one.
    static std::size_t allocations_for(const std::string &text)
    {
        kelmora_host::Node node("", kelmora_host::Record(kelmora_http_request{}));
        allocations::pass();
        kelmora_errorlist errors;
        EXPECT_EQ(http_request_from_translator(node.resource(), text.c_str(), &errors), 1);
        return allocations::asked_for();
    }
};

TEST_F(HttpRequestFrom, StoresEveryKey)
{
    EXPECT_TRUE(accepts(document));
    EXPECT_STREQ(record().dest, "http://192.168.17.3/api/led");
    EXPECT_EQ(record().mesh_session, 0);
    EXPECT_EQ(record().method, 2U);
    EXPECT_STREQ(record().token, "b83d12f07ac95e64");
    EXPECT_EQ(record().timeout, 30);
    EXPECT_STREQ(record().body, R"({"on": true, "level": 10})");
}

TEST_F(HttpRequestFrom, NeverStoresTheStatus)
{
    EXPECT_TRUE(accepts(document));
    EXPECT_TRUE(untouched(record().status));
}

TEST_F(HttpRequestFrom, AsksForTheRequiredKeysInOrder)
{
    expect_required_in_order({
        {"dest", "dest", "dest field not found"},
        {"method", "method", "method field not found"},
    });
}

TEST_F(HttpRequestFrom, MissingDestinationStoresNothing)
{
    const std::string before = image();
    EXPECT_TRUE(rejects(without(document, "dest"), "dest", "dest field not found"));
    EXPECT_EQ(image(), before);
    EXPECT_TRUE(rejects(with(without(document, "dest"), "mesh_session", "true"), "dest", "dest field not found"));
    EXPECT_EQ(image(), before);
    EXPECT_TRUE(rejects(without_all(document, {"dest", "mesh_session"}), "dest", "dest field not found"));
    EXPECT_EQ(image(), before);
}

TEST_F(HttpRequestFrom, MissingMethodStoresDestinationAndMeshSessionAlone)
{
    const std::string text = without(document, "method");
    for (const auto &[variant, mesh_session] : std::vector<std::pair<std::string, int>>{
             {text, 0}, {with(text, "mesh_session", "true"), 1}, {without(text, "mesh_session"), 0}}) {
        poison();
        EXPECT_TRUE(rejects(variant, "method", "method field not found"));
        EXPECT_STREQ(record().dest, "http://192.168.17.3/api/led");
        EXPECT_EQ(record().mesh_session, mesh_session);
        EXPECT_TRUE(untouched(record().method));
        EXPECT_TRUE(untouched(record().token));
        EXPECT_TRUE(untouched(record().timeout));
        EXPECT_EQ(record().body, nullptr);
    }
}

TEST_F(HttpRequestFrom, ClearsAMeshSessionThatIsAbsent)
{
    record().mesh_session = 1;
    EXPECT_TRUE(accepts(without(document, "mesh_session")));
    EXPECT_EQ(record().mesh_session, 0);
    EXPECT_STREQ(record().body, R"({"on": true, "level": 10})");
}

TEST_F(HttpRequestFrom, SucceedsWithTheRequiredKeysAloneAndKeepsTheRest)
{
    record().body = make_text("before");
    const char *body = record().body;
    EXPECT_TRUE(accepts(R"({"dest": "192.0.2.1", "method": 7})"));
    EXPECT_STREQ(record().dest, "192.0.2.1");
    EXPECT_EQ(record().mesh_session, 0);
    EXPECT_EQ(record().method, 7U);
    EXPECT_TRUE(untouched(record().token));
    EXPECT_TRUE(untouched(record().timeout));
    EXPECT_TRUE(untouched(record().status));
    EXPECT_EQ(record().body, body);
    EXPECT_STREQ(record().body, "before");
}

TEST_F(HttpRequestFrom, KeepsTheOptionalKeysThatAreAbsent)
{
    expect_optional("token", record().token);
    expect_optional("timeout", record().timeout);
}

TEST_F(HttpRequestFrom, StoresNullAsNothing)
{
    EXPECT_TRUE(accepts(R"({"dest": null, "mesh_session": null, "method": null, "token": null, "timeout": null,
                            "body": null, "status": null})"));
    EXPECT_STREQ(record().dest, "");
    EXPECT_EQ(record().mesh_session, 0);
    EXPECT_EQ(record().method, 0U);
    EXPECT_STREQ(record().token, "");
    EXPECT_EQ(record().timeout, 0);
    EXPECT_TRUE(untouched(record().status));
    EXPECT_EQ(record().body, nullptr);
}

TEST_F(HttpRequestFrom, TakesOnlyTrueForTrue) { expect_boolean("mesh_session", record().mesh_session); }

TEST_F(HttpRequestFrom, CutsIntegersToTheirWidth)
{
    expect_integer("method", record().method);
    expect_integer("timeout", record().timeout);
}

TEST_F(HttpRequestFrom, CutsTextsToTheirField)
{
    expect_string("dest", record().dest);
    expect_string("token", record().token);
}

TEST_F(HttpRequestFrom, StoresTheFirst256CharactersOfALongDestination)
{
    EXPECT_TRUE(accepts(with(document, "dest", '"' + std::string(255, 'd') + "x" + std::string(44, 'y') + '"')));
    EXPECT_EQ(record().dest, std::string(255, 'd') + "x");
}

TEST_F(HttpRequestFrom, StoresABodyThatIsAnObjectOrAnArrayAsCompactText)
{
    const std::vector<std::pair<std::string, std::string>> bodies = {
        {"{}", "{}"},
        {"[]", "[]"},
        {"{\n\"z\" : 1 ,\t\"a\":{\"m\":[1,-2.5,1e2,null,true,false]}}",
         R"({"z": 1, "a": {"m": [1, -2.5, 100.0, null, true, false]}})"},
        {R"(["\u00fc","ü","a\/b","\n\"\\"])", "[\"ü\", \"ü\", \"a/b\", \"\\n\\\"\\\\\"]"},
        {R"({"a":1,"b":2,"a":3})", R"({"a": 3, "b": 2})"},
    };
    for (const auto &[json, text] : bodies) {
        poison();
        EXPECT_TRUE(accepts(R"({"dest": "192.0.2.1", "method": 1, "body": )" + json + "}"));
        EXPECT_STREQ(record().body, text.c_str());
    }
}

TEST_F(HttpRequestFrom, StoresABodyOfAnyLengthWhole)
{
    for (const std::size_t length : {1U, 255U, 4096U, 70000U}) {
        poison();
        EXPECT_TRUE(accepts(with(document, "body", R"([")" + std::string(length, 'b') + R"("])")));
        EXPECT_EQ(record().body, R"([")" + std::string(length, 'b') + R"("])");
    }
}

std::string nested(std::size_t levels) { return std::string(levels, '[') + std::string(levels, ']'); }

TEST_F(HttpRequestFrom, TakesNoOtherKeyForTheBody)
{
    const std::string shallow = R"({"dest": "d", "method": 1, "body": {}, ")";
    for (const char *other : {R"(x\n)", R"(body\n)", R"(\"body)", R"(b\u006fd)", R"(\u0062ody\/)"}) {
        EXPECT_TRUE(accepts(shallow + other + R"(": )" + nested(513) + "}"));
        EXPECT_STREQ(record().body, "{}");
    }
}

TEST_F(HttpRequestFrom, RejectsADeepBodyHoweverItsKeyIsWritten)
{
    const std::string shallow = R"({"dest": "d", "method": 1, "body": {}, ")";
    for (const char *escaped : {R"(b\u006fdy)", R"(\u0062\u006F\u0064\u0079)"}) {
        EXPECT_TRUE(rejects(shallow + escaped + R"(": )" + nested(513) + "}", "body", "nested too deeply"));
        EXPECT_TRUE(accepts(shallow + escaped + R"(": )" + nested(512) + "}"));
        EXPECT_EQ(record().body, nested(512));
    }
}

TEST_F(HttpRequestFrom, RejectsABodyOfMoreThan512Levels)
{
    EXPECT_TRUE(accepts(with(document, "body", nested(512))));
    EXPECT_EQ(record().body, nested(512));
    record().body[1] = 'x';
    EXPECT_TRUE(rejects(with(document, "body", nested(513)), "body", "nested too deeply"));
    EXPECT_EQ(record().body[1], 'x');
}

TEST_F(HttpRequestFrom, CountsTheLevelsOfTheBodyAlone)
{
    for (const char *other : {"other", "timeout", "body"}) {
        poison();
        EXPECT_TRUE(accepts(R"({"dest": "d", "method": 1, ")" + std::string(other) + "\": " + nested(600) +
                            R"(, "body": ["[[["]})"));
        EXPECT_STREQ(record().body, R"(["[[["])") << other;
    }
}

TEST_F(HttpRequestFrom, KeepsTheBodyBeforeOneThatIsNoObjectOrArray)
{
    for (const char *json : {R"("{\"on\": true}")", "\"\"", "1", "1.5", "true", "false", "null"}) {
        poison();
        EXPECT_TRUE(accepts(with(document, "body", json)));
        EXPECT_EQ(record().body, nullptr) << json;
        record().body = make_text("before");
        const char *body = record().body;
        EXPECT_TRUE(accepts(with(document, "body", json)));
        EXPECT_EQ(record().body, body) << json;
        EXPECT_STREQ(record().body, "before") << json;
    }
}

TEST_F(HttpRequestFrom, StoresNoBodyInsideAMeshSession)
{
    EXPECT_TRUE(accepts(with(document, "mesh_session", "true")));
    EXPECT_EQ(record().mesh_session, 1);
    EXPECT_STREQ(record().token, "b83d12f07ac95e64");
    EXPECT_EQ(record().timeout, 30);
    EXPECT_EQ(record().body, nullptr);
    record().body = make_text("before");
    const char *body = record().body;
    EXPECT_TRUE(accepts(with(document, "mesh_session", "true")));
    EXPECT_EQ(record().body, body);
    EXPECT_STREQ(record().body, "before");
}

TEST_F(HttpRequestFrom, GoesByTheMeshSessionOfTheDocumentNotOfTheRecord)
{
    record().mesh_session = 1;
    EXPECT_TRUE(accepts(document));
    EXPECT_STREQ(record().body, R"({"on": true, "level": 10})");
    for (const char *not_true : {"1", "\"true\"", "null", "[true]"}) {
        poison();
        EXPECT_TRUE(accepts(with(document, "mesh_session", not_true)));
        EXPECT_STREQ(record().body, R"({"on": true, "level": 10})") << not_true;
    }
}

TEST_F(HttpRequestFrom, ReplacesTheBodyBeforeWithoutFreeingIt)
{
    char *before = make_text("before");
    kelmora_host::Node node("", kelmora_host::Record(kelmora_http_request{.body = before}));
    const std::size_t alive = allocations::alive();
    kelmora_errorlist errors;
    EXPECT_EQ(http_request_from_translator(node.resource(), document, &errors), 1);
    EXPECT_EQ(allocations::alive(), alive + 1); // the new one alone
    EXPECT_STREQ(node.record().as<kelmora_http_request>().body, R"({"on": true, "level": 10})");
    EXPECT_STREQ(before, "before");
    std::free(before);
}

TEST_F(HttpRequestFrom, ReportsABodyThatNoMemoryIsLeftFor)
{
    const std::size_t last = allocations_for(document);
    ASSERT_GT(last, allocations_for(without(document, "body")) + 1); // rendering takes some, the copy one more
    for (const std::size_t failing : {last - 1, last}) {
        poison();
        record().body = make_text("before");
        const char *body = record().body;
        allocations::fail(failing, Failing::from_then_on);
        EXPECT_TRUE(rejects(document, "body", "out of memory"));
        EXPECT_STREQ(record().dest, "http://192.168.17.3/api/led");
        EXPECT_EQ(record().mesh_session, 0);
        EXPECT_EQ(record().method, 2U);
        EXPECT_STREQ(record().token, "b83d12f07ac95e64");
        EXPECT_EQ(record().timeout, 30);
        EXPECT_EQ(record().body, body);
        EXPECT_STREQ(record().body, "before");
    }
}

} // namespace

} // namespace kelmora_test::http_request_test
