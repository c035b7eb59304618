#include "frame/translator.h"
#include "records/pon.h"

using namespace kelmora;

namespace {

void to_json(Encoder &out, const kelmora_epon_llid_status &link, const NodeId &id)
{
    out.string("id", id);
    out.integer("llid_id", link.llid_id);
    out.integer("llid_id_status", link.llid_id_status);
    out.string("llid_id_status_desc", link.llid_id_status_desc);
}

} // namespace

int epon_llid_status_to_translator(kelmora_resource *head, char **out)
{
    return encode<to_json>(head, out, Nodes::counting, Flags::plain);
}

// The figures are the device's.
int epon_llid_status_from_translator(kelmora_resource *, const char *, kelmora_errorlist *) { return 1; }
