#include "frame/translator.h"
#include "records/firewall.h"

using namespace kelmora;

namespace {

void service_to_json(Encoder &out, const char *name, const kelmora_acl_config_service &setting)
{
    out.object(name, [&](Encoder &service) {
        service.boolean("enable", setting.enable);
        service.integer("port", setting.port);
    });
}

void to_json(Encoder &out, const kelmora_acl_config &rule, const NodeId &id)
{
    out.string("id", id);
    out.string("interfaceID", rule.interfaceID);
    out.string("ip_start_addr", rule.ip_start_addr);
    out.string("ip_end_addr", rule.ip_end_addr);
    out.boolean("enable", rule.enable);
    out.boolean("service_any", rule.service_any);
    out.boolean("service_tftp", rule.service_tftp);
    out.boolean("service_ping", rule.service_ping);
    service_to_json(out, "service_telnet", rule.service_telnet);
    service_to_json(out, "service_ftp", rule.service_ftp);
    service_to_json(out, "service_http", rule.service_http);
    service_to_json(out, "service_https", rule.service_https);
    service_to_json(out, "service_ssh", rule.service_ssh);
}

void service_from_json(const Decoder &service, Key enable, Key port, kelmora_acl_config_service &setting)
{
    service.require(enable, port); // both or neither is stored
    service.required_boolean(enable, setting.enable);
    service.required_integer(port, setting.port);
}

void from_json(Decoder &in, kelmora_acl_config &rule)
{
    in.required_string("interfaceID"_key, rule.interfaceID);
    in.required_string("ip_start_addr"_key, rule.ip_start_addr);
    in.required_string("ip_end_addr"_key, rule.ip_end_addr);
    in.required_boolean("enable"_key, rule.enable);
    in.required_boolean("service_any"_key, rule.service_any);
    in.required_boolean("service_tftp"_key, rule.service_tftp);
    in.required_boolean("service_ping"_key, rule.service_ping);
    if (const Decoder telnet = in.optional("service_telnet")) // Contract: the only one that may be absent
        service_from_json(telnet, "service_telnet.enable"_bare_key, "service_telnet.port"_bare_key,
                          rule.service_telnet);
    const Decoder ftp = in.required(key<"service_ftp", "service_ftp", "object not found">());
    service_from_json(ftp, "service_ftp.enable"_bare_key, "service_ftp.port"_bare_key, rule.service_ftp);
    const Decoder http = in.required(key<"service_http", "service_http", "object not found">());
    service_from_json(http, "service_http.enable"_bare_key, "service_http.port"_bare_key, rule.service_http);
    const Decoder https = in.required(key<"service_https", "service_https", "object not found">());
    service_from_json(https, "service_https.enable"_bare_key, "service_https.port"_bare_key, rule.service_https);
    const Decoder ssh = in.required(key<"service_ssh", "service_ssh", "object not found">());
    service_from_json(ssh, "service_ssh.enable"_bare_key, "service_ssh.port"_bare_key, rule.service_ssh);
}

} // namespace

int acl_config_to_translator(kelmora_resource *head, char **out)
{
    // Contract: the only one with this flag word.
    return encode<to_json>(head, out, Nodes::counting_if_any, Flags::insertion_order);
}

int acl_config_from_translator(kelmora_resource *node, const char *text, kelmora_errorlist *errors)
{
    return decode<from_json>(node, text, errors);
}
