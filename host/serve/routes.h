#ifndef KELMORA_HOST_SERVE_ROUTES_H
#define KELMORA_HOST_SERVE_ROUTES_H

#include "host/gateway/resources.h"
#include "host/serve/http.h"

#include <array>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace kelmora_host {

/// What a request asks for.
enum class Operation {
    list_resources,
    get_contract,
    list_keys,
    get_records,
    get_record,
    list_ids,
    put_record,
    post_record,
    delete_record,
    check,
    trace,
    reset,
    get_schema,
    get_types,
    get_openapi,
    get_docs,
    get_page,
    get_asset,
};

/// What a request's body is.
enum class Body {
    none,
    document, ///< one that the resource takes: JSON, or a raw one's bytes
    text      ///< the same, but whatever it is, it is answered
};

/// A parameter in the query.
struct Parameter {
    std::string_view name;
    std::string_view meaning;
    std::span<const std::string_view> values; ///< all that there are, the default first; empty for any text
    bool required = false;
};

/// A method and the paths that it is for.
struct Route {
    std::string_view method;
    std::string_view path; ///< "{resource}" and "{id}" stand for a segment, "{file}" at the end for one or more
    Operation operation;
    std::string_view summary;
    Body body = Body::none;
    std::span<const Parameter> parameters;
    std::span<const int> statuses; ///< of answers, the good ones first, but for those that any request may get
};

/// All routes: those of one path stand together.
[[nodiscard]] std::span<const Route> routes();

/// The parts of a path that a route leaves open.
struct PathArguments {
    std::string resource;
    std::string id;
    std::vector<std::string> file;
};

/// Whether a route is for a path; fills the arguments in when it is.
[[nodiscard]] bool matches(const Route &route, std::span<const std::string> segments, PathArguments &arguments);

/// Whether a resource has the direction that an operation needs.
[[nodiscard]] bool has_direction(const Resource &resource, Operation operation);

} // namespace kelmora_host

#endif
