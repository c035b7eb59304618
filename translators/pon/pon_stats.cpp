#include "frame/translator.h"
#include "records/pon.h"

using namespace kelmora;

namespace {

void to_json(Encoder &out, const kelmora_pon_stats &stats, const NodeId &id)
{
    out.string("id", id);
    out.object("throughput", [&](Encoder &throughput) {
        throughput.integer("tx", stats.throughput_tx);
        throughput.integer("rx", stats.throughput_rx);
    });
    out.object("pps", [&](Encoder &pps) {
        pps.integer("tx", stats.pps_tx);
        pps.integer("rx", stats.pps_rx);
    });
}

} // namespace

int pon_stats_to_translator(kelmora_resource *head, char **out)
{
    return encode<to_json>(head, out, Nodes::counting, Flags::plain);
}

// The figures are the device's.
int pon_stats_from_translator(kelmora_resource *, const char *, kelmora_errorlist *) { return 1; }
