#include "frame/translator.h"
#include "records/ipv6.h"

using namespace kelmora;

namespace {

void write(Encoder &out, const kelmora_ipv6_dhcp_client &client, const NodeId &id)
{
    out.text("id", id);
    out.text("ip_address", client.ip_address);
    out.text("duid", client.duid);
    out.integer("aging_time", client.aging_time);
}

} // namespace

int ipv6_dhcp_client_to_translator(kelmora_resource *head, char **out)
{
    return encode<write>(head, out, Shape::counting, Flags::compact);
}

// The clients are read-only.
int ipv6_dhcp_client_from_translator(kelmora_resource * /*node*/, const char * /*text*/, kelmora_errorlist * /*errors*/)
{
    return 1;
}
