#include "frame/translator.h"
#include "records/ipv6.h"

#include <cstdint>

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
    in.leak_document_on_failure(true); // on purpose: a missing key leaves it unreleased
    const Decoder query = in.required("query_interval"_key);
    const Decoder response = in.required("query_response_interval"_key);
    const Decoder last_member = in.required("response_interval_of_last_group_member"_key);
    const Decoder robust_count = in.required("robust_count"_key);
    if (!in.ok()) // all or none
        return;
    mld.query_interval = static_cast<std::uint32_t>(query.integer());
    mld.query_response_interval = static_cast<std::uint32_t>(response.integer());
    mld.response_interval_of_last_group_member = static_cast<std::uint32_t>(last_member.integer());
    mld.robust_count = static_cast<std::int32_t>(robust_count.integer());
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
