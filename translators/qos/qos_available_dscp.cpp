#include "frame/translator.h"
#include "records/qos.h"

using namespace kelmora;

namespace {

void to_json(Encoder &out, const kelmora_qos_available_dscp *first, const NodeId &id)
{
    out.string("id", id);
    out.array("qos_available_dscp", [&](ArrayEncoder &list) {
        for (const auto &available : chain(first)) {
            list.object([&](Encoder &entry) {
                entry.integer("id", available.id);
                entry.whole_string("dscp", available.dscp);
            });
        }
    });
}

} // namespace

int qos_available_dscp_to_translator(kelmora_resource *head, char **out)
{
    return encode<to_json>(head, out, Nodes::walking_if_any, Flags::pretty);
}

// What is on offer is the host's to decide.
int qos_available_dscp_from_translator(kelmora_resource *, const char *, kelmora_errorlist *) { return 1; }
