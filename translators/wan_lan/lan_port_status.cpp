#include "frame/translator.h"
#include "records/wan_lan.h"

using namespace kelmora;

namespace {

void write(Encoder &out, const kelmora_lan_port_status &ports, const NodeId &id)
{
    out.text("id", id);
    out.text("status", ports.status);
}

} // namespace

int lan_port_status_to_translator(kelmora_resource *head, char **out)
{
    return encode<write>(head, out, Shape::counting, Flags::compact);
}

// A status is read-only.
int lan_port_status_from_translator(kelmora_resource * /*node*/, const char * /*text*/, kelmora_errorlist * /*errors*/)
{
    return 1;
}
