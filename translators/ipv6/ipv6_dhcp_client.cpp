#include "frame/translator.h"
#include "records/ipv6.h"

using namespace kelmora;

namespace {

void to_json(Encoder &out, const kelmora_ipv6_dhcp_client &client, const NodeId &id)
{
    out.string("id", id);
    out.string("ip_address", client.ip_address);
    out.string("duid", client.duid);
    out.integer("aging_time", client.aging_time);
}

} // namespace

int ipv6_dhcp_client_to_translator(kelmora_resource *head, char **out)
{
    return encode<to_json>(head, out, Nodes::counting, Flags::plain);
}

// The clients are read-only.
int ipv6_dhcp_client_from_translator(kelmora_resource *, const char *, kelmora_errorlist *) { return 1; }
