#include "frame/translator.h"
#include "records/routing.h"

using namespace kelmora;

namespace {

void to_json(Encoder &out, const kelmora_rip_config &rip, const NodeId &id)
{
    out.string("id", id);
    out.string("interfaceID", rip.interfaceID);
    out.integer("receive_mode", rip.receive_mode);
    out.integer("send_mode", rip.send_mode);
}

void from_json(Decoder &in, kelmora_rip_config &rip)
{
    in.leak_document_on_failure(true); // Contract: a missing key leaks the document
    in.required_string(key<"interfaceID", "interfaceID", "interfaceID not found">(), rip.interfaceID);
    in.required_integer(key<"receive_mode", "receive_mode", "receive_mode not found">(), rip.receive_mode);
    in.required_integer(key<"send_mode", "send_mode", "send_mode not found">(), rip.send_mode);
}

} // namespace

int rip_config_to_translator(kelmora_resource *head, char **out)
{
    return encode<to_json>(head, out, Nodes::walking_if_any, Flags::plain);
}

int rip_config_from_translator(kelmora_resource *node, const char *text, kelmora_errorlist *errors)
{
    return decode<from_json>(node, text, errors);
}
