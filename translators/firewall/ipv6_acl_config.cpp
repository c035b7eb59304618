#include "frame/translator.h"
#include "records/firewall.h"

using namespace kelmora;

namespace {

void to_json(Encoder &out, const kelmora_ipv6_acl_config &rule, const NodeId &id)
{
    out.string("id", id);
    out.string("interfaceID", rule.interfaceID);
    out.string("ip6_start_addr", rule.ip6_start_addr);
    out.integer("ip6_prefix_length", rule.ip6_prefix_length);
    out.boolean("enable", rule.enable);
    out.boolean("service_any", rule.service_any);
    out.boolean("service_telnet", rule.service_telnet);
    out.boolean("service_ftp", rule.service_ftp);
    out.boolean("service_tftp", rule.service_tftp);
    out.boolean("service_http", rule.service_http);
    out.boolean("service_https", rule.service_https);
    out.boolean("service_ping", rule.service_ping);
    out.boolean("service_ssh", rule.service_ssh);
}

void from_json(Decoder &in, kelmora_ipv6_acl_config &rule)
{
    in.required_string("interfaceID"_key, rule.interfaceID);
    in.required_string("ip6_start_addr"_key, rule.ip6_start_addr);
    in.required_integer("ip6_prefix_length"_key, rule.ip6_prefix_length);
    in.required_boolean("enable"_key, rule.enable);
    in.required_boolean("service_any"_key, rule.service_any);
    in.optional_boolean("service_telnet", rule.service_telnet); // Contract: the only one that may be absent
    in.required_boolean("service_ftp"_key, rule.service_ftp);
    in.required_boolean("service_tftp"_key, rule.service_tftp);
    in.required_boolean("service_http"_key, rule.service_http);
    in.required_boolean("service_https"_key, rule.service_https);
    in.required_boolean("service_ping"_key, rule.service_ping);
    in.required_boolean("service_ssh"_key, rule.service_ssh);
}

} // namespace

int ipv6_acl_config_to_translator(kelmora_resource *head, char **out)
{
    return encode<to_json>(head, out, Nodes::counting_if_any, Flags::pretty);
}

int ipv6_acl_config_from_translator(kelmora_resource *node, const char *text, kelmora_errorlist *errors)
{
    return decode<from_json>(node, text, errors);
}
