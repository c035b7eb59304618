#include "frame/translator.h"
#include "records/qos.h"

using namespace kelmora;

namespace {

void write(Encoder &out, const kelmora_qos_available_dscp *first, const NodeId &id)
{
    out.text("id", id);
    out.array("qos_available_dscp", [&](ArrayEncoder &list) {
        for (const auto &available : chain(first)) {
            list.object([&](Encoder &entry) {
                entry.integer("id", available.id);
                entry.whole_text("dscp", available.dscp);
            });
        }
    });
}

} // namespace

int qos_available_dscp_to_translator(kelmora_resource *head, char **out)
{
    return encode<write>(head, out, Shape::walking | Shape::literal_when_empty, Flags::pretty);
}

// What is on offer is the host's to decide.
int qos_available_dscp_from_translator(kelmora_resource * /*node*/, const char * /*text*/,
                                       kelmora_errorlist * /*errors*/)
{
    return 1;
}
