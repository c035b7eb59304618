#include "frame/translator.h"
#include "records/routing.h"

using namespace kelmora;

namespace {

void to_json(Encoder &out, const kelmora_igmp_proxy &proxy, const NodeId &id)
{
    out.string("id", id);
    out.boolean("allow_multicast", proxy.allow_multicast);
    out.integer("robust_count", proxy.robust_count);
    out.integer("last_member_query_count", proxy.last_member_query_count);
    out.integer("query_interval", proxy.query_interval);
    out.integer("query_response_interval", proxy.query_response_interval);
    out.integer("group_leave_delay", proxy.group_leave_delay);
}

void from_json(Decoder &in, kelmora_igmp_proxy &proxy)
{
    in.optional_boolean("allow_multicast", proxy.allow_multicast);
    in.optional_integer("robust_count", proxy.robust_count);
    in.optional_integer("last_member_query_count", proxy.last_member_query_count);
    in.optional_integer("query_interval", proxy.query_interval);
    in.optional_integer("query_response_interval", proxy.query_response_interval);
    in.optional_integer("group_leave_delay", proxy.group_leave_delay);
}

} // namespace

int igmp_proxy_to_translator(kelmora_resource *head, char **out)
{
    return encode<to_json>(head, out, Nodes::walking_if_any, Flags::pretty);
}

int igmp_proxy_from_translator(kelmora_resource *node, const char *text, kelmora_errorlist *errors)
{
    return decode<from_json>(node, text, errors);
}
