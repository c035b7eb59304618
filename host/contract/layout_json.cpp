#include "host/contract/layout.h"
#include "host/json.h"

namespace kelmora_host {

namespace {

/// {"mips": 4, "x86-64": 8}: what number_of(layout) is on each target.
template <class NumberOf>
json_t *by_target(std::span<const Target> on, const std::vector<Layout> &layouts, NumberOf number_of)
{
    json_t *object = json_object();
    for (std::size_t i = 0; i < on.size(); ++i)
        json_object_set_new(object, std::string(on[i].name).c_str(),
                            json_integer(static_cast<json_int_t>(number_of(layouts[i]))));
    return object;
}

/// One struct or union; layouts has those of each target.
json_t *struct_as_json(std::span<const Target> on, const std::vector<Layout> &layouts)
{
    const Layout &any = layouts.front();
    json_t *object = json_object();
    json_object_set_new(object, "name", json_text(any.name));
    json_object_set_new(object, "kind", json_string(any.is_union ? "union" : "struct"));
    if (!any.meaning.empty())
        json_object_set_new(object, "meaning", json_text(any.meaning));
    json_object_set_new(object, "size", by_target(on, layouts, [](const Layout &layout) { return layout.size; }));
    json_object_set_new(object, "alignment",
                        by_target(on, layouts, [](const Layout &layout) { return layout.alignment; }));
    json_t *fields = json_array();
    for (std::size_t i = 0; i < any.fields.size(); ++i) {
        const FieldLayout &field = any.fields[i];
        json_t *entry = json_object();
        json_object_set_new(entry, "name", json_text(field.name));
        json_object_set_new(entry, "type", json_text(field.type));
        json_object_set_new(entry, "offset",
                            by_target(on, layouts, [i](const Layout &layout) { return layout.fields[i].offset; }));
        json_object_set_new(entry, "width",
                            by_target(on, layouts, [i](const Layout &layout) { return layout.fields[i].size; }));
        if (field.count != 0)
            json_object_set_new(entry, "count", json_integer(static_cast<json_int_t>(field.count)));
        if (!field.record.empty())
            json_object_set_new(entry, "record", json_text(field.record));
        if (!field.meaning.empty())
            json_object_set_new(entry, "meaning", json_text(field.meaning));
        json_array_append_new(fields, entry);
    }
    json_object_set_new(object, "fields", fields);
    return object;
}

/// {"resource": ..., "records": [...]}
Json resource_as_json(const Resource &resource, std::span<const Target> on)
{
    Json object(json_object());
    json_object_set_new(object.get(), "resource", json_text(resource.name));
    json_t *records = json_array();
    for (const RecordType *type : record_types(resource)) {
        std::vector<Layout> layouts;
        for (const Target &target : on)
            layouts.push_back(layout_of(*type, target));
        json_array_append_new(records, struct_as_json(on, layouts));
    }
    json_object_set_new(object.get(), "records", records);
    return object;
}

} // namespace

std::string layouts_as_json(const Resource &resource, std::span<const Target> on)
{
    return to_text(resource_as_json(resource, on));
}

std::string layouts_as_json(std::span<const Target> on)
{
    std::vector<Layout> nodes;
    for (const Target &target : on)
        nodes.push_back(node_layout(target));
    Json node(json_object());
    json_t *records = json_array();
    json_array_append_new(records, struct_as_json(on, nodes));
    json_object_set_new(node.get(), "records", records);

    const Json list(json_array());
    json_array_append_new(list.get(), node.release());
    for (const Resource &resource : resources())
        json_array_append_new(list.get(), resource_as_json(resource, on).release());
    return to_text(list);
}

} // namespace kelmora_host
