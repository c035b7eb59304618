#include "frame/translator.h"
#include "records/pon.h"

using namespace kelmora;

namespace {

void write(Encoder &out, const kelmora_epon_llid_status &link, const NodeId &id)
{
    out.text("id", id);
    out.integer("llid_id", link.llid_id);
    out.integer("llid_id_status", link.llid_id_status);
    out.text("llid_id_status_desc", link.llid_id_status_desc);
}

} // namespace

int epon_llid_status_to_translator(kelmora_resource *head, char **out)
{
    return encode<write>(head, out, Shape::counting, Flags::compact);
}

// read-only: there is nothing to write.
int epon_llid_status_from_translator(kelmora_resource * /*node*/, const char * /*text*/, kelmora_errorlist * /*errors*/)
{
    return 1;
}
