#include "frame/translator.h"
#include "records/wan_lan.h"

using namespace kelmora;

namespace {

void to_json(Encoder &out, const kelmora_wan_service_type &services, const NodeId &id)
{
    out.string("id", id);
    out.boolean("service_other_video", services.service_other_video);
    out.boolean("service_tr069", services.service_tr069);
    out.boolean("service_internet", services.service_internet);
    out.boolean("service_voice", services.service_voice);
}

void from_json(Decoder &in, kelmora_wan_service_type &services)
{
    in.required_boolean("service_other_video"_bare_key, services.service_other_video);
    in.required_boolean("service_tr069"_bare_key, services.service_tr069);
    in.required_boolean("service_internet"_bare_key, services.service_internet);
    in.required_boolean("service_voice"_bare_key, services.service_voice);
}

} // namespace

int wan_service_type_to_translator(kelmora_resource *head, char **out)
{
    return encode<to_json>(head, out, Nodes::counting, Flags::plain);
}

int wan_service_type_from_translator(kelmora_resource *node, const char *text, kelmora_errorlist *errors)
{
    return decode<from_json>(node, text, errors);
}
