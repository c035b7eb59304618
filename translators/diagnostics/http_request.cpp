#include "frame/translator.h"
#include "records/diagnostics.h"

using namespace kelmora;

namespace {

void to_json(Encoder &out, const kelmora_http_request &request, const NodeId &id)
{
    out.string("id", id);
    out.string("dest", request.dest);
    out.boolean("mesh_session", request.mesh_session);
    out.integer("method", request.method);
    out.integer("timeout", request.timeout);
    out.string("token", request.token);
    out.integer("status", request.status);
    out.whole_string("body",
                     request.body != nullptr ? request.body : ""); // as a string: clients get an escaped document
}

void from_json(Decoder &in, kelmora_http_request &request)
{
    in.required_string("dest"_key, request.dest);
    if (!in.ok())
        return;
    request.mesh_session = in.optional("mesh_session").is_true() ? 1 : 0; // cleared when absent
    in.required_integer("method"_key, request.method);
    in.optional_string("token", request.token);
    in.optional_integer("timeout", request.timeout);
    if (request.mesh_session != 0)
        return; // a request inside a mesh session keeps the body it had
    if (char *body = in.rendered("body"))
        request.body = body; // the one before it is the host's to free
}

} // namespace

int http_request_to_translator(kelmora_resource *head, char **out)
{
    return encode<to_json>(head, out, Nodes::walking_with_head_id, Flags::plain);
}

int http_request_from_translator(kelmora_resource *node, const char *text, kelmora_errorlist *errors)
{
    return decode<from_json>(node, text, errors);
}
