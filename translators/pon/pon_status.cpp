#include "frame/translator.h"
#include "records/pon.h"

using namespace kelmora;

namespace {

void to_json(Encoder &out, const kelmora_pon_status &status, const NodeId &id)
{
    out.string("id", id);
    out.real("bias_current", status.bias_current);
    out.string("part_number", status.part_number);
    out.real("rx_power", status.rx_power);
    out.real("temperature", status.temperature);
    out.string("vendor_name", status.vendor_name);
    out.real("tx_power", status.tx_power);
    out.real("voltage", status.voltage);
    out.string("current_mode", status.current_mode);
}

} // namespace

int pon_status_to_translator(kelmora_resource *head, char **out)
{
    return encode<to_json>(head, out, Nodes::counting, Flags::plain);
}

// The figures are the device's.
int pon_status_from_translator(kelmora_resource *, const char *, kelmora_errorlist *) { return 1; }
