#include "host/serve/openapi.h"

#include "host/contract/schema.h"
#include "host/json.h"
#include "host/plugin/plugin.h"
#include "host/serve/routes.h"

#include <fmt/format.h>
#include <optional>
#include <set>

namespace kelmora_host {

namespace {

Json reference(const std::string &to)
{
    Json reference = new_object();
    set(reference, "$ref", json_text(to));
    return reference;
}

std::string schema_path(const Resource &resource, Direction direction)
{
    return fmt::format("/schemas/{}.{}.schema.json", resource.name, name_of(direction));
}

/// {"TYPE": {"schema": SCHEMA}}
Json content(const char *type, Json schema)
{
    Json media = new_object();
    set(media, "schema", schema.release());
    Json content = new_object();
    set(content, type, media.release());
    return content;
}

Json raw_schema()
{
    Json schema = new_object();
    set(schema, "description", json_text(fmt::format("{} bytes", raw_size)));
    return schema;
}

bool is_of_records(Operation operation)
{
    return operation == Operation::get_records || operation == Operation::get_record ||
           operation == Operation::put_record || operation == Operation::post_record;
}

/// What the answer consists of when all went well; nothing where that has no schema.
std::optional<Json> answer_content(const Route &route, const Resource *resource)
{
    switch (route.operation) {
    case Operation::get_records:
    case Operation::get_record:
        return is_raw(*resource) ? content("application/octet-stream", raw_schema())
                                 : content("application/json", reference(schema_path(*resource, Direction::output)));
    case Operation::put_record:
    case Operation::post_record:
        return content("application/json", reference("#/components/schemas/Written"));
    case Operation::check:
        return content("application/json", reference("#/components/schemas/Checked"));
    case Operation::get_types:
        return content("text/plain", new_object());
    case Operation::delete_record:
    case Operation::reset:
        return std::nullopt;
    default:
        return content("application/json", new_object());
    }
}

Json responses(const Route &route, const Resource *resource)
{
    Json responses = new_object();
    for (const int status : route.statuses) {
        Json response = new_object();
        set(response, "description", json_text(reason_of(status)));
        if (status >= 400)
            set(response, "content",
                content("application/problem+json", reference("#/components/schemas/Problem")).release());
        else if (status == 200 || status == 201) {
            if (std::optional<Json> content = answer_content(route, resource))
                set(response, "content", content->release());
        }
        set(responses, std::to_string(status).c_str(), response.release());
    }
    set(responses, "default", reference("#/components/responses/Problem").release());
    return responses;
}

json_t *parameter(std::string_view name, const char *in, std::string_view meaning, bool required,
                  std::span<const std::string_view> values)
{
    Json schema = new_object();
    set(schema, "type", json_text("string"));
    if (!values.empty()) {
        json_t *all = json_array();
        for (const std::string_view value : values)
            json_array_append_new(all, json_text(value));
        set(schema, "enum", all);
        set(schema, "default", json_text(values.front()));
    }
    Json parameter = new_object();
    set(parameter, "name", json_text(name));
    set(parameter, "in", json_text(in));
    if (!meaning.empty())
        set(parameter, "description", json_text(meaning));
    if (required)
        set(parameter, "required", json_true());
    set(parameter, "schema", schema.release());
    return parameter.release();
}

/// path: of the route, with the names that are left open in braces.
Json operation(const Route &route, std::string_view path, const Resource *resource)
{
    Json operation = new_object();
    set(operation, "summary", json_text(route.summary));
    json_t *parameters = json_array();
    for (const std::string_view name : {"resource", "id", "file"}) {
        if (path.find(fmt::format("{{{}}}", name)) != std::string_view::npos)
            json_array_append_new(parameters, parameter(name, "path", "", true, {}));
    }
    for (const Parameter &each : route.parameters)
        json_array_append_new(parameters, parameter(each.name, "query", each.meaning, each.required, each.values));
    if (json_array_size(parameters) != 0)
        set(operation, "parameters", parameters);
    else
        json_decref(parameters);
    if (route.body != Body::none) {
        Json body = new_object();
        if (resource != nullptr && is_raw(*resource))
            set(body, "content", content("application/octet-stream", raw_schema()).release());
        else if (resource != nullptr)
            set(body, "content",
                content("application/json", reference(schema_path(*resource, Direction::accept))).release());
        else
            set(body, "content", content("application/json", new_object()).release());
        set(body, "required", json_true());
        set(operation, "requestBody", body.release());
    }
    set(operation, "responses", responses(route, resource).release());
    if (resource != nullptr) {
        json_t *tags = json_array();
        json_array_append_new(tags, json_text(resource->group));
        set(operation, "tags", tags);
    }
    return operation;
}

void add(const Json &paths, const std::string &path, const Route &route, const Resource *resource)
{
    json_t *item = json_object_get(paths.get(), path.c_str());
    if (item == nullptr) {
        item = json_object();
        set(paths, path.c_str(), item);
    }
    std::string method(route.method);
    for (char &letter : method)
        letter = static_cast<char>(letter - 'A' + 'a');
    json_object_set_new(item, method.c_str(), operation(route, path, resource).release());
}

Json paths()
{
    Json paths = new_object();
    for (const Route &route : routes()) {
        if (route.summary.empty())
            continue;
        if (!is_of_records(route.operation)) {
            add(paths, std::string(route.path), route, nullptr);
            continue;
        }
        for (const Resource &resource : resources()) {
            if (!has_direction(resource, route.operation))
                continue;
            constexpr std::string_view open = "{resource}";
            std::string path(route.path);
            path.replace(path.find(open), open.size(), resource.name);
            add(paths, path, route, &resource);
        }
    }
    return paths;
}

/// What several answers consist of.
constexpr const char *schemas = R"({
"Error": {"type": "object", "required": ["field", "message", "source"], "properties": {
    "field": {"type": "string"}, "message": {"type": "string"}, "source": {"type": "string"},
    "pointer": {"type": "string", "description": "a JSON Pointer"}, "line": {"type": "integer"},
    "column": {"type": "integer"}, "key": {"type": "string"}, "detail": {"type": "string"},
    "later": {"type": "boolean", "description": "reported only once those before it are mended"}}},
"Finding": {"type": "object", "required": ["code", "severity", "pointer", "line", "column", "message"], "properties": {
    "code": {"type": "string"}, "severity": {"enum": ["note", "warning", "error"]}, "pointer": {"type": "string"},
    "line": {"type": "integer"}, "column": {"type": "integer"}, "sent": {}, "stored": {},
    "message": {"type": "string"}}},
"Checked": {"type": "object", "required": ["resource", "result", "errors", "findings"], "properties": {
    "resource": {"type": "string"}, "result": {"enum": ["lossless", "lossy", "rejected"]},
    "errors": {"type": "array", "items": {"$ref": "#/components/schemas/Error"}},
    "findings": {"type": "array", "items": {"$ref": "#/components/schemas/Finding"}}}},
"Written": {"type": "object", "required": ["result", "errors", "findings", "record", "committed"], "properties": {
    "result": {"enum": ["lossless", "lossy", "accepted"], "description": "accepted: what is lost was not looked for"},
    "errors": {"type": "array", "items": {"$ref": "#/components/schemas/Error"}},
    "findings": {"type": "array", "items": {"$ref": "#/components/schemas/Finding"}},
    "record": {"description": "as the plug-in then writes it; null of a write-only resource"},
    "committed": {"type": "boolean"}, "etag": {"type": "string", "description": "of the record, once committed"}}},
"Problem": {"type": "object", "required": ["type", "title", "status", "detail"], "properties": {
    "type": {"type": "string"}, "title": {"type": "string"}, "status": {"type": "integer"},
    "detail": {"type": "string"},
    "errors": {"type": "array", "items": {"$ref": "#/components/schemas/Error"}},
    "findings": {"type": "array", "items": {"$ref": "#/components/schemas/Finding"}}}}
})";

} // namespace

std::string openapi()
{
    Json info = new_object();
    set(info, "title", json_text("kelmora-host"));
    set(info, "summary", json_text("The plug-in libkelmora_json behind HTTP, on the records of a sample gateway"));
    set(info, "version", json_text(Plugin::default_version));

    Json problem = new_object();
    set(problem, "description", json_text("What is wrong"));
    set(problem, "content", content("application/problem+json", reference("#/components/schemas/Problem")).release());
    Json shared_responses = new_object();
    set(shared_responses, "Problem", problem.release());
    Json components = new_object();
    set(components, "schemas", parsed(schemas));
    set(components, "responses", shared_responses.release());

    Json document = new_object();
    set(document, "openapi", json_text("3.1.0"));
    set(document, "info", info.release());
    set(document, "paths", paths().release());
    set(document, "components", components.release());
    return to_text(document);
}

} // namespace kelmora_host
