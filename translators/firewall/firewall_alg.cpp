#include "frame/translator.h"
#include "records/firewall.h"

using namespace kelmora;

namespace {

void write(Encoder &out, const kelmora_firewall_alg &gateways, const NodeId &id)
{
    out.text("id", id);
    out.boolean("ftp_enabled", gateways.ftp_enabled);
    out.boolean("tftp_enabled", gateways.tftp_enabled);
    out.boolean("h323_enabled", gateways.h323_enabled);
    out.boolean("rtsp_enabled", gateways.rtsp_enabled);
    out.boolean("l2tp_enabled", gateways.l2tp_enabled);
    out.boolean("ip_sec_enabled", gateways.ip_sec_enabled);
    out.boolean("sip_enabled", gateways.sip_enabled);
    out.boolean("pptp_enabled", gateways.pptp_enabled);
}

void read(Decoder &in, kelmora_firewall_alg &gateways)
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
    return encode<write>(head, out, Shape::walking | Shape::literal_when_empty, Flags::pretty);
}

int firewall_alg_from_translator(kelmora_resource *node, const char *text, kelmora_errorlist *errors)
{
    return decode<read>(node, text, errors);
}
