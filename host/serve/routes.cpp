#include "host/serve/routes.h"

#include <cstddef>

namespace kelmora_host {

namespace {

constexpr std::array<std::string_view, 3> validations{"warn", "ignore", "strict"};
constexpr std::array<std::string_view, 2> booleans{"false", "true"};

constexpr Parameter validate{"validate",
                             "ignore: what would be lost is not looked for; warn: it is told; strict: a document of "
                             "which something would be lost is refused",
                             validations};
constexpr Parameter dry_run{"dryRun", "Nothing is stored", booleans};

constexpr std::array put_parameters{validate, dry_run};
constexpr std::array post_parameters{Parameter{"id", "Of the new record: 1 to 128 bytes", {}, true}, validate, dry_run};
constexpr std::array target_parameters{
    Parameter{"id", "Of the record that the document would go into; the first one by default", {}},
    Parameter{"new", "The document would make a record: of that id, where one is given", booleans}};

constexpr std::array ok{200};
constexpr std::array no_content{204};
constexpr std::array ok_or_missing{200, 404};
constexpr std::array cached{200, 304};
constexpr std::array cached_or_missing{200, 304, 404};
constexpr std::array put_statuses{200, 404, 412, 413, 415, 422};
constexpr std::array post_statuses{201, 200, 409, 413, 415, 422};
constexpr std::array delete_statuses{204, 404, 412};
constexpr std::array check_statuses{200, 404, 413, 415};
constexpr std::array trace_statuses{200, 404, 413, 415, 422};

// The page's own, which programs have no use for, have no summary.
constexpr std::array route_table{
    Route{"GET", "/api/v1/resources", Operation::list_resources, "The resources", Body::none, {}, ok},
    Route{"GET",
          "/api/v1/resources/{resource}",
          Operation::get_contract,
          "What a resource takes and writes, as learned from the plug-in",
          Body::none,
          {},
          ok},
    Route{"GET", "/api/v1/keys", Operation::list_keys, "All keys of all resources", Body::none, {}, ok},
    Route{"GET",
          "/api/v1/ids/{resource}",
          Operation::list_ids,
          "The ids of the records, in their order",
          Body::none,
          {},
          ok},
    Route{"GET",
          "/api/v1/gateway/{resource}",
          Operation::get_records,
          "All records, exactly as the plug-in writes them",
          Body::none,
          {},
          cached},
    Route{"POST", "/api/v1/gateway/{resource}", Operation::post_record, "A new record out of a document",
          Body::document, post_parameters, post_statuses},
    Route{"GET",
          "/api/v1/gateway/{resource}/{id}",
          Operation::get_record,
          "A record, exactly as the plug-in writes it",
          Body::none,
          {},
          cached_or_missing},
    Route{"PUT", "/api/v1/gateway/{resource}/{id}", Operation::put_record,
          "Has the plug-in read a document into a record", Body::document, put_parameters, put_statuses},
    Route{"DELETE",
          "/api/v1/gateway/{resource}/{id}",
          Operation::delete_record,
          "Removes a record",
          Body::none,
          {},
          delete_statuses},
    Route{"POST", "/api/v1/check/{resource}", Operation::check, "What would become of a document", Body::text,
          target_parameters, check_statuses},
    Route{"POST", "/api/v1/trace/{resource}", Operation::trace, "Every step of the plug-in's in a document", Body::text,
          target_parameters, trace_statuses},
    Route{"POST",
          "/api/v1/state:reset",
          Operation::reset,
          "Brings the state of the beginning back",
          Body::none,
          {},
          no_content},
    Route{"GET",
          "/schemas/{file}",
          Operation::get_schema,
          "A JSON Schema: RESOURCE.DIRECTION.schema.json",
          Body::none,
          {},
          ok_or_missing},
    Route{"GET",
          "/types/kelmora.d.ts",
          Operation::get_types,
          "The TypeScript types of all resources",
          Body::none,
          {},
          ok},
    Route{"GET", "/openapi.json", Operation::get_openapi, "This document", Body::none, {}, ok},
    Route{"GET", "/docs/{file}", Operation::get_docs, "", Body::none, {}, ok_or_missing},
    Route{"GET", "/page/{file}", Operation::get_asset, "", Body::none, {}, cached_or_missing},
    Route{"GET", "/", Operation::get_page, "", Body::none, {}, cached},
};

} // namespace

std::span<const Route> routes() { return route_table; }

bool matches(const Route &route, std::span<const std::string> segments, PathArguments &arguments)
{
    PathArguments found;
    std::string_view path = route.path.substr(1);
    for (std::size_t i = 0; i < segments.size(); ++i) {
        const std::size_t end = path.find('/');
        const std::string_view wanted = path.substr(0, end);
        if (wanted == "{file}") {
            arguments = std::move(found);
            arguments.file.assign(segments.begin() + static_cast<std::ptrdiff_t>(i), segments.end());
            return true;
        }
        if (wanted == "{resource}")
            found.resource = segments[i];
        else if (wanted == "{id}")
            found.id = segments[i];
        else if (wanted != segments[i])
            return false;
        const bool last = i + 1 == segments.size();
        if (last != (end == std::string_view::npos))
            return false;
        path.remove_prefix(last ? 0 : end + 1);
    }
    arguments = std::move(found);
    return true;
}

bool has_direction(const Resource &resource, Operation operation)
{
    switch (operation) {
    case Operation::get_records:
    case Operation::get_record:
        return resource.directions != Directions::from_only;
    case Operation::put_record:
    case Operation::post_record:
        return resource.directions != Directions::to_only;
    default:
        return true;
    }
}

} // namespace kelmora_host
