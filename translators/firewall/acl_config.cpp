#include "frame/translator.h"
#include "records/firewall.h"

#include <cstdint>

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

template <FixedString name> constexpr Key service_key() { return key<name, name, "object not found">(); }
template <FixedString name> constexpr Key enable_of()
{
    return key<"enable", name + FixedString(".enable"), "field not found">();
}
template <FixedString name> constexpr Key port_of()
{
    return key<"port", name + FixedString(".port"), "field not found">();
}

void service_from_json(Decoder service, Key enable_key, Key port_key, kelmora_acl_config_service &setting)
{
    const Decoder enable = service.required(enable_key);
    const Decoder port = service.required(port_key);
    if (service.ok()) { // both or neither
        setting.enable = enable.is_true() ? 1 : 0;
        setting.port = static_cast<std::uint16_t>(port.integer());
    }
}

template <FixedString name> void service_from_json(Decoder service, kelmora_acl_config_service &setting)
{
    service_from_json(service, enable_of<name>(), port_of<name>(), setting);
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
    if (const Decoder telnet = in.optional("service_telnet")) // the only one that may be absent, on purpose
        service_from_json<"service_telnet">(telnet, rule.service_telnet);
    service_from_json<"service_ftp">(in.required(service_key<"service_ftp">()), rule.service_ftp);
    service_from_json<"service_http">(in.required(service_key<"service_http">()), rule.service_http);
    service_from_json<"service_https">(in.required(service_key<"service_https">()), rule.service_https);
    service_from_json<"service_ssh">(in.required(service_key<"service_ssh">()), rule.service_ssh);
}

} // namespace

int acl_config_to_translator(kelmora_resource *head, char **out)
{
    // The only one with this flag word, on purpose.
    return encode<to_json>(head, out, Nodes::counting_if_any, Flags::insertion_order);
}

int acl_config_from_translator(kelmora_resource *node, const char *text, kelmora_errorlist *errors)
{
    return decode<from_json>(node, text, errors);
}
