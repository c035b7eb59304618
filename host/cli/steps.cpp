#include "host/cli/steps.h"

#include "host/contract/trace_json.h"

#include <algorithm>
#include <fmt/format.h>
#include <vector>

namespace kelmora_host {

namespace {

/// The text, or its beginning when it is longer.
std::string shortened(std::string_view text, std::size_t width)
{
    std::string line(text.substr(0, text.find('\n')));
    if (line.size() == text.size() && line.size() <= width)
        return line;
    line.resize(std::min(line.size(), width - 3));
    while (!line.empty() && (static_cast<unsigned char>(line.back()) & 0xC0U) == 0x80U)
        line.pop_back();
    if (!line.empty() && (static_cast<unsigned char>(line.back()) & 0x80U) != 0)
        line.pop_back();
    return line + "...";
}

struct StepRow {
    std::string place;
    std::string pointer;
    std::string read;
    std::string found;
    std::string stored;
};

StepRow row_of(const Step &step)
{
    constexpr std::size_t widest = 32;
    StepRow row;
    row.pointer = step.pointer();
    row.read = fmt::format("{}", fmt::join(read_as(step), ", "));
    if (step.value == nullptr) {
        row.found = "absent";
        return row;
    }
    row.place = fmt::format("{}:{}", step.value->position.line, step.value->position.column);
    row.found = shortened(step.value->raw, widest);
    for (const Stored &stored : step.stored)
        row.stored +=
            fmt::format("{}{} = {}  (bytes {}..{})", row.stored.empty() ? "" : "; ", stored.path,
                        shortened(stored.json(), widest), stored.offset, stored.offset + stored.bytes.size() - 1);
    return row;
}

/// Code points: what a terminal shows as so many columns.
std::size_t width_of(const std::string &text)
{
    return static_cast<std::size_t>(
        std::ranges::count_if(text, [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U; }));
}

std::string padded(const std::string &text, std::size_t width)
{
    return text + std::string(width - std::min(width, width_of(text)), ' ');
}

} // namespace

std::string steps_as_table(const Trace &trace, const Style &style)
{
    std::vector<StepRow> rows{{"PLACE", "LOOKED FOR", "READ AS", "FOUND", "STORED"}};
    for (const Step &step : trace.steps)
        rows.push_back(row_of(step));
    StepRow widest;
    const auto widen = [](std::string &column, const std::string &text) {
        column.resize(std::max(column.size(), width_of(text)));
    };
    for (const StepRow &row : rows) {
        widen(widest.place, row.place);
        widen(widest.pointer, row.pointer);
        widen(widest.read, row.read);
        widen(widest.found, row.found);
    }
    std::string table;
    for (const StepRow &row : rows) {
        std::string line = fmt::format("{}  {}  {}  {}  {}", padded(row.place, widest.place.size()),
                                       padded(row.pointer, widest.pointer.size()), padded(row.read, widest.read.size()),
                                       padded(row.found, widest.found.size()), row.stored);
        line.erase(line.find_last_not_of(' ') + 1);
        if (&row == &rows.front())
            line = style.heading(line);
        else if (row.found == "absent")
            line = style.faint(line);
        table += line + "\n";
    }
    for (const TracedError &traced : trace.errors) {
        const Error &error = traced.error;
        table += fmt::format("{} {} (field \"{}\", source \"{}\")\n", style.error("error:"), error.message, error.field,
                             error.source);
    }
    table += trace.result == 1 ? "accepted\n" : "rejected; what is stored above stays stored\n";
    return table;
}

} // namespace kelmora_host
