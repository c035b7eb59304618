#include "host/cli/report.h"

#include "host/cli/diagnostics.h"

#include <algorithm>
#include <fmt/format.h>
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

} // namespace kelmora_host
