#include "frame/translator.h"
#include "records/pon.h"

using namespace kelmora;

namespace {

void to_json(Encoder &out, const kelmora_pon_nodes &onu, const NodeId &id)
{
    out.string("id", id);
    out.integer("ponOnuId", onu.ponOnuId);
    out.string("model", onu.model);
    out.integer("gpon_provisioning_state", onu.gpon_provisioning_state);
}

} // namespace

int pon_nodes_to_translator(kelmora_resource *head, char **out)
{
    return encode<to_json>(head, out, Nodes::counting, Flags::plain);
}

// The figures are the device's.
int pon_nodes_from_translator(kelmora_resource *, const char *, kelmora_errorlist *) { return 1; }
