#include "frame/translator.h"
#include "records/routing.h"

using namespace kelmora;

namespace {

void write(Encoder &out, const kelmora_rip_enable &rip, const NodeId &id)
{
    out.text("id", id);
    out.boolean("enable", rip.enable);
}

void read(Decoder &in, kelmora_rip_enable &rip)
{
    in.keep_document_on_failure(true); // on purpose: success alone releases it
    in.required_boolean(key<"enable", "enable", "enable not found">(), rip.enable);
}

} // namespace

int rip_enable_to_translator(kelmora_resource *head, char **out)
{
    return encode<write>(head, out, Shape::walking | Shape::literal_when_empty, Flags::compact);
}

int rip_enable_from_translator(kelmora_resource *node, const char *text, kelmora_errorlist *errors)
{
    return decode<read>(node, text, errors);
}
