#include "host/cli/report.h"

#include "host/cli/diagnostics.h"
#include "host/contract/pointer.h"

#include <algorithm>
#include <fmt/format.h>
#include <stdexcept>
#include <vector>

namespace kelmora_host {

namespace {

/// An error or a finding, as a line tells it.
struct Line {
    std::optional<Position> position;
    Severity severity;
    std::string message;
    std::string_view code;
};

std::string with_pointer(std::string_view pointer, std::string_view message)
{
    return pointer.empty() ? std::string(message) : fmt::format("{}: {}", pointer, message);
}

/// The key that an error is about, where its field is another one; else empty.
std::string other_key(const LocatedError &located)
{
    const std::vector<std::string> tokens = tokens_of(located.pointer.value_or(""));
    const std::string &field = located.error.field;
    const bool same = tokens.empty() || field.substr(field.find_last_of(".:") + 1) == tokens.back();
    return same ? "" : tokens.back();
}

/// accepted: the plug-in reported it, and went on. first: it is the one of several that the plug-in reports.
Line line_of(const LocatedError &located, bool accepted, bool first)
{
    const Severity severity = accepted ? Severity::warning : Severity::error;
    const std::string_view code = accepted ? "reported" : "rejected";
    const Error &error = located.error;
    if (!located.detail.empty())
        return {located.position, severity, fmt::format("{}: {}", error.message, located.detail), "syntax"};
    if (error.source == program_name) // the host's own, so of no field
        return {located.position, severity, error.message, code};
    std::string message = fmt::format("{} (field \"{}\", source \"{}\")", error.message, error.field, error.source);
    if (const std::string key = other_key(located); !key.empty())
        message += fmt::format("; the key is \"{}\"", key);
    if (first)
        message += "; this one is reported";
    return {located.position, severity, with_pointer(located.pointer.value_or(""), message),
            located.later ? "later" : code};
}

std::string severity_in(const Style &style, Severity severity)
{
    const std::string text = fmt::format("{}:", name_of(severity));
    switch (severity) {
    case Severity::error:
        return style.error(text);
    case Severity::warning:
        return style.warning(text);
    case Severity::note:
        break;
    }
    return style.note(text);
}

void set(const Json &object, const char *key, json_t *value) { json_object_set_new(object.get(), key, value); }

json_t *parsed(const std::string &json) { return json_loads(json.c_str(), JSON_DECODE_ANY, nullptr); }

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

/// The record as JSON; NULL in JSON when there is none.
json_t *record_as_json(const CheckedFile &checked)
{
    if (checked.record->empty())
        return json_null();
    json_t *record = checked.raw ? json_text(*checked.record) : parsed(*checked.record);
    if (record == nullptr)
        throw Failure(Status::rejected, fmt::format("what the plug-in wrote is no JSON: {}", *checked.record));
    return record;
}

} // namespace

std::string diagnostics(const CheckedFile &checked, const Style &style)
{
    std::vector<Line> lines;
    const bool several = std::ranges::any_of(checked.check.errors, &LocatedError::later);
    for (const LocatedError &error : checked.check.errors)
        lines.push_back(line_of(error, checked.check.result != CheckResult::rejected, several && !error.later));
    for (const Finding &finding : checked.check.findings)
        lines.push_back(
            {finding.position, finding.severity, with_pointer(finding.pointer, finding.message), finding.code});
    std::ranges::stable_sort(lines, {}, [](const Line &line) {
        const Position position = line.position.value_or(Position{0, 0});
        return std::pair(position.line, position.column);
    });
    std::string text;
    for (const Line &line : lines) {
        const std::string place =
            line.position ? fmt::format("{}:{}:{}:", checked.file, line.position->line, line.position->column)
                          : fmt::format("{}:", checked.file);
        text += fmt::format("{} {} {} [{}]\n", style.heading(place), severity_in(style, line.severity), line.message,
                            line.code);
    }
    return text;
}

Json as_json(const CheckedFile &checked)
{
    Json object(json_object());
    set(object, "file", json_text(checked.file));
    set(object, "resource", json_text(checked.resource));
    set(object, "result", json_text(name_of(checked.check.result)));
    if (checked.record)
        set(object, "record", record_as_json(checked));
    json_t *errors = json_array();
    set(object, "errors", errors);
    for (const LocatedError &error : checked.check.errors)
        json_array_append_new(errors, error_as_json(error));
    json_t *findings = json_array();
    set(object, "findings", findings);
    for (const Finding &finding : checked.check.findings)
        json_array_append_new(findings, finding_as_json(finding));
    return object;
}

} // namespace kelmora_host
