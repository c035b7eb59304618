#include "frame/translator.h"
#include "records/firewall.h"

using namespace kelmora;

namespace {

void to_json(Encoder &out, const kelmora_firewall_alg &gateways, const NodeId &id)
{
    out.string("id", id);
    out.boolean("ftp_enabled", gateways.ftp_enabled);
    out.boolean("tftp_enabled", gateways.tftp_enabled);
    out.boolean("h323_enabled", gateways.h323_enabled);
    out.boolean("rtsp_enabled", gateways.rtsp_enabled);
    out.boolean("l2tp_enabled", gateways.l2tp_enabled);
    out.boolean("ip_sec_enabled", gateways.ip_sec_enabled);
    out.boolean("sip_enabled", gateways.sip_enabled);
    out.boolean("pptp_enabled", gateways.pptp_enabled);
}

void from_json(Decoder &in, kelmora_firewall_alg &gateways)
{
    in.optional_boolean("ftp_enabled", gateways.ftp_enabled);
    in.optional_boolean("tftp_enabled", gateways.tftp_enabled);
    in.optional_boolean("h323_enabled", gateways.h323_enabled);
    in.optional_boolean("rtsp_enabled", gateways.rtsp_enabled);
    in.optional_boolean("l2tp_enabled", gateways.l2tp_enabled);
    in.optional_boolean("ip_sec_enabled", gateways.ip_sec_enabled);
    in.optional_boolean("sip_enabled", gateways.sip_enabled);
    in.optional_boolean("pptp_enabled", gateways.pptp_enabled);
}

} // namespace

int firewall_alg_to_translator(kelmora_resource *head, char **out)
{
    return encode<to_json>(head, out, Nodes::walking_if_any, Flags::pretty);
}

int firewall_alg_from_translator(kelmora_resource *node, const char *text, kelmora_errorlist *errors)
{
    return decode<from_json>(node, text, errors);
}
