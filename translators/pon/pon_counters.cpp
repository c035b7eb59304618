#include "frame/translator.h"
#include "records/pon.h"

using namespace kelmora;

namespace {

void to_json(Encoder &out, const kelmora_pon_counters &counters, const NodeId &id)
{
    out.string("id", id);
    out.integer("tx_bytes", counters.tx_bytes);
    out.integer("rx_bytes", counters.rx_bytes);
    out.integer("tx_packets", counters.tx_packets);
    out.integer("rx_packets", counters.rx_packets);
    out.integer("tx_unicast_packets", counters.tx_unicast_packets);
    out.integer("rx_unicast_packets", counters.rx_unicast_packets);
    out.integer("tx_multicast_packets", counters.tx_multicast_packets);
    out.integer("rx_multicast_packets", counters.rx_multicast_packets);
    out.integer("tx_broadcast_packets", counters.tx_broadcast_packets);
    out.integer("rx_broadcast_packets", counters.rx_broadcast_packets);
    out.integer("tx_pause_packets", counters.tx_pause_packets);
    out.integer("rx_pause_packets", counters.rx_pause_packets);
    out.integer("fec_errors", counters.fec_errors);
    out.integer("hec_errors", counters.hec_errors);
    out.integer("dropped_packets", counters.dropped_packets);
}

} // namespace

int pon_counters_to_translator(kelmora_resource *head, char **out)
{
    return encode<to_json>(head, out, Nodes::counting, Flags::plain);
}

// The figures are the device's.
int pon_counters_from_translator(kelmora_resource *, const char *, kelmora_errorlist *) { return 1; }
