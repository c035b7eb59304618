#include "frame/translator.h"
#include "records/remote_mgmt.h"

using namespace kelmora;

namespace {

void to_json(Encoder &out, const kelmora_tr069_inform &inform, const NodeId &id)
{
    out.string("id", id);
    out.integer("status", inform.status);
    out.whole_string("cause", inform.cause);
}

} // namespace

int tr069_inform_to_translator(kelmora_resource *head, char **out)
{
    return encode<to_json>(head, out, Nodes::walking, Flags::plain);
}

// A report is read-only.
int tr069_inform_from_translator(kelmora_resource *, const char *, kelmora_errorlist *) { return 1; }
