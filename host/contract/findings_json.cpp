#include "host/contract/findings_json.h"

#include "host/contract/pointer.h"

#include <vector>

namespace kelmora_host {

namespace {

void set_place(const Json &object, const std::optional<std::string> &pointer, const std::optional<Position> &position)
{
    if (pointer)
        set(object, "pointer", json_text(*pointer));
    if (position) {
        set(object, "line", json_integer(position->line));
        set(object, "column", json_integer(position->column));
    }
}

json_t *error_as_json(const LocatedError &located)
{
    Json object(json_object());
    set(object, "field", json_text(located.error.field));
    set(object, "message", json_text(located.error.message));
    set(object, "source", json_text(located.error.source));
    set_place(object, located.pointer, located.position);
    if (const std::string key = other_key(located); !key.empty())
        set(object, "key", json_text(key));
    if (!located.detail.empty())
        set(object, "detail", json_text(located.detail));
    if (located.later)
        set(object, "later", json_true());
    return object.release();
}

json_t *finding_as_json(const Finding &finding)
{
    Json object(json_object());
    set(object, "code", json_text(finding.code));
    set(object, "severity", json_text(name_of(finding.severity)));
    set_place(object, finding.pointer, finding.position);
    if (finding.sent)
        set(object, "sent", parsed(*finding.sent));
    if (finding.stored)
        set(object, "stored", parsed(*finding.stored));
    set(object, "message", json_text(finding.message));
    return object.release();
}

} // namespace

std::string other_key(const LocatedError &located)
{
    const std::vector<std::string> tokens = tokens_of(located.pointer.value_or(""));
    const std::string &field = located.error.field;
    const bool same = tokens.empty() || field.substr(field.find_last_of(".:") + 1) == tokens.back();
    return same ? "" : tokens.back();
}

json_t *errors_as_json(const std::vector<LocatedError> &errors)
{
    json_t *list = json_array();
    for (const LocatedError &error : errors)
        json_array_append_new(list, error_as_json(error));
    return list;
}

json_t *findings_as_json(const std::vector<Finding> &findings)
{
    json_t *list = json_array();
    for (const Finding &finding : findings)
        json_array_append_new(list, finding_as_json(finding));
    return list;
}

json_t *record_as_json(const std::string &record, bool raw)
{
    if (record.empty())
        return json_null();
    json_t *json = raw ? json_text(record) : parsed(record);
    if (json == nullptr)
        throw UnreadableRecord("what the plug-in wrote is no JSON: " + record);
    return json;
}

Json as_json(const CheckedFile &checked)
{
    Json object(json_object());
    if (!checked.file.empty())
        set(object, "file", json_text(checked.file));
    set(object, "resource", json_text(checked.resource));
    set(object, "result", json_text(name_of(checked.check.result)));
    if (checked.record)
        set(object, "record", record_as_json(*checked.record, checked.raw));
    set(object, "errors", errors_as_json(checked.check.errors));
    set(object, "findings", findings_as_json(checked.check.findings));
    return object;
}

} // namespace kelmora_host
