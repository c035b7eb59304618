#include "host/serve/api.h"

#include "host/contract/findings_json.h"
#include "host/contract/image.h"
#include "host/contract/key_places.h"
#include "host/contract/learned.h"
#include "host/contract/listing.h"
#include "host/contract/schema.h"
#include "host/contract/syntax.h"
#include "host/contract/trace_json.h"
#include "host/contract/typescript.h"
#include "host/gateway/blank.h"
#include "host/hexadecimal.h"
#include "host/json.h"
#include "host/names.h"
#include "host/plugin/translate.h"
#include "host/serve/openapi.h"
#include "host/serve/problem.h"

#include <algorithm>
#include <fmt/format.h>
#include <fmt/ranges.h>
#include <fstream>
#include <random>
#include <sstream>
#include <system_error>
#include <utility>
#include <variant>
#include <vector>

namespace kelmora_host {

/// A request with what it asks for.
struct Api::Call {
    const Request &request;
    RequestTarget target;
    const Route *route = nullptr;
    PathArguments arguments;
    const Resource *resource = nullptr; ///< where the route has one
    std::vector<std::string> allowed;   ///< the methods that the path has

    /// A parameter's value, or its default; empty where it has none.
    [[nodiscard]] std::string_view parameter(std::string_view name) const
    {
        if (const auto given = target.query.find(name); given != target.query.end())
            return given->second;
        for (const Parameter &parameter : route->parameters) {
            if (parameter.name == name && !parameter.values.empty())
                return parameter.values.front();
        }
        return {};
    }

    [[nodiscard]] const Registration &translators() const { return *Registry::instance().find(resource->number); }
};

namespace {

namespace fs = std::filesystem;

constexpr const char *json_type = "application/json";

Answer json_answer(std::string text) { return {200, json_type, std::move(text), {}}; }
Answer json_answer(const Json &json) { return json_answer(to_text(json)); }

Answer problem_with_header(int status, std::string_view detail, std::string name, std::string value)
{
    Answer answer = problem(status, detail);
    answer.headers.emplace_back(std::move(name), std::move(value));
    return answer;
}

Answer no_record(const Resource &resource, std::string_view id)
{
    return problem(404, fmt::format("{} has no record of the id {}", resource.name, in_quotes(id)));
}

bool may_be_id(std::string_view id)
{
    return !id.empty() && id.size() <= Node::longest_id && id.find('\0') == std::string_view::npos &&
           Json(json_text(id)) != nullptr;
}

Answer no_id() { return problem(400, fmt::format("an id has 1 to {} bytes of UTF-8", Node::longest_id)); }

/// Of what a query has that the route does not take; nothing when all is well.
std::optional<Answer> fault_of_query(const Route &route, const RequestTarget &target)
{
    for (const auto &[name, value] : target.query) {
        const auto parameter = std::ranges::find(route.parameters, name, &Parameter::name);
        if (parameter == route.parameters.end())
            return problem(400, fmt::format("no parameter {} is known here", in_quotes(name)));
        if (!parameter->values.empty() && std::ranges::find(parameter->values, value) == parameter->values.end()) {
            const std::vector<std::string> values(parameter->values.begin(), parameter->values.end());
            return problem(400, fmt::format("{} must be {}", name, enumeration(values, "or")));
        }
    }
    for (const Parameter &parameter : route.parameters) {
        if (parameter.required && !target.query.contains(parameter.name))
            return problem(400, fmt::format("the parameter {} is missing", in_quotes(parameter.name)));
    }
    return std::nullopt;
}

/// The bytes of all nodes as the plug-in writes them.
Encoded written(const Resource &resource, const Registration &translators, std::vector<Node> &nodes, bool as_list)
{
    const bool raw = is_raw(resource) && resource.directions != Directions::from_only;
    return to_json(translators.to, nodes, as_list, raw ? raw_size : 0);
}

Answer written_answer(const Resource &resource, const Registration &translators, std::vector<Node> nodes, bool as_list,
                      std::string tag)
{
    Encoded encoded = written(resource, translators, nodes, as_list);
    if (encoded.result != 1)
        return problem(500, fmt::format("{}: the plug-in could not write it, out of memory", resource.name));
    return {200,
            is_raw(resource) ? "application/octet-stream" : json_type,
            std::move(encoded.text),
            {{"ETag", std::move(tag)}}};
}

/// The record as the plug-in then writes it, for the answers that have it as a part; the caller's.
json_t *shown(const Resource &resource, const Registration &translators, const Node &node)
{
    std::vector<Node> nodes{node};
    const Encoded encoded = written(resource, translators, nodes, false);
    if (resource.directions == Directions::from_only)
        return json_null();
    return record_as_json(is_raw(resource) ? hexadecimal(encoded.text, " ") : encoded.text, is_raw(resource));
}

/// Whether the conditions of a request that changes something hold.
bool conditions_hold(const Request &request, std::string_view tag)
{
    const std::optional<std::string> match = header(request, "If-Match");
    if (match && !lists_tag(*match, tag, true))
        return false;
    const std::optional<std::string> none_match = header(request, "If-None-Match");
    return !none_match || !lists_tag(*none_match, tag, false);
}

std::uint64_t hash_of(std::string_view bytes)
{
    std::uint64_t hash = 14695981039346656037U; // FNV-1a
    for (const char byte : bytes)
        hash = (hash ^ static_cast<unsigned char>(byte)) * 1099511628211U;
    return hash;
}

/// Of a document that was not checked: what the plug-in said of it, without the places.
Check unchecked(const Decoded &decoded)
{
    Check check{CheckResult::lossless, {}, {}};
    for (const Error &error : decoded.errors)
        check.errors.push_back({error, std::nullopt, std::nullopt, ""});
    return check;
}

} // namespace

Api::Api(State &state, ApiOptions options) : state_(state), options_(std::move(options))
{
    std::random_device random;
    run_ = fmt::format("{:08x}", random());
}

std::string Api::tag(std::uint64_t version) const { return in_quotes(fmt::format("{}-{}", run_, version)); }

// ---- what is wrong with a request before its body is looked at

std::optional<Answer> Api::fault_of_sender(const Request &head) const
{
    if (head.headers.count("Host") != 1)
        return problem(400, "a request has one Host");
    std::vector<std::string> hosts;
    for (const std::string_view name : {"localhost", "127.0.0.1", "[::1]"}) {
        hosts.push_back(fmt::format("{}:{}", name, options_.port));
        if (options_.port == 80)
            hosts.emplace_back(name);
    }
    // Another site's name may have been made to lead here, and its pages would then be this server's own.
    std::string host = *header(head, "Host");
    std::ranges::transform(host, host.begin(),
                           [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
    if (std::ranges::find(hosts, host) == hosts.end())
        return problem(403, "a foreign Host: this server is " + enumeration(hosts, "or"));
    const auto [begin, end] = head.headers.equal_range("Origin");
    for (auto each = begin; each != end; ++each) {
        const std::string &origin = each->second;
        constexpr std::string_view scheme = "http://";
        const bool own =
            origin.starts_with(scheme) && std::ranges::find(hosts, origin.substr(scheme.size())) != hosts.end();
        if (!own && origin != options_.cors_origin)
            return problem(403, "a foreign Origin; kelmora-host serve --cors-origin allows one");
    }
    return std::nullopt;
}

std::optional<Answer> Api::find_route(const Request &head, Call &call) const
{
    const std::string_view method = head.method == "HEAD" ? "GET" : std::string_view(head.method);
    bool any = false;
    for (const Route &route : routes()) {
        PathArguments arguments;
        if (!matches(route, call.target.segments, arguments))
            continue;
        if (!arguments.resource.empty() || route.path.find("{resource}") != std::string_view::npos) {
            call.resource = find_resource(arguments.resource);
            if (call.resource == nullptr)
                return problem(404, no_such_resource(arguments.resource));
        }
        any = true;
        if (call.resource != nullptr && !has_direction(*call.resource, route.operation))
            continue;
        call.allowed.emplace_back(route.method);
        if (route.method == "GET")
            call.allowed.emplace_back("HEAD");
        if (route.method == method) {
            call.route = &route;
            call.arguments = std::move(arguments);
        }
    }
    if (!any)
        return problem(404, "nothing is here; /openapi.json tells what there is");
    call.allowed.emplace_back("OPTIONS");
    if (call.route != nullptr || method == "OPTIONS")
        return std::nullopt;
    std::string detail = fmt::format("the methods here are {}", enumeration(call.allowed));
    if (call.resource != nullptr && call.resource->directions != Directions::both)
        detail = fmt::format("{} is {}; {}", call.resource->name, words_of(call.resource->directions), detail);
    return problem_with_header(405, detail, "Allow", fmt::format("{}", fmt::join(call.allowed, ", ")));
}

std::optional<Answer> Api::fault_of_body(const Request &head, const Call &call)
{
    if (const std::optional<std::string> length = header(head, "Content-Length")) {
        const bool digits = !length->empty() && length->find_first_not_of("0123456789") == std::string::npos;
        if (!digits || head.headers.count("Content-Length") != 1)
            return problem(400, "Content-Length is no number");
        const std::size_t begin = std::min(length->find_first_not_of('0'), length->size());
        const std::string digits_left = length->substr(begin);
        if (digits_left.size() > 9 || (!digits_left.empty() && std::stoul(digits_left) > largest_body))
            return problem(413, fmt::format("a body has {} bytes at most", largest_body));
    }
    if (const auto encoding = header(head, "Content-Encoding"); encoding && media_type(*encoding) != "identity")
        return problem(415, "bodies are taken as they are, without a Content-Encoding");
    if (call.route->body == Body::none)
        return std::nullopt;
    const std::string given = media_type(header(head, "Content-Type").value_or(""));
    if (is_raw(*call.resource)) {
        if (given != "application/octet-stream")
            return problem(
                415, fmt::format("{} takes application/octet-stream: {} raw bytes", call.resource->name, raw_size));
    } else if (given != json_type && !(given.starts_with("application/") && given.ends_with("+json"))) {
        return problem(415, "a document is application/json");
    }
    return std::nullopt;
}

std::optional<Answer> Api::find_fault(const Request &head, Call &call) const
{
    if (std::optional<Answer> fault = fault_of_sender(head))
        return fault;
    std::optional<RequestTarget> target = parse_target(head.target);
    if (!target)
        return problem(400, "the target is no path with a query, percent-encoded");
    call.target = std::move(*target);
    if (std::optional<Answer> fault = find_route(head, call))
        return fault;
    if (call.route == nullptr) // OPTIONS
        return std::nullopt;
    if (std::optional<Answer> fault = fault_of_query(*call.route, call.target))
        return fault;
    return fault_of_body(head, call);
}

std::optional<Answer> Api::refusal(const Request &head)
{
    Call call{head, {}, nullptr, {}, nullptr, {}};
    std::optional<Answer> fault = find_fault(head, call);
    if (fault)
        fault = finished(std::move(*fault), head);
    return fault;
}

// ---- answers

Answer Api::answer(const Request &request)
{
    Call call{request, {}, nullptr, {}, nullptr, {}};
    try {
        if (std::optional<Answer> fault = find_fault(request, call))
            return finished(std::move(*fault), request);
        if (request.body.size() > largest_body)
            return finished(problem(413, fmt::format("a body has {} bytes at most", largest_body)), request);
        if (call.route == nullptr)
            return finished({204, "", "", {{"Allow", fmt::format("{}", fmt::join(call.allowed, ", "))}}}, request);
        Answer answer = perform(call);
        const std::optional<std::string> known = header(request, "If-None-Match");
        const std::string_view tag = header(answer, "ETag");
        if (call.route->method == "GET" && answer.status == 200 && known && !tag.empty() &&
            lists_tag(*known, tag, false)) {
            answer.status = 304;
            answer.body.clear();
            answer.content_type.clear();
        }
        return finished(std::move(answer), request);
    } catch (const std::exception &error) {
        return finished(problem(500, error.what()), request);
    }
}

Answer Api::finished(Answer answer, const Request &request) const
{
    const auto add = [&answer](std::string name, std::string value) {
        if (header(answer, name).empty())
            answer.headers.emplace_back(std::move(name), std::move(value));
    };
    add("Content-Security-Policy",
        "default-src 'self'; base-uri 'none'; form-action 'none'; frame-ancestors 'none'; object-src 'none'");
    add("X-Content-Type-Options", "nosniff");
    add("Cross-Origin-Resource-Policy", "same-origin");
    add("Referrer-Policy", "no-referrer");
    add("Cache-Control", "no-store");
    if (options_.cors_origin) {
        add("Vary", "Origin");
        if (header(request, "Origin") == options_.cors_origin) {
            add("Access-Control-Allow-Origin", *options_.cors_origin);
            add("Access-Control-Expose-Headers", "ETag, Location, Allow");
            if (request.method == "OPTIONS") {
                add("Access-Control-Allow-Methods", "GET, HEAD, PUT, POST, DELETE");
                add("Access-Control-Allow-Headers", "Content-Type, If-Match, If-None-Match");
                add("Access-Control-Max-Age", "600");
            }
        }
    }
    return answer;
}

Answer Api::perform(const Call &call)
{
    switch (call.route->operation) {
    case Operation::list_resources:
        return json_answer(list_as_json("", [this](const Resource &resource) { return state_.count(resource); }));
    case Operation::get_contract:
        return json_answer(contract_as_json(learned(*call.resource, call.translators())));
    case Operation::list_keys:
        return json_answer(key_places_as_json(learned_contracts(), ""));
    case Operation::get_records:
        return records(call);
    case Operation::get_record:
        return record(call);
    case Operation::list_ids: {
        const Json ids(json_array());
        for (const std::string &id : state_.ids(*call.resource))
            json_array_append_new(ids.get(), json_text(id));
        return json_answer(ids);
    }
    case Operation::put_record:
        return put(call);
    case Operation::post_record:
        return post(call);
    case Operation::delete_record:
        return remove(call);
    case Operation::check:
        return check_document(call);
    case Operation::trace:
        return trace_document(call);
    case Operation::reset:
        state_.reset();
        return {204, "", "", {}};
    case Operation::get_schema:
        return schema(call);
    case Operation::get_types:
        return {200, std::string(content_type_of(".ts")), typescript(learned_contracts()), {}};
    case Operation::get_openapi:
        return json_answer(openapi());
    case Operation::get_docs:
        return docs(call);
    case Operation::get_page:
    case Operation::get_asset:
        break;
    }
    return asset(call);
}

Answer Api::records(const Call &call) const
{
    Records records = state_.records(*call.resource);
    return written_answer(*call.resource, call.translators(), std::move(records.nodes), true, tag(records.version));
}

Answer Api::record(const Call &call) const
{
    const std::optional<VersionedNode> found = state_.find(*call.resource, call.arguments.id);
    if (!found)
        return no_record(*call.resource, call.arguments.id);
    return written_answer(*call.resource, call.translators(), {found->node}, false, tag(found->version));
}

Answer Api::put(const Call &call)
{
    State::Writer writer(state_, *call.resource);
    const std::optional<VersionedNode> found = writer.find(call.arguments.id);
    if (!found)
        return no_record(*call.resource, call.arguments.id);
    if (!conditions_hold(call.request, tag(found->version)))
        return problem(412, "the record is another one by now, or the same as before");
    return write(call, writer, found->node, false);
}

Answer Api::post(const Call &call)
{
    const std::string_view id = call.parameter("id");
    if (!may_be_id(id))
        return no_id();
    State::Writer writer(state_, *call.resource);
    if (writer.find(id))
        return problem(409, fmt::format("{} has a record of the id {}", call.resource->name, in_quotes(id)));
    return write(call, writer, Node(id, blank_record(*call.resource)), true);
}

Answer Api::write(const Call &call, State::Writer &writer, Node node, bool is_new) const
{
    const Resource &resource = *call.resource;
    const std::string &text = call.request.body;
    const std::string_view validation = call.parameter("validate");
    const bool dry = call.parameter("dryRun") == "true";
    // What ends at a NUL byte, or is not as long as a block of bytes must be, the plug-in cannot be asked about.
    const bool must_check = is_raw(resource) || text.find('\0') != std::string::npos;

    std::optional<Check> check;
    if (validation != "ignore" || must_check)
        check = kelmora_host::check(resource, call.translators(), node, text);
    Node before = node;
    Decoded decoded{0, {}};
    if (!check || check->result != CheckResult::rejected) {
        decoded = from_json(call.translators().from, node, text);
        if (decoded.result != 1 && !check)
            check = kelmora_host::check(resource, call.translators(), before, text);
    }
    if (decoded.result != 1)
        return document_problem(*check,
                                fmt::format("{} is as it was: the plug-in does not take the document", resource.name));
    if (validation == "strict" && check->result != CheckResult::lossless)
        return document_problem(
            *check, fmt::format("{} is as it was: the document would be taken, with a loss", resource.name));

    const Json object(json_object());
    set(object, "result", json_text(validation == "ignore" ? "accepted" : name_of(check->result)));
    const Check told = validation == "ignore" ? unchecked(decoded) : std::move(*check);
    set(object, "errors", errors_as_json(told.errors));
    set(object, "findings", findings_as_json(told.findings));
    set(object, "record", shown(resource, call.translators(), node));
    set(object, "committed", json_boolean(!dry));
    if (dry)
        return json_answer(object);
    const std::string tag = this->tag(is_new ? writer.add(node) : writer.replace(node));
    set(object, "etag", json_text(tag));
    Answer answer = json_answer(object);
    if (is_new) {
        answer.status = 201;
        answer.headers.emplace_back("Location",
                                    fmt::format("/api/v1/gateway/{}/{}", resource.name, percent_encoded(node.id())));
        answer.headers.emplace_back("ETag", tag);
    }
    return answer;
}

Answer Api::remove(const Call &call)
{
    State::Writer writer(state_, *call.resource);
    const std::optional<VersionedNode> found = writer.find(call.arguments.id);
    if (!found)
        return no_record(*call.resource, call.arguments.id);
    if (!conditions_hold(call.request, tag(found->version)))
        return problem(412, "the record is another one by now");
    writer.remove(call.arguments.id);
    return {204, "", "", {}};
}

std::variant<Node, Answer> Api::target_of(const Call &call) const
{
    const bool any = !call.target.query.contains("id");
    if (call.parameter("new") == "true") {
        if (!any && !may_be_id(call.parameter("id")))
            return no_id();
        return Node(call.parameter("id"), blank_record(*call.resource));
    }
    const std::vector<std::string> ids = any ? state_.ids(*call.resource) : std::vector<std::string>();
    const std::string id = !any ? std::string(call.parameter("id")) : ids.empty() ? "" : ids.front();
    if (std::optional<VersionedNode> found = state_.find(*call.resource, id))
        return std::move(found->node);
    if (any) // as if it were for a new one
        return Node("", blank_record(*call.resource));
    return no_record(*call.resource, id);
}

Answer Api::check_document(const Call &call) const
{
    const std::variant<Node, Answer> target = target_of(call);
    if (const auto *fault = std::get_if<Answer>(&target))
        return *fault;
    const Node &node = std::get<Node>(target);
    return json_answer(as_json(CheckedFile{
        "", call.resource->name, kelmora_host::check(*call.resource, call.translators(), node, call.request.body),
        std::nullopt, is_raw(*call.resource)}));
}

Answer Api::trace_document(const Call &call) const
{
    const Resource &resource = *call.resource;
    const std::string &text = call.request.body;
    const std::variant<Node, Answer> target = target_of(call);
    if (const auto *fault = std::get_if<Answer>(&target))
        return *fault;
    const Node &node = std::get<Node>(target);
    if (is_raw(resource))
        return problem(422, fmt::format("{} takes raw bytes, in which nothing is looked up", resource.name));
    const std::optional<SyntaxError> nul = find_nul_byte(text);
    if (const std::optional<SyntaxError> error = nul ? nul : find_syntax_error(text))
        return document_problem(
            {CheckResult::rejected, {{{"", "invalid json data", "json"}, "", error->position, error->what}}, {}},
            "nothing is looked up in a text that is no JSON");
    const std::optional<Positions> document = Positions::parse(text);
    const Json object = steps_as_json(trace(resource, call.translators(), node, text, *document), "", resource.name);
    const RecordType &type = *record_type(resource.name);
    Node after = node;
    set(object, "before", image_as_json(Image(after.record(), type)));
    from_json(call.translators().from, after, text);
    set(object, "after", image_as_json(Image(after.record(), type)));
    set(object, "record", shown(resource, call.translators(), after));
    return json_answer(object);
}

// ---- files

Answer Api::schema(const Call &call)
{
    const std::string &file = call.arguments.file.front();
    for (const Resource &resource : resources()) {
        if (call.arguments.file.size() != 1 || !file.starts_with(resource.name))
            continue;
        for (const Direction direction : {Direction::output, Direction::input, Direction::accept}) {
            if (file != fmt::format("{}.{}.schema.json", resource.name, name_of(direction)))
                continue;
            const Contract &contract = learned(resource, *Registry::instance().find(resource.number));
            if (!has_schema(contract, direction))
                return problem(404, fmt::format("{} has no documents in this direction", resource.name));
            return {200, "application/schema+json", kelmora_host::schema(contract, direction), {}};
        }
    }
    return problem(404,
                   "no such schema; they are /schemas/RESOURCE.DIRECTION.schema.json, with output, input or accept");
}

Answer Api::docs(const Call &call) const
{
    fs::path path = options_.docs;
    std::error_code error;
    if (!fs::is_directory(path, error))
        return problem(404, "the reference is not there: `make docs` makes it");
    const std::vector<std::string> &file = call.arguments.file;
    for (std::size_t i = 0; i < file.size(); ++i) {
        const std::string name = file[i].empty() && i + 1 == file.size() ? "index.html" : file[i];
        if (name.empty() || name.starts_with('.') || name.find_first_of("/\\") != std::string::npos)
            return problem(404, "no such page");
        path /= name;
    }
    // A link must not lead out of the folder.
    const fs::path folder = fs::canonical(options_.docs, error);
    const fs::path real = error ? fs::path() : fs::canonical(path, error);
    const auto [end, rest] = std::mismatch(folder.begin(), folder.end(), real.begin(), real.end());
    if (error || end != folder.end() || !fs::is_regular_file(real, error))
        return problem(404, "no such page");
    std::ifstream stream(real, std::ios::binary);
    std::ostringstream text;
    text << stream.rdbuf();
    if (!stream)
        return problem(404, "no such page");
    return {200, std::string(content_type_of(real.string())), text.str(), {}};
}

Answer Api::asset(const Call &call) const
{
    const std::string path = call.route->operation == Operation::get_page
                                 ? "index.html"
                                 : fmt::format("{}", fmt::join(call.arguments.file, "/"));
    const auto found = std::ranges::find(options_.page, path, &Asset::path);
    if (found == options_.page.end())
        return problem(404, "the page has no such file");
    return {200,
            std::string(content_type_of(path)),
            std::string(found->bytes),
            {{"ETag", in_quotes(fmt::format("{:016x}", hash_of(found->bytes)))}, {"Cache-Control", "no-cache"}}};
}

} // namespace kelmora_host
