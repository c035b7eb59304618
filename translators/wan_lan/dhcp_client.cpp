#include "frame/translator.h"
#include "records/wan_lan.h"

using namespace kelmora;

namespace {

void write(Encoder &out, const kelmora_dhcp_client &client, const NodeId &id)
{
    out.text("id", id);
    out.text("ip", client.ip);
    out.text("hostname", client.hostname);
    out.text("mac", client.mac);
    out.integer("aging_time", client.aging_time);
}

} // namespace

int dhcp_client_to_translator(kelmora_resource *head, char **out)
{
    return encode<write>(head, out, Shape::counting, Flags::compact);
}

// The clients are what the host has seen.
int dhcp_client_from_translator(kelmora_resource * /*node*/, const char * /*text*/, kelmora_errorlist * /*errors*/)
{
    return 1;
}
