#include "host/contract/findings_json.h"

#include <gtest/gtest.h>

namespace kelmora_host::findings_json_test {

namespace {

const Finding cut{"cut", Severity::warning, "/ssid", {5, 13}, "\"long\"", "\"lo\"", "4 bytes sent, 2 kept"};
const Finding unknown{"unknown", Severity::warning, "/a", {1, 2}, std::nullopt, std::nullopt, "no such key"};

TEST(FindingsJson, TellsAllOfADocument)
{
    const CheckedFile checked{"a.json", "wireless", {CheckResult::lossy, {}, {cut, unknown}}, "{\"ssid\": \"lo\"}"};
    EXPECT_EQ(
        to_text(as_json(checked)),
        R"({"file": "a.json", "resource": "wireless", "result": "lossy", "record": {"ssid": "lo"}, "errors": [], )"
        R"("findings": [{"code": "cut", "severity": "warning", "pointer": "/ssid", "line": 5, "column": 13, )"
        R"("sent": "long", "stored": "lo", "message": "4 bytes sent, 2 kept"}, )"
        R"({"code": "unknown", "severity": "warning", "pointer": "/a", "line": 1, "column": 2, )"
        R"("message": "no such key"}]})");
}

TEST(FindingsJson, LeavesOutAFileThatHasNoName)
{
    const CheckedFile checked{"", "radio", {CheckResult::lossless, {}, {}}, std::nullopt};
    EXPECT_EQ(to_text(as_json(checked)),
              R"({"resource": "radio", "result": "lossless", "errors": [], "findings": []})");
}

TEST(FindingsJson, TellsAnErrorWithItsPlaceAndTheKeyThatItsFieldIsNot)
{
    const LocatedError error{{"download", "not found", "json"}, "/global_download", Position{2, 3}, "why", true};
    EXPECT_EQ(other_key(error), "global_download");
    const Json list(errors_as_json({error, {{"f", "m", "s"}, std::nullopt, std::nullopt, ""}}));
    EXPECT_EQ(to_text(list), R"([{"field": "download", "message": "not found", "source": "json", )"
                             R"("pointer": "/global_download", "line": 2, "column": 3, "key": "global_download", )"
                             R"("detail": "why", "later": true}, {"field": "f", "message": "m", "source": "s"}])");
}

TEST(FindingsJson, TellsNoRecordAsNullAndARawOneAsAString)
{
    EXPECT_EQ(to_text(Json(record_as_json("", false))), "null");
    EXPECT_EQ(to_text(Json(record_as_json("00 7f", true))), "\"00 7f\"");
    EXPECT_THROW((void)record_as_json("{", false), UnreadableRecord);
}

} // namespace

} // namespace kelmora_host::findings_json_test
