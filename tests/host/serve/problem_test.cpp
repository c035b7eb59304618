#include "host/serve/problem.h"

#include <gtest/gtest.h>

namespace kelmora_host::problem_test {

namespace {

TEST(Problem, SaysTheStatusInWordsToo)
{
    const Answer answer = problem(404, "no such thing");
    EXPECT_EQ(answer.status, 404);
    EXPECT_EQ(answer.content_type, "application/problem+json");
    EXPECT_EQ(answer.body,
              R"({"type": "about:blank", "title": "Not Found", "status": 404, "detail": "no such thing"})");
}

TEST(Problem, IsJsonWhateverIsRepeatedInIt)
{
    EXPECT_EQ(problem(400, "\xFF").body,
              R"~({"type": "about:blank", "title": "Bad Request", "status": 400, "detail": "(not UTF-8)"})~");
    EXPECT_EQ(problem(400, "a\"b").body,
              R"({"type": "about:blank", "title": "Bad Request", "status": 400, "detail": "a\"b"})");
}

TEST(Problem, HasTheErrorsOfARejectedDocument)
{
    const Check check{CheckResult::rejected, {{{"power", "not found", "json"}, "/power", Position{1, 2}, ""}}, {}};
    const Answer answer = document_problem(check, "nothing is stored");
    EXPECT_EQ(answer.status, 422);
    EXPECT_EQ(
        answer.body,
        R"({"type": "urn:kelmora-host:rejected", "title": "The document is rejected", "status": 422, )"
        R"("detail": "nothing is stored", "errors": [{"field": "power", "message": "not found", "source": "json", )"
        R"("pointer": "/power", "line": 1, "column": 2}], "findings": []})");
}

TEST(Problem, HasTheFindingsOfALossyDocument)
{
    const Check check{CheckResult::lossy, {}, {{"cut", Severity::warning, "/a", {1, 2}, {}, {}, "cut"}}};
    EXPECT_EQ(document_problem(check, "nothing is stored").body,
              R"({"type": "urn:kelmora-host:lossy", "title": "Something of the document would be lost", )"
              R"("status": 422, "detail": "nothing is stored", "errors": [], "findings": [{"code": "cut", )"
              R"("severity": "warning", "pointer": "/a", "line": 1, "column": 2, "message": "cut"}]})");
}

} // namespace

} // namespace kelmora_host::problem_test
