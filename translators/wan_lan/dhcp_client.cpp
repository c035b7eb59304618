#include "frame/translator.h"
#include "records/wan_lan.h"

using namespace kelmora;

namespace {

void to_json(Encoder &out, const kelmora_dhcp_client &client, const NodeId &id)
{
    out.string("id", id);
    out.string("ip", client.ip);
    out.string("hostname", client.hostname);
    out.string("mac", client.mac);
    out.integer("aging_time", client.aging_time);
}

} // namespace

int dhcp_client_to_translator(kelmora_resource *head, char **out)
{
    return encode<to_json>(head, out, Nodes::counting, Flags::plain);
}

// The clients are what the host has seen.
int dhcp_client_from_translator(kelmora_resource *, const char *, kelmora_errorlist *) { return 1; }
