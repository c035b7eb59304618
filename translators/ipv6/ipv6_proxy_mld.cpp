#include "frame/translator.h"
#include "records/ipv6.h"

using namespace kelmora;

namespace {

void to_json(Encoder &out, const kelmora_ipv6_proxy_mld &mld, const NodeId &id)
{
    out.string("id", id);
    out.integer("query_interval", mld.query_interval);
    out.integer("query_response_interval", mld.query_response_interval);
    out.integer("response_interval_of_last_group_member", mld.response_interval_of_last_group_member);
    out.integer("robust_count", mld.robust_count);
}

void from_json(Decoder &in, kelmora_ipv6_proxy_mld &mld)
{
    in.leak_document_on_failure(true); // Contract: a missing key leaks the document
    in.require("query_interval"_key, "query_response_interval"_key, "response_interval_of_last_group_member"_key,
               "robust_count"_key); // all or none is stored
    in.required_integer("query_interval"_key, mld.query_interval);
    in.required_integer("query_response_interval"_key, mld.query_response_interval);
    in.required_integer("response_interval_of_last_group_member"_key, mld.response_interval_of_last_group_member);
    in.required_integer("robust_count"_key, mld.robust_count);
}

} // namespace

int ipv6_proxy_mld_to_translator(kelmora_resource *head, char **out)
{
    return encode<to_json>(head, out, Nodes::counting, Flags::plain);
}

int ipv6_proxy_mld_from_translator(kelmora_resource *node, const char *text, kelmora_errorlist *errors)
{
    return decode<from_json>(node, text, errors);
}
