#include "frame/translator.h"
#include "records/firewall.h"

using namespace kelmora;

namespace {

void to_json(Encoder &out, const kelmora_natportredirect &redirect, const NodeId &id)
{
    out.string("id", id);
    out.string("description", redirect.description);
    out.integer("protocol", redirect.protocol);
    out.object("externalPort", [&](Encoder &port) {
        port.integer("start", redirect.external_port_start);
        port.integer("end", redirect.external_port_end);
    });
    out.string("internalIP", redirect.internalIP);
    out.object("internalPort", [&](Encoder &port) {
        port.integer("start", redirect.internal_port_start);
        port.integer("end", redirect.internal_port_end);
    });
}

void from_json(Decoder &in, kelmora_natportredirect &redirect)
{
    in.optional_string("description", redirect.description);
    in.required_integer("protocol"_key, redirect.protocol);
    const Decoder external = in.required(key<"externalPort", "externalPort", "externalPort object not found">());
    external.required_integer(key<"start", "externalPort.start", "externalPort.start field not found">(),
                              redirect.external_port_start);
    external.required_integer(key<"end", "externalPort.end", "externalPort.end field not found">(),
                              redirect.external_port_end);
    const Decoder internal = in.required(key<"internalPort", "internalPort", "internalPort object not found">());
    internal.required_integer(key<"start", "internalPort.start", "internalPort.start field not found">(),
                              redirect.internal_port_start);
    internal.required_integer(key<"end", "internalPort.end", "internalPort.end field not found">(),
                              redirect.internal_port_end);
    in.required_string("internalIP"_key, redirect.internalIP); // last: the ports are stored by now
}

} // namespace

int natportredirect_to_translator(kelmora_resource *head, char **out)
{
    return encode<to_json>(head, out, Nodes::counting, Flags::plain);
}

int natportredirect_from_translator(kelmora_resource *node, const char *text, kelmora_errorlist *errors)
{
    return decode<from_json>(node, text, errors);
}
