#include "frame/translator.h"
#include "records/routing.h"

using namespace kelmora;

namespace {

void to_json(Encoder &out, const kelmora_rip_enable &rip, const NodeId &id)
{
    out.string("id", id);
    out.boolean("enable", rip.enable);
}

void from_json(Decoder &in, kelmora_rip_enable &rip)
{
    in.leak_document_on_failure(true); // Contract: a missing key leaks the document
    in.required_boolean(key<"enable", "enable", "enable not found">(), rip.enable);
}

} // namespace

int rip_enable_to_translator(kelmora_resource *head, char **out)
{
    return encode<to_json>(head, out, Nodes::walking_if_any, Flags::plain);
}

int rip_enable_from_translator(kelmora_resource *node, const char *text, kelmora_errorlist *errors)
{
    return decode<from_json>(node, text, errors);
}
