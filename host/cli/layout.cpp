#include "host/cli/layout.h"

#include <algorithm>
#include <fmt/format.h>
#include <vector>

namespace kelmora_host {

namespace {

/// The table of a struct or union; layouts has those of each target.
std::string table(std::span<const Target> on, const std::vector<Layout> &layouts, const Style &style)
{
    const Layout &any = layouts.front();
    std::string sizes;
    for (std::size_t i = 0; i < on.size(); ++i)
        sizes += fmt::format("{}{} bytes at multiples of {} on {}", i == 0 ? "" : ", ", layouts[i].size,
                             layouts[i].alignment, on[i].name);
    std::string text = fmt::format("{} {}: {}\n", any.is_union ? "union" : "struct", style.heading(any.name), sizes);

    std::size_t name_width = 5;
    std::size_t type_width = 4;
    for (const FieldLayout &field : any.fields) {
        name_width = std::max(name_width, field.name.size());
        type_width = std::max(type_width, field.type.size());
    }
    std::string head;
    for (const Target &target : on)
        head += fmt::format("{:>10}  {:>5}  ", fmt::format("{} AT", target.name), "WIDTH");
    text += style.heading(fmt::format("{}{:<{}}  TYPE", head, "FIELD", name_width)) + "\n";
    for (std::size_t i = 0; i < any.fields.size(); ++i) {
        for (const Layout &layout : layouts)
            text += fmt::format("{:>10}  {:>5}  ", layout.fields[i].offset, layout.fields[i].size);
        const FieldLayout &field = any.fields[i];
        text += fmt::format("{}{:{}}  {}\n", style.key(field.name), "", name_width - field.name.size(), field.type);
    }
    return text;
}

std::string table_of(const RecordType &type, std::span<const Target> on, const Style &style)
{
    std::vector<Layout> layouts;
    for (const Target &target : on)
        layouts.push_back(layout_of(type, target));
    return table(on, layouts, style);
}

} // namespace

std::string layouts_as_tables(const Resource &resource, std::span<const Target> on, const Style &style)
{
    std::string text;
    for (const RecordType *type : record_types(resource))
        text += (text.empty() ? "" : "\n") + table_of(*type, on, style);
    return text;
}

std::string layouts_as_tables(std::span<const Target> on, const Style &style)
{
    std::vector<Layout> nodes;
    for (const Target &target : on)
        nodes.push_back(node_layout(target));
    std::string text = table(on, nodes, style);
    for (const RecordType *type : all_record_types())
        text += "\n" + table_of(*type, on, style);
    return text;
}

} // namespace kelmora_host
