#include "bench/baselines/baselines.h"
#include "bench/baselines/json.h"

#include "records/pon.h"

namespace kelmora_bench {

namespace {

void fill(json_t *out, const kelmora_pon_counters &counters, const char *id)
{
    json_object_set_new(out, "id", json_string(id));
    json_object_set_new(out, "tx_bytes", json_integer(counters.tx_bytes));
    json_object_set_new(out, "rx_bytes", json_integer(counters.rx_bytes));
    json_object_set_new(out, "tx_packets", json_integer(counters.tx_packets));
    json_object_set_new(out, "rx_packets", json_integer(counters.rx_packets));
    json_object_set_new(out, "tx_unicast_packets", json_integer(counters.tx_unicast_packets));
    json_object_set_new(out, "rx_unicast_packets", json_integer(counters.rx_unicast_packets));
    json_object_set_new(out, "tx_multicast_packets", json_integer(counters.tx_multicast_packets));
    json_object_set_new(out, "rx_multicast_packets", json_integer(counters.rx_multicast_packets));
    json_object_set_new(out, "tx_broadcast_packets", json_integer(counters.tx_broadcast_packets));
    json_object_set_new(out, "rx_broadcast_packets", json_integer(counters.rx_broadcast_packets));
    json_object_set_new(out, "tx_pause_packets", json_integer(counters.tx_pause_packets));
    json_object_set_new(out, "rx_pause_packets", json_integer(counters.rx_pause_packets));
    json_object_set_new(out, "fec_errors", json_integer(counters.fec_errors));
    json_object_set_new(out, "hec_errors", json_integer(counters.hec_errors));
    json_object_set_new(out, "dropped_packets", json_integer(counters.dropped_packets));
}

} // namespace

} // namespace kelmora_bench

using namespace kelmora_bench;

int pon_counters_to_baseline(kelmora_resource *head, char **out)
{
    return render_nodes<kelmora_pon_counters, fill>(head, 0, out);
}
