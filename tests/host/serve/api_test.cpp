#include "host/serve/api.h"

#include "host/json.h"
#include "host/plugin/registry.h"

#include "kelmora_json.h"
#include "kelmora_records.h"

#include <array>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace kelmora_host::api_test {

namespace {

namespace fs = std::filesystem;
using namespace std::string_literals;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

constexpr std::array page{Asset{"index.html", "<p>"}, Asset{"lib/a.js", "1"}};

constexpr const char *good = R"({"enabled": true, "global_download": 5, "global_upload": 6})";
constexpr const char *lossy = R"({"enabled": true, "global_download": "5", "global_upload": 6})";
constexpr const char *rejected = R"({"enabled": true, "global_download": 5})";

class ApiTest : public ::testing::Test {
protected:
    ApiTest()
    {
        Registry::instance().clear();
        kelmora_json_init();
    }
    ~ApiTest() override
    {
        fs::remove_all(folder);
        Registry::instance().clear();
    }

    static Gateway gateway()
    {
        Gateway gateway;
        gateway.add("qos", "0", kelmora_qos{.enabled = 0, .global_download = 1, .global_upload = 2});
        gateway.add("qos", "a/b", kelmora_qos{.enabled = 1, .global_download = 3, .global_upload = 4});
        gateway.add("backup_restore", "0", kelmora_backup_restore{{0, 1, 2, 3, 4, 5, 6, 7}});
        return gateway;
    }

    static Request request(std::string method, std::string target, std::string body = "", Headers headers = {})
    {
        headers.emplace("Host", "localhost:8098");
        if (!headers.contains("Content-Type"))
            headers.emplace("Content-Type", "application/json");
        return {std::move(method), std::move(target), std::move(headers), std::move(body)};
    }

    Answer ask(std::string method, std::string target, std::string body = "", Headers headers = {})
    {
        return api.answer(request(std::move(method), std::move(target), std::move(body), std::move(headers)));
    }

    int status(std::string method, std::string target, std::string body = "", Headers headers = {})
    {
        return ask(std::move(method), std::move(target), std::move(body), std::move(headers)).status;
    }

    /// The record of the id "0" as it is shown.
    std::string record() { return ask("GET", "/api/v1/gateway/qos/0").body; }

    std::string tag(const std::string &target) { return std::string(header(ask("GET", target), "ETag")); }

    // The resource's documents are over several lines, with their keys sorted.
    static constexpr const char *before = R"({
                "enabled": false,
                "global_download": 1,
                "global_upload": 2,
                "id": "0"
})";
    static constexpr const char *after = R"({
                "enabled": true,
                "global_download": 5,
                "global_upload": 6,
                "id": "0"
})";
    static constexpr const char *after_in_answers =
        R"({"enabled": true, "global_download": 5, "global_upload": 6, "id": "0"})";

    static fs::path new_folder()
    {
        std::string name = (fs::temp_directory_path() / "docs.XXXXXX").string();
        return mkdtemp(name.data());
    }

    fs::path folder = new_folder();
    State state{gateway()};
    Api api{state, {8098, std::nullopt, folder, page}};
};

// ---- what is answered

TEST_F(ApiTest, ListsTheResourcesWithTheirRecords)
{
    const Answer answer = ask("GET", "/api/v1/resources");
    EXPECT_EQ(answer.status, 200);
    EXPECT_EQ(answer.content_type, "application/json");
    EXPECT_THAT(answer.body, HasSubstr(R"("resource": "qos", "directions": "both", "shape": "list or object", )"
                                       R"("group": "qos", "records": 2})"));
    EXPECT_THAT(answer.body, HasSubstr(R"("resource": "radio", "directions": "both", "shape": "list or object", )"
                                       R"("group": "wireless", "records": 0})"));
}

TEST_F(ApiTest, TellsAContract)
{
    const Answer answer = ask("GET", "/api/v1/resources/qos");
    EXPECT_EQ(answer.status, 200);
    EXPECT_THAT(answer.body, StartsWith(R"({"resource": "qos", "group": "qos", )"));
    EXPECT_THAT(answer.body, HasSubstr(R"({"path": "/global_upload", "type": "integer", "required": true, )"));
}

TEST_F(ApiTest, TellsAllKeysAndTypes)
{
    const std::string body = ask("GET", "/api/v1/keys").body;
    EXPECT_THAT(body, HasSubstr(R"({"resource": "qos", "direction": "input", "path": "/global_upload", )"));
    EXPECT_THAT(body, HasSubstr(R"({"resource": "radio", "direction": "output", "path": "/power", )"));
    const Answer types = ask("GET", "/types/kelmora.d.ts");
    EXPECT_EQ(types.content_type, "text/plain; charset=utf-8");
    EXPECT_THAT(types.body, HasSubstr("export interface QosInput"));
}

TEST_F(ApiTest, TellsTheIds)
{
    EXPECT_EQ(ask("GET", "/api/v1/ids/qos").body, R"(["0", "a/b"])");
    EXPECT_EQ(ask("GET", "/api/v1/ids/radio").body, "[]");
}

TEST_F(ApiTest, ShowsRecordsAsThePlugInWritesThem)
{
    EXPECT_EQ(record(), before);
    EXPECT_EQ(ask("GET", "/api/v1/gateway/qos/a%2Fb").body, R"({
                "enabled": true,
                "global_download": 3,
                "global_upload": 4,
                "id": "a\/b"
})");
    EXPECT_EQ(ask("GET", "/api/v1/gateway/qos").body, R"([
                {
                                "enabled": false,
                                "global_download": 1,
                                "global_upload": 2,
                                "id": "0"
                },
                {
                                "enabled": true,
                                "global_download": 3,
                                "global_upload": 4,
                                "id": "a\/b"
                }
])");
    EXPECT_EQ(ask("GET", "/api/v1/gateway/radio").body, "[]");
}

TEST_F(ApiTest, ShowsTheBytesOfARawResource)
{
    for (const char *target : {"/api/v1/gateway/backup_restore", "/api/v1/gateway/backup_restore/0"}) {
        const Answer answer = ask("GET", target);
        EXPECT_EQ(answer.content_type, "application/octet-stream");
        EXPECT_EQ(answer.body, "\0\1\2\3\4\5\6\7"s);
    }
}

TEST_F(ApiTest, MarksRecordsWithStrongTagsThatChangeWithThem)
{
    const std::string one = tag("/api/v1/gateway/qos/0");
    const std::string other = tag("/api/v1/gateway/qos/a%2Fb");
    const std::string all = tag("/api/v1/gateway/qos");
    EXPECT_THAT(one, testing::MatchesRegex("\"[0-9a-f]+-[0-9]+\""));
    EXPECT_EQ(tag("/api/v1/gateway/qos/0"), one);
    ASSERT_EQ(status("PUT", "/api/v1/gateway/qos/0", good), 200);
    EXPECT_NE(tag("/api/v1/gateway/qos/0"), one);
    EXPECT_NE(tag("/api/v1/gateway/qos"), all);
    EXPECT_EQ(tag("/api/v1/gateway/qos/a%2Fb"), other);
}

TEST_F(ApiTest, DoesNotSendAgainWhatIsKnown)
{
    const std::string known = tag("/api/v1/gateway/qos/0");
    const Answer answer = ask("GET", "/api/v1/gateway/qos/0", "", {{"If-None-Match", "\"x\", W/" + known}});
    EXPECT_EQ(answer.status, 304);
    EXPECT_THAT(answer.body, IsEmpty());
    EXPECT_EQ(header(answer, "ETag"), known);
    EXPECT_EQ(status("HEAD", "/api/v1/gateway/qos/0", "", {{"If-None-Match", known}}), 304);
    EXPECT_EQ(status("GET", "/api/v1/gateway/qos/0", "", {{"If-None-Match", "\"x\""}}), 200);
    EXPECT_EQ(status("GET", "/api/v1/gateway/qos", "", {{"If-None-Match", tag("/api/v1/gateway/qos")}}), 304);
}

TEST_F(ApiTest, PutsADocumentIntoARecord)
{
    const Answer answer = ask("PUT", "/api/v1/gateway/qos/0", good);
    EXPECT_EQ(answer.status, 200);
    EXPECT_EQ(
        answer.body, R"({"result": "lossless", "errors": [], "findings": [], "record": )"s + after_in_answers +
                         R"(, "committed": true, "etag": ")" + [this] {
                             const std::string now = tag("/api/v1/gateway/qos/0");
                             return "\\" + now.substr(0, now.size() - 1) + "\\\"\"}";
                         }());
    EXPECT_EQ(record(), after);
}

TEST_F(ApiTest, TellsWhatIsLostUnlessItIsToIgnoreIt)
{
    EXPECT_THAT(ask("PUT", "/api/v1/gateway/qos/0", lossy).body,
                AllOf(StartsWith(R"({"result": "lossy", "errors": [], "findings": [{"code": "wrong-type", )"),
                      HasSubstr(R"("committed": true)")));
    EXPECT_THAT(record(), HasSubstr(R"("global_download": 0)"));
    EXPECT_THAT(ask("PUT", "/api/v1/gateway/qos/0?validate=warn", lossy).body, StartsWith(R"({"result": "lossy")"));
    EXPECT_THAT(
        ask("PUT", "/api/v1/gateway/qos/0?validate=ignore", lossy).body,
        StartsWith(
            R"({"result": "accepted", "errors": [], "findings": [], "record": {"enabled": true, "global_download": 0)"));
}

TEST_F(ApiTest, RefusesALossyDocumentWhereItIsToBeStrict)
{
    const Answer answer = ask("PUT", "/api/v1/gateway/qos/0?validate=strict", lossy);
    EXPECT_EQ(answer.status, 422);
    EXPECT_EQ(answer.content_type, "application/problem+json");
    EXPECT_THAT(answer.body, AllOf(HasSubstr(R"("type": "urn:kelmora-host:lossy")"),
                                   HasSubstr(R"("findings": [{"code": "wrong-type")")));
    EXPECT_EQ(record(), before);
    EXPECT_EQ(status("PUT", "/api/v1/gateway/qos/0?validate=strict", good), 200);
}

TEST_F(ApiTest, StoresNothingOfARejectedDocument)
{
    for (const char *mode : {"ignore", "warn", "strict"}) {
        const Answer answer = ask("PUT", "/api/v1/gateway/qos/0?validate="s + mode, rejected);
        EXPECT_EQ(answer.status, 422) << mode;
        EXPECT_THAT(answer.body, HasSubstr(R"("errors": [{"field": "upload", "message": "upload field not found", )"
                                           R"("source": "json", "pointer": "/global_upload", "line": 1, "column": 1)"))
            << mode;
    }
    EXPECT_EQ(status("PUT", "/api/v1/gateway/qos/0", "{"), 422);
    EXPECT_EQ(status("PUT", "/api/v1/gateway/qos/0?validate=ignore", "{\0}"s), 422);
    EXPECT_EQ(record(), before);
}

TEST_F(ApiTest, StoresNothingOnADryRun)
{
    const std::string tag_before = tag("/api/v1/gateway/qos/0");
    const Answer answer = ask("PUT", "/api/v1/gateway/qos/0?dryRun=true", good);
    EXPECT_EQ(answer.status, 200);
    EXPECT_EQ(answer.body, R"({"result": "lossless", "errors": [], "findings": [], "record": )"s + after_in_answers +
                               R"(, "committed": false})");
    EXPECT_EQ(record(), before);
    EXPECT_EQ(tag("/api/v1/gateway/qos/0"), tag_before);
    EXPECT_EQ(status("POST", "/api/v1/gateway/qos?id=new&dryRun=true", good), 200);
    EXPECT_EQ(ask("GET", "/api/v1/ids/qos").body, R"(["0", "a/b"])");
    EXPECT_EQ(status("PUT", "/api/v1/gateway/qos/0?dryRun=false", good), 200);
    EXPECT_EQ(record(), after);
}

TEST_F(ApiTest, WritesOnlyWhatItsSenderKnows)
{
    const std::string known = tag("/api/v1/gateway/qos/0");
    EXPECT_EQ(status("PUT", "/api/v1/gateway/qos/0", good, {{"If-Match", "\"other\""}}), 412);
    EXPECT_EQ(status("PUT", "/api/v1/gateway/qos/0", good, {{"If-Match", "W/" + known}}), 412);
    EXPECT_EQ(status("PUT", "/api/v1/gateway/qos/0", good, {{"If-None-Match", "*"}}), 412);
    EXPECT_EQ(status("DELETE", "/api/v1/gateway/qos/0", "", {{"If-Match", "\"other\""}}), 412);
    EXPECT_EQ(record(), before);
    EXPECT_EQ(status("PUT", "/api/v1/gateway/qos/0", good, {{"If-Match", known}}), 200);
    EXPECT_EQ(status("PUT", "/api/v1/gateway/qos/0", good, {{"If-Match", known}}), 412);
    EXPECT_EQ(status("PUT", "/api/v1/gateway/qos/0", good, {{"If-Match", "*"}}), 200);
}

TEST_F(ApiTest, MakesARecordOutOfADocument)
{
    const Answer answer = ask("POST", "/api/v1/gateway/qos?id=c%2Fd", good);
    EXPECT_EQ(answer.status, 201);
    EXPECT_EQ(header(answer, "Location"), "/api/v1/gateway/qos/c%2Fd");
    EXPECT_EQ(header(answer, "ETag"), tag("/api/v1/gateway/qos/c%2Fd"));
    EXPECT_THAT(answer.body,
                HasSubstr(R"("record": {"enabled": true, "global_download": 5, "global_upload": 6, "id": "c/d"})"));
    EXPECT_EQ(ask("GET", "/api/v1/ids/qos").body, R"(["0", "a/b", "c/d"])");
}

TEST_F(ApiTest, MakesNoRecordThatThereIsOrThatIsRejected)
{
    EXPECT_EQ(status("POST", "/api/v1/gateway/qos?id=0", good), 409);
    EXPECT_EQ(status("POST", "/api/v1/gateway/qos?id=c", rejected), 422);
    EXPECT_EQ(status("POST", "/api/v1/gateway/qos?id=c&validate=strict", lossy), 422);
    EXPECT_EQ(status("POST", "/api/v1/gateway/qos", good), 400);
    EXPECT_EQ(status("POST", "/api/v1/gateway/qos?id=", good), 400);
    EXPECT_EQ(status("POST", "/api/v1/gateway/qos?id=%FF", good), 400);
    EXPECT_EQ(status("POST", "/api/v1/gateway/qos?id=" + std::string(129, 'x'), good), 400);
    EXPECT_EQ(ask("GET", "/api/v1/gateway/qos").body.find("\"c\""), std::string::npos);
    EXPECT_EQ(status("POST", "/api/v1/gateway/qos?id=" + std::string(128, 'x'), good), 201);
}

TEST_F(ApiTest, RemovesARecord)
{
    EXPECT_EQ(status("DELETE", "/api/v1/gateway/qos/0"), 204);
    EXPECT_EQ(status("GET", "/api/v1/gateway/qos/0"), 404);
    EXPECT_EQ(status("DELETE", "/api/v1/gateway/qos/0"), 404);
    EXPECT_EQ(ask("GET", "/api/v1/ids/qos").body, R"(["a/b"])");
}

TEST_F(ApiTest, BringsTheBeginningBack)
{
    (void)ask("PUT", "/api/v1/gateway/qos/0", good);
    (void)ask("DELETE", "/api/v1/gateway/qos/a%2Fb");
    Headers none;
    none.emplace("Content-Type", "");
    EXPECT_EQ(status("POST", "/api/v1/state:reset", "", none), 204);
    EXPECT_EQ(record(), before);
    EXPECT_EQ(ask("GET", "/api/v1/ids/qos").body, R"(["0", "a/b"])");
}

TEST_F(ApiTest, ChecksAnyTextWithoutStoringIt)
{
    EXPECT_EQ(ask("POST", "/api/v1/check/qos", good).body,
              R"({"resource": "qos", "result": "lossless", "errors": [], "findings": []})");
    EXPECT_THAT(ask("POST", "/api/v1/check/qos?id=a%2Fb", lossy).body, HasSubstr(R"("result": "lossy")"));
    const Answer broken = ask("POST", "/api/v1/check/qos", "{");
    EXPECT_EQ(broken.status, 200);
    EXPECT_THAT(broken.body,
                HasSubstr(R"("result": "rejected", "errors": [{"field": "", "message": "invalid json data")"));
    EXPECT_EQ(status("POST", "/api/v1/check/qos?id=c", good), 404);
    EXPECT_THAT(ask("POST", "/api/v1/check/radio", "{}").body, HasSubstr(R"("field": "enabled")")); // no record at all
    EXPECT_THAT(ask("POST", "/api/v1/check/status", "{\"a\": 1}").body, HasSubstr(R"("code": "ignored")"));
    EXPECT_EQ(record(), before);
}

TEST_F(ApiTest, TracesADocumentWithTheRecordBeforeAndAfter)
{
    const Answer answer = ask("POST", "/api/v1/trace/qos?id=0", good);
    ASSERT_EQ(answer.status, 200);
    const Json json(parsed(answer.body));
    EXPECT_TRUE(json_is_true(json_object_get(json.get(), "accepted")));
    EXPECT_EQ(json_array_size(json_object_get(json.get(), "steps")), 3U);
    const auto first_byte = [&](const char *image) {
        const json_t *block = json_array_get(json_object_get(json_object_get(json.get(), image), "blocks"), 0);
        EXPECT_STREQ(json_string_value(json_object_get(block, "type")), "struct kelmora_qos");
        EXPECT_EQ(json_array_size(json_object_get(block, "fields")), 3U);
        return std::string(json_string_value(json_object_get(block, "bytes"))).substr(0, 2);
    };
    EXPECT_EQ(first_byte("before"), "00");
    EXPECT_EQ(first_byte("after"), "01");
    EXPECT_EQ(to_text(Json(json_incref(json_object_get(json.get(), "record")))), after_in_answers);
    EXPECT_EQ(record(), before);
}

TEST_F(ApiTest, TracesWhatARejectedDocumentLeavesBehind)
{
    const Answer answer = ask("POST", "/api/v1/trace/qos", rejected);
    EXPECT_EQ(answer.status, 200);
    EXPECT_THAT(answer.body, AllOf(HasSubstr(R"("accepted": false)"), HasSubstr(R"("errors": [{"field": "upload")"),
                                   HasSubstr(R"("global_download": 5, "global_upload": 2, "id": "0"})")));
}

TEST_F(ApiTest, ChecksAndTracesADocumentForANewRecord)
{
    EXPECT_EQ(status("PUT", "/api/v1/gateway/qos/0", good), 200);
    const std::string kept = record();
    EXPECT_THAT(ask("POST", "/api/v1/check/qos?new=true&id=c%2Fd", lossy).body, HasSubstr(R"("result": "lossy")"));
    for (const char *id : {"c%2Fd", "0"}) { // also one that is there: the record is blank all the same
        const Answer answer = ask("POST", std::string("/api/v1/trace/qos?new=true&id=") + id, rejected);
        EXPECT_EQ(answer.status, 200) << id;
        const Json json(parsed(answer.body));
        const json_t *blocks = json_object_get(json_object_get(json.get(), "before"), "blocks");
        const std::string bytes = json_string_value(json_object_get(json_array_get(blocks, 0), "bytes"));
        EXPECT_EQ(bytes, std::string(bytes.size(), '0')) << id;
        EXPECT_STREQ(json_string_value(json_object_get(json_object_get(json.get(), "record"), "id")),
                     id == std::string("0") ? "0" : "c/d");
    }
    EXPECT_THAT(ask("POST", "/api/v1/trace/qos?new=true", good).body, HasSubstr(R"("id": "")"));
    EXPECT_EQ(status("POST", "/api/v1/check/qos?new=false&id=c", good), 404);
    EXPECT_EQ(status("POST", "/api/v1/check/qos?new=1", good), 400);
    EXPECT_EQ(status("POST", "/api/v1/check/qos?new=true&id=", good), 400);
    EXPECT_EQ(status("POST", "/api/v1/trace/qos?new=true&id=" + std::string(129, 'x'), good), 400);
    EXPECT_EQ(record(), kept);
}

TEST_F(ApiTest, TracesNothingInWhatIsNoDocument)
{
    EXPECT_THAT(
        ask("POST", "/api/v1/trace/qos", "{").body,
        HasSubstr(R"("errors": [{"field": "", "message": "invalid json data", "source": "json", "pointer": "", )"
                  R"("line": 1, "column": 1, "detail": ")"));
    EXPECT_EQ(status("POST", "/api/v1/trace/qos", "{"), 422);
    EXPECT_EQ(
        status("POST", "/api/v1/trace/backup_restore", "12345678", {{"Content-Type", "application/octet-stream"}}),
        422);
    EXPECT_THAT(ask("POST", "/api/v1/trace/telnet", "{}").body, HasSubstr(R"("record": null)"));
}

TEST_F(ApiTest, HasSchemas)
{
    const Answer schema = ask("GET", "/schemas/qos.input.schema.json");
    EXPECT_EQ(schema.content_type, "application/schema+json");
    EXPECT_THAT(schema.body, HasSubstr("\"global_upload\""));
    EXPECT_EQ(status("GET", "/schemas/status.input.schema.json"), 404);
    EXPECT_EQ(status("GET", "/schemas/qos.output.schema.json"), 200);
    EXPECT_EQ(status("GET", "/schemas/qos.accept.schema.json"), 200);
    EXPECT_EQ(status("GET", "/schemas/qos.nothing.schema.json"), 404);
    EXPECT_EQ(status("GET", "/schemas/qos.input.schema.json/"), 404);
}

TEST_F(ApiTest, HasThePage)
{
    EXPECT_EQ(ask("GET", "/").body, "<p>");
    EXPECT_EQ(ask("GET", "/").content_type, "text/html; charset=utf-8");
    const Answer script = ask("GET", "/page/lib/a.js");
    EXPECT_EQ(script.body, "1");
    EXPECT_EQ(script.content_type, "text/javascript; charset=utf-8");
    EXPECT_EQ(header(script, "Cache-Control"), "no-cache");
    EXPECT_EQ(status("GET", "/page/lib/a.js", "", {{"If-None-Match", std::string(header(script, "ETag"))}}), 304);
    EXPECT_EQ(status("GET", "/page/lib/b.js"), 404);
    EXPECT_EQ(status("GET", "/page/lib%2Fa.js"), 200); // a name like any other: no file system is asked
}

TEST_F(ApiTest, HasTheReferenceAndNothingBesideIt)
{
    std::ofstream(folder / "index.html") << "start";
    fs::create_directory(folder / "sub");
    std::ofstream(folder / "sub" / "style.css") << "css";
    std::ofstream(folder / ".hidden") << "x";
    const fs::path outside = folder.string() + ".secret";
    std::ofstream(outside) << "x";
    fs::create_symlink(outside, folder / "link.html");
    EXPECT_EQ(ask("GET", "/docs/").body, "start");
    EXPECT_EQ(ask("GET", "/docs/sub/style.css").body, "css");
    EXPECT_EQ(ask("GET", "/docs/sub/style.css").content_type, "text/css; charset=utf-8");
    for (const std::string &path :
         {"nowhere.html"s, "sub"s, "sub/"s, ".hidden"s, "link.html"s, "../"s + outside.filename().string(),
          "..%2F"s + outside.filename().string(), "%2e%2e/"s + outside.filename().string(), "sub//style.css"s,
          "sub%2Fstyle.css"s, "sub%5Cstyle.css"s, "%2Fetc%2Fpasswd"s, "/etc/passwd"s})
        EXPECT_EQ(status("GET", "/docs/" + path), 404) << path;
    EXPECT_EQ(status("GET", "/docs/index.html%00"), 400);
    fs::remove(outside);
}

TEST_F(ApiTest, SaysHowToMakeAReferenceThatIsNotThere)
{
    Api without(state, {8098, std::nullopt, folder / "nowhere", page});
    EXPECT_THAT(without.answer(request("GET", "/docs/")).body, HasSubstr("make docs"));
    EXPECT_EQ(without.answer(request("GET", "/docs/")).status, 404);
}

// ---- what is refused

TEST_F(ApiTest, KnowsNoOtherPath)
{
    for (const char *target : {"/nowhere", "/api", "/api/v1", "/api/v1/", "/api/v1/resources/", "/api/v2/resources",
                               "/index.html", "/docs", "/page", "//", "/api/v1/gateway/qos/0/more"})
        EXPECT_EQ(status("GET", target), 404) << target;
    EXPECT_THAT(ask("GET", "/api/v1/gateway/raido/0").body, HasSubstr(R"(no resource \"raido\"; similar: radio)"));
    EXPECT_THAT(ask("GET", "/api/v1/gateway/qos/1").body, HasSubstr(R"(qos has no record of the id \"1\")"));
    EXPECT_EQ(status("PUT", "/api/v1/gateway/qos/1", good), 404);
    EXPECT_EQ(status("GET", "/api/v1/gateway/qos/"), 404);
}

TEST_F(ApiTest, AllowsTheMethodsThatAPathHas)
{
    const Answer answer = ask("PATCH", "/api/v1/gateway/qos/0", good);
    EXPECT_EQ(answer.status, 405);
    EXPECT_EQ(header(answer, "Allow"), "GET, HEAD, PUT, DELETE, OPTIONS");
    EXPECT_EQ(header(ask("DELETE", "/api/v1/gateway/qos"), "Allow"), "GET, HEAD, POST, OPTIONS");
    EXPECT_EQ(header(ask("GET", "/api/v1/check/qos"), "Allow"), "POST, OPTIONS");
    EXPECT_EQ(status("TRACE", "/"), 405);
    const Answer options = ask("OPTIONS", "/api/v1/gateway/qos/0");
    EXPECT_EQ(options.status, 204);
    EXPECT_EQ(header(options, "Allow"), "GET, HEAD, PUT, DELETE, OPTIONS");
}

TEST_F(ApiTest, AllowsNoDirectionThatAResourceDoesNotHave)
{
    const Answer reads = ask("PUT", "/api/v1/gateway/status/0", "{}");
    EXPECT_EQ(reads.status, 405);
    EXPECT_EQ(header(reads, "Allow"), "GET, HEAD, DELETE, OPTIONS");
    EXPECT_THAT(reads.body, HasSubstr("status is read-only"));
    EXPECT_EQ(header(ask("POST", "/api/v1/gateway/status?id=1", "{}"), "Allow"), "GET, HEAD, OPTIONS");
    const Answer writes = ask("GET", "/api/v1/gateway/telnet");
    EXPECT_EQ(writes.status, 405);
    EXPECT_EQ(header(writes, "Allow"), "POST, OPTIONS");
    EXPECT_EQ(header(ask("GET", "/api/v1/gateway/telnet/0"), "Allow"), "PUT, DELETE, OPTIONS");
}

TEST_F(ApiTest, TakesNoParametersThatAreNotKnown)
{
    EXPECT_EQ(status("PUT", "/api/v1/gateway/qos/0?validate=maybe", good), 400);
    EXPECT_EQ(status("PUT", "/api/v1/gateway/qos/0?dryRun=1", good), 400);
    EXPECT_EQ(status("PUT", "/api/v1/gateway/qos/0?dryrun=true", good), 400);
    EXPECT_EQ(status("GET", "/api/v1/resources?x=1"), 400);
    EXPECT_EQ(status("GET", "/%"), 400);
    EXPECT_EQ(record(), before);
}

TEST_F(ApiTest, TakesDocumentsOfTheirTypeAlone)
{
    const auto put = [this](const std::string &type, const char *target) {
        return status("PUT", target, "12345678", {{"Content-Type", type}});
    };
    EXPECT_EQ(put("text/plain", "/api/v1/gateway/qos/0"), 415);
    EXPECT_EQ(put("", "/api/v1/gateway/qos/0"), 415);
    EXPECT_EQ(put("application/x-www-form-urlencoded", "/api/v1/gateway/qos/0"), 415);
    EXPECT_EQ(put("application/json", "/api/v1/gateway/backup_restore/0"), 415);
    EXPECT_EQ(put("application/octet-stream", "/api/v1/gateway/backup_restore/0"), 200);
    EXPECT_EQ(status("PUT", "/api/v1/gateway/qos/0", good, {{"Content-Type", "application/json; charset=utf-8"}}), 200);
    EXPECT_EQ(status("PUT", "/api/v1/gateway/qos/0", good, {{"Content-Type", "application/vnd.a+json"}}), 200);
    EXPECT_EQ(status("POST", "/api/v1/check/qos", good, {{"Content-Type", "text/plain"}}), 415);
    EXPECT_EQ(status("PUT", "/api/v1/gateway/qos/0", good, {{"Content-Encoding", "gzip"}}), 415);
}

TEST_F(ApiTest, AsksThePlugInForNoOtherNumberOfBytesThanARawResourceHas)
{
    const Headers raw{{"Content-Type", "application/octet-stream"}};
    for (const char *mode : {"ignore", "warn"})
        EXPECT_EQ(status("PUT", "/api/v1/gateway/backup_restore/0?validate="s + mode, "1234567", raw), 422) << mode;
    EXPECT_EQ(ask("GET", "/api/v1/gateway/backup_restore/0").body, "\0\1\2\3\4\5\6\7"s);
    EXPECT_THAT(ask("PUT", "/api/v1/gateway/backup_restore/0", "\7\0\0\0\0\0\0\1"s, raw).body,
                HasSubstr(R"("record": "07 00 00 00 00 00 00 01")"));
}

TEST_F(ApiTest, TakesNoBodyThatIsTooLong)
{
    const std::string blanks(Api::largest_body - std::string(good).size(), ' ');
    EXPECT_EQ(status("PUT", "/api/v1/gateway/qos/0", good + blanks), 200);
    EXPECT_EQ(status("PUT", "/api/v1/gateway/qos/0", good + blanks + " "), 413);
    const auto refused = [this](const std::string &length) {
        const std::optional<Answer> answer =
            api.refusal(request("PUT", "/api/v1/gateway/qos/0", "", {{"Content-Length", length}}));
        return answer ? answer->status : 0;
    };
    EXPECT_EQ(refused("1048576"), 0);
    EXPECT_EQ(refused("1048577"), 413);
    EXPECT_EQ(refused("0000000000001"), 0);
    EXPECT_EQ(refused("99999999999999999999999999"), 413);
    EXPECT_EQ(refused("-1"), 400);
    EXPECT_EQ(refused(""), 400);
    EXPECT_EQ(refused("1x"), 400);
}

TEST_F(ApiTest, RefusesForeignHosts)
{
    const auto with_host = [this](const std::string &host) {
        Request request = this->request("GET", "/api/v1/resources");
        request.headers.erase("Host");
        request.headers.emplace("Host", host);
        return api.answer(request).status;
    };
    for (const char *own : {"localhost:8098", "LocalHost:8098", "127.0.0.1:8098", "[::1]:8098"})
        EXPECT_EQ(with_host(own), 200) << own;
    for (const char *foreign : {"evil.example:8098", "localhost", "localhost:8099", "localhost.evil.example:8098",
                                "127.0.0.1:80988", "192.168.1.1:8098", "", "0.0.0.0:8098"})
        EXPECT_EQ(with_host(foreign), 403) << foreign;
    Request request = this->request("GET", "/api/v1/resources");
    request.headers.emplace("Host", "evil.example");
    EXPECT_EQ(api.answer(request).status, 400);
    request.headers.erase("Host");
    EXPECT_EQ(api.answer(request).status, 400);
}

TEST_F(ApiTest, RefusesForeignOrigins)
{
    for (const char *own : {"http://localhost:8098", "http://127.0.0.1:8098", "http://[::1]:8098"})
        EXPECT_EQ(status("POST", "/api/v1/state:reset", "", {{"Origin", own}}), 204) << own;
    for (const char *foreign : {"http://evil.example", "null", "https://localhost:8098", "http://localhost:3000", ""})
        EXPECT_EQ(status("POST", "/api/v1/state:reset", "", {{"Origin", foreign}}), 403) << foreign;
    EXPECT_EQ(header(ask("GET", "/", "", {{"Origin", "http://localhost:8098"}}), "Access-Control-Allow-Origin"), "");
}

TEST_F(ApiTest, LetsPagesOfOneOtherOriginAskWhereThatIsAllowed)
{
    Api open(state, {8098, "http://localhost:3000", folder, page});
    const Answer answer = open.answer(request("GET", "/api/v1/ids/qos", "", {{"Origin", "http://localhost:3000"}}));
    EXPECT_EQ(answer.status, 200);
    EXPECT_EQ(header(answer, "Access-Control-Allow-Origin"), "http://localhost:3000");
    EXPECT_EQ(header(answer, "Vary"), "Origin");
    const Answer preflight =
        open.answer(request("OPTIONS", "/api/v1/gateway/qos/0", "",
                            {{"Origin", "http://localhost:3000"}, {"Access-Control-Request-Method", "PUT"}}));
    EXPECT_EQ(preflight.status, 204);
    EXPECT_THAT(std::string(header(preflight, "Access-Control-Allow-Methods")), HasSubstr("PUT"));
    EXPECT_THAT(std::string(header(preflight, "Access-Control-Allow-Headers")), HasSubstr("If-Match"));
    EXPECT_EQ(open.answer(request("GET", "/", "", {{"Origin", "http://localhost:3001"}})).status, 403);
    EXPECT_EQ(header(open.answer(request("GET", "/")), "Access-Control-Allow-Origin"), "");
}

TEST_F(ApiTest, SendsTheHeadersThatKeepABrowserSafeWithEveryAnswer)
{
    for (const Answer &answer : {ask("GET", "/"), ask("GET", "/nowhere"), ask("GET", "/api/v1/ids/qos"),
                                 ask("GET", "/", "", {{"Origin", "null"}})}) {
        EXPECT_THAT(std::string(header(answer, "Content-Security-Policy")), StartsWith("default-src 'self';"));
        EXPECT_THAT(std::string(header(answer, "Content-Security-Policy")), Not(HasSubstr("unsafe")));
        EXPECT_EQ(header(answer, "X-Content-Type-Options"), "nosniff");
    }
    EXPECT_EQ(header(ask("GET", "/api/v1/ids/qos"), "Cache-Control"), "no-store");
}

} // namespace

} // namespace kelmora_host::api_test
