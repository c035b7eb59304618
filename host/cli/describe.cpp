#include "host/cli/describe.h"

#include "host/contract/key_places.h"
#include "host/contract/key_tree.h"
#include "host/contract/wording.h"
#include "host/names.h"

#include <algorithm>
#include <array>
#include <fmt/format.h>
#include <fmt/ranges.h>

namespace kelmora_host {

namespace {

constexpr std::size_t gap = 2;

struct KeyRow {
    std::array<std::string, 5> cells;
    std::vector<std::string> remarks; ///< below it
    std::size_t depth = 0;
};

std::string error_text(const Error &error, std::string_view key)
{
    std::string text = in_quotes(error.message);
    if (error.field != key)
        text += ", field " + in_quotes(error.field);
    if (error.source != "json")
        text += ", source " + in_quotes(error.source);
    return text;
}

std::string field_cell(const std::vector<KeyField> &fields)
{
    // A chain's type says nothing that its elements do not say.
    return fields.size() == 1 && !fields.front().type.starts_with("struct ")
               ? fmt::format("{} {}", fields.front().type, fields.front().path)
               : fields_of(fields);
}

std::string name_cell(const std::string &name) { return name == "*" ? "(element)" : name; }

/// The word for a column, and the whole phrase below when it is more than a word.
std::string shortened(const std::string &phrase, std::string_view verb, std::vector<std::string> &remarks)
{
    if (!phrase.starts_with("when ") && !phrase.starts_with("at least "))
        return phrase;
    remarks.push_back(std::string(verb) + " " + phrase);
    return phrase.starts_with("when ") ? "when ..." : "or other";
}

void add_rows(const KeyTree<InputKey> &tree, const Input &input, std::size_t depth, std::vector<KeyRow> &rows)
{
    for (const KeyTree<InputKey> &child : tree.children) {
        KeyRow row;
        row.depth = depth;
        row.cells[0] = name_cell(child.name);
        if (const InputKey *key = child.key) {
            row.remarks.emplace_back(meaning_of(*key));
            row.cells[1] = type_of(*key);
            row.cells[2] = range_of(*key);
            row.cells[3] = child.name == "*" ? "" : shortened(required_of(*key, input), "required", row.remarks);
            row.cells[4] = field_cell(key->fields);
            if (!key->looked_at_when.empty())
                row.remarks.push_back("looked at " + looked_at_of(*key));
            if (!key->only_with.empty())
                row.remarks.push_back("stored only with " + others_of(*key));
            if (!key->values.empty())
                row.remarks.push_back(fmt::format("values that differ in effect: {}", fmt::join(key->values, ", ")));
            if (key->saturates)
                row.remarks.emplace_back("what does not fit becomes the nearest that does");
            if (key->too_long == Excess::rejected)
                row.remarks.emplace_back("a longer one is rejected");
            if (key->empty_is_skipped)
                row.remarks.emplace_back("an empty one is skipped");
            if (key->too_many == Excess::rejected)
                row.remarks.emplace_back("more are rejected");
            else if (key->most && key->too_many != Excess::none)
                row.remarks.emplace_back("more are ignored");
            row.remarks.push_back(effect_of(*key));
            if (key->cleared_when_absent)
                row.remarks.emplace_back("absent: it is cleared");
            if (key->marked_when_absent)
                row.remarks.emplace_back("absent: the host is told");
            if (!key->also_sets.empty())
                row.remarks.push_back("it also sets " + fields_of(key->also_sets));
            if (key->absent)
                row.remarks.push_back("absent: " + error_text(*key->absent, child.name));
            if (key->unfit)
                row.remarks.push_back((key->refused ? "there: " : "of another type: ") +
                                      error_text(*key->unfit, child.name));
            if (key->unknown)
                row.remarks.push_back("of another value, and accepted: " + error_text(*key->unknown, child.name));
            if (key->out_of_size)
                row.remarks.push_back("out of size: " + error_text(*key->out_of_size, child.name));
        }
        rows.push_back(std::move(row));
        add_rows(child, input, depth + 1, rows);
    }
}

void add_rows(const KeyTree<OutputKey> &tree, std::size_t depth, std::vector<KeyRow> &rows)
{
    for (const KeyTree<OutputKey> &child : tree.children) {
        KeyRow row;
        row.depth = depth;
        row.cells[0] = name_cell(child.name);
        if (const OutputKey *key = child.key) {
            row.remarks.emplace_back(meaning_of(*key));
            row.cells[1] = types_of(*key);
            if (!key->like.empty())
                row.remarks.push_back("its elements are of the same form as those of " + key->like);
            row.cells[2] = range_of(*key);
            row.cells[3] = child.name == "*" ? "" : shortened(presence_of(*key), "written", row.remarks);
            row.cells[4] = field_cell(key->fields);
        }
        rows.push_back(std::move(row));
        add_rows(child, depth + 1, rows);
    }
}

/// The remarks as lines of at most line_width, several in one where they fit.
std::vector<std::string> lines_of(const KeyRow &row)
{
    const std::string indentation((row.depth + 2) * 2, ' ');
    std::vector<std::string> lines;
    for (const std::string &remark : row.remarks) {
        if (remark.empty())
            continue;
        if (!lines.empty() && lines.back().size() + 2 + remark.size() <= line_width)
            lines.back() += "; " + remark;
        else
            lines.push_back(indentation + remark);
    }
    return lines;
}

std::string table(std::vector<KeyRow> rows, const Style &style)
{
    std::array<std::size_t, 5> widths{};
    for (KeyRow &row : rows) {
        row.cells[0].insert(0, row.depth * 2, ' ');
        for (std::size_t i = 0; i < widths.size(); ++i)
            widths[i] = std::max(widths[i], row.cells[i].size());
    }
    std::string text;
    for (const KeyRow &row : rows) {
        const bool head = &row == &rows.front();
        std::string line;
        std::size_t column = 0;
        for (std::size_t i = 0; i < widths.size(); ++i) {
            const std::string &cell = row.cells[i];
            if (cell.empty())
                continue;
            std::size_t begin = 0;
            for (std::size_t j = 0; j < i; ++j)
                begin += widths[j] == 0 ? 0 : widths[j] + gap;
            line.append(begin - column, ' ');
            line += head || i != 0 ? cell : style.key(cell);
            column = begin + cell.size();
        }
        text += (head ? style.heading(line) : line) + "\n";
        for (const std::string &remark : lines_of(row))
            text += style.faint(remark) + "\n";
    }
    return text;
}

std::string root_of(const Output &output)
{
    std::string text = output.root == RootShape::by_list_flag ? "an object, or a list of them where a list is asked for"
                       : output.root == RootShape::array      ? "always a list of objects"
                                                              : "always an object";
    std::vector<std::string_view> remarks;
    if (output.nodes == NodesShown::head)
        remarks.emplace_back("of the first record alone");
    if (output.nodes == NodesShown::head_repeated)
        remarks.emplace_back("in a list the first record stands for each");
    if (output.empty_without_count)
        remarks.emplace_back("[] when there is no record");
    if (output.head_id)
        remarks.emplace_back("every record has the first one's id");
    if (output.pretty)
        remarks.emplace_back("over several lines");
    if (output.sorted)
        remarks.emplace_back("keys sorted by name");
    return remarks.empty() ? text + "\n" : fmt::format("{}:\n{}\n", text, fmt::join(remarks, "; "));
}

} // namespace

std::string contract_as_tables(const Contract &contract, const Style &style)
{
    const std::string name = style.heading(contract.resource->name);
    if (is_raw(*contract.resource))
        return fmt::format("{} moves {} raw bytes, no JSON\n", name, raw_size);
    std::string text;
    if (contract.output) {
        text += fmt::format("{} writes {}\n", name, root_of(*contract.output));
        std::vector<KeyRow> rows{{{"KEY", "TYPE", "RANGE", "WRITTEN", "C FIELD"}, {}, 0}};
        add_rows(key_tree(contract.output->keys), 0, rows);
        text += table(std::move(rows), style);
    } else {
        text += fmt::format("{} is write-only: nothing is written of it\n", name);
    }
    text += "\n";
    if (contract.input) {
        text += fmt::format("{} takes an object, whose keys are looked for in this order\n\n", name);
        std::vector<KeyRow> rows{{{"KEY", "TYPE", "RANGE", "REQUIRED", "C FIELD"}, {}, 0}};
        add_rows(key_tree(contract.input->keys), *contract.input, 0, rows);
        text += table(std::move(rows), style);
    } else {
        text += fmt::format("{} is read-only: whatever it is sent is accepted, and nothing is stored\n", name);
    }
    return text;
}

std::string find_key(const std::vector<Contract> &contracts, std::string_view name, const Style &style)
{
    std::string lines;
    for (const KeyPlace &place : key_places(contracts, name)) {
        lines += fmt::format("{} {} {}: {}", style.heading(place.contract->resource->name), place.direction,
                             style.key(place.path), place.type);
        if (!place.range.empty())
            lines += ", " + place.range;
        if (!place.meaning.empty())
            lines += "; " + style.faint(std::string(place.meaning));
        lines += "\n";
    }
    return lines;
}

} // namespace kelmora_host
