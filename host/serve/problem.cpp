#include "host/serve/problem.h"

#include "host/contract/findings_json.h"
#include "host/json.h"

namespace kelmora_host {

namespace {

constexpr const char *content_type = "application/problem+json";

Json problem_object(std::string_view type, std::string_view title, int status, std::string_view detail)
{
    Json object(json_object());
    set(object, "type", json_text(type));
    set(object, "title", json_text(title));
    set(object, "status", json_integer(status));
    // What somebody sent may be in it, and be no UTF-8.
    json_t *text = json_text(detail);
    set(object, "detail", text != nullptr ? text : json_text("(not UTF-8)"));
    return object;
}

} // namespace

Answer problem(int status, std::string_view detail)
{
    return {status, content_type, to_text(problem_object("about:blank", reason_of(status), status, detail)), {}};
}

Answer document_problem(const Check &check, std::string_view detail)
{
    constexpr int status = 422;
    const bool rejected = check.result == CheckResult::rejected;
    const Json object = problem_object(
        rejected ? "urn:kelmora-host:rejected" : "urn:kelmora-host:lossy",
        rejected ? "The document is rejected" : "Something of the document would be lost", status, detail);
    set(object, "errors", errors_as_json(check.errors));
    set(object, "findings", findings_as_json(check.findings));
    return {status, content_type, to_text(object), {}};
}

} // namespace kelmora_host
