#include "frame/translator.h"
#include "records/pon.h"

using namespace kelmora;

namespace {

void write(Encoder &out, const kelmora_pon_status &status, const NodeId &id)
{
    out.text("id", id);
    out.real("bias_current", status.bias_current);
    out.text("part_number", status.part_number);
    out.real("rx_power", status.rx_power);
    out.real("temperature", status.temperature);
    out.text("vendor_name", status.vendor_name);
    out.real("tx_power", status.tx_power);
    out.real("voltage", status.voltage);
    out.text("current_mode", status.current_mode);
}

} // namespace

int pon_status_to_translator(kelmora_resource *head, char **out)
{
    return encode<write>(head, out, Shape::counting, Flags::compact);
}

// read-only: there is nothing to write.
int pon_status_from_translator(kelmora_resource * /*node*/, const char * /*text*/, kelmora_errorlist * /*errors*/)
{
    return 1;
}
