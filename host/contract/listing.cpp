#include "host/contract/listing.h"

#include "host/contract/learn_output.h"
#include "host/names.h"

#include <fmt/format.h>

namespace kelmora_host {

std::string_view words_of(Directions directions)
{
    switch (directions) {
    case Directions::to_only:
        return "read-only";
    case Directions::from_only:
        return "write-only";
    case Directions::both:
        break;
    }
    return "both";
}

std::vector<Resource> registered(std::string_view group)
{
    std::vector<Resource> found;
    for (const Resource &resource : resources()) {
        if (Registry::instance().find(resource.number) != nullptr && (group.empty() || resource.group == group))
            found.push_back(resource);
    }
    return found;
}

std::string no_such_resource(std::string_view name)
{
    std::vector<std::string> names;
    for (const Resource &resource : resources())
        names.emplace_back(resource.name);
    const std::vector<std::string> similar = similar_names(name, names);
    return fmt::format("no resource \"{}\"{}", name, similar.empty() ? "" : "; similar: " + enumeration(similar));
}

std::optional<RootShape> root_of(const Resource &resource, const Registration &translators)
{
    if (is_raw(resource) || resource.directions == Directions::from_only)
        return std::nullopt;
    return learn_root(resource, translators);
}

std::string_view shape_of(const Resource &resource, const std::optional<RootShape> &root)
{
    if (is_raw(resource))
        return "8 raw bytes";
    if (!root)
        return "an object";
    switch (*root) {
    case RootShape::by_list_flag:
        return "list or object";
    case RootShape::array:
        return "always a list";
    case RootShape::object:
        break;
    }
    return "always an object";
}

std::string list_as_json(std::string_view group, const std::function<std::size_t(const Resource &)> &records)
{
    const Json list(json_array());
    for (const Resource &resource : registered(group)) {
        const std::optional<RootShape> root = root_of(resource, *Registry::instance().find(resource.number));
        Json object(json_object());
        set(object, "number", json_integer(resource.number));
        set(object, "resource", json_text(resource.name));
        set(object, "directions", json_text(words_of(resource.directions)));
        set(object, "shape", json_text(shape_of(resource, root)));
        set(object, "group", json_text(resource.group));
        if (records)
            set(object, "records", json_integer(static_cast<json_int_t>(records(resource))));
        json_array_append_new(list.get(), object.release());
    }
    return to_text(list);
}

} // namespace kelmora_host
