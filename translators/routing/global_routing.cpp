#include "frame/translator.h"
#include "records/routing.h"
#include "translators/routing/route.h"

using namespace kelmora;

namespace {

void to_json(Encoder &out, const kelmora_global_routing &routing, const NodeId &id)
{
    out.string("id", id);
    route_to_json(out, routing.route);
}

} // namespace

int global_routing_to_translator(kelmora_resource *head, char **out)
{
    return encode<to_json>(head, out, Nodes::counting, Flags::pretty);
}

// The routing table is read-only.
int global_routing_from_translator(kelmora_resource *, const char *, kelmora_errorlist *) { return 1; }
