#include "frame/translator.h"
#include "records/pon.h"

using namespace kelmora;

namespace {

void to_json(Encoder &out, const kelmora_gem_port_stats &port, const NodeId &id)
{
    out.string("flow_id", id); // in place of "id": clients know a port by its flow
    out.integer("pkt_count", port.pkt_count);
    out.integer("gemport_id", port.gemport_id);
    if (port.gemport_direction == 1)
        out.whole_string("gemport_direction", "upstream");
    else if (port.gemport_direction == 2)
        out.whole_string("gemport_direction", "downstream");
}

} // namespace

int gem_port_stats_to_translator(kelmora_resource *head, char **out)
{
    return encode<to_json>(head, out, Nodes::counting, Root::always_array, Flags::plain);
}

// The figures are the device's.
int gem_port_stats_from_translator(kelmora_resource *, const char *, kelmora_errorlist *) { return 1; }
