#include "frame/translator.h"
#include "records/wan_lan.h"

using namespace kelmora;

namespace {

void to_json(Encoder &out, const kelmora_lan_port_status &ports, const NodeId &id)
{
    out.string("id", id);
    out.string("status", ports.status);
}

} // namespace

int lan_port_status_to_translator(kelmora_resource *head, char **out)
{
    return encode<to_json>(head, out, Nodes::counting, Flags::plain);
}

// A status is read-only.
int lan_port_status_from_translator(kelmora_resource *, const char *, kelmora_errorlist *) { return 1; }
