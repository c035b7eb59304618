#include "frame/translator.h"
#include "records/pon.h"

using namespace kelmora;

namespace {

void write(Encoder &out, const kelmora_pon_stats &stats, const NodeId &id)
{
    out.text("id", id);
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
    return encode<write>(head, out, Shape::counting, Flags::compact);
}

// read-only: there is nothing to write.
int pon_stats_from_translator(kelmora_resource * /*node*/, const char * /*text*/, kelmora_errorlist * /*errors*/)
{
    return 1;
}
