#include "frame/translator.h"
#include "records/pon.h"

using namespace kelmora;

namespace {

void write(Encoder &out, const kelmora_gem_port_stats &port, const NodeId &id)
{
    out.text("flow_id", id); // on purpose, and no "id"
    out.integer("pkt_count", port.pkt_count);
    out.integer("gemport_id", port.gemport_id);
    if (port.gemport_direction == 1)
        out.whole_text("gemport_direction", "upstream");
    else if (port.gemport_direction == 2)
        out.whole_text("gemport_direction", "downstream");
}

} // namespace

int gem_port_stats_to_translator(kelmora_resource *head, char **out)
{
    return encode<write>(head, out, Shape::counting | Shape::always_array, Flags::compact);
}

// read-only: there is nothing to write.
int gem_port_stats_from_translator(kelmora_resource * /*node*/, const char * /*text*/, kelmora_errorlist * /*errors*/)
{
    return 1;
}
