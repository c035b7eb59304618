#include "frame/translator.h"
#include "records/firewall.h"

#include <cstdint>

using namespace kelmora;

namespace {

void write_service(Encoder &out, const char *name, const kelmora_acl_config_service &setting)
{
    out.object(name, [&](Encoder &service) {
        service.boolean("enable", setting.enable);
        service.integer("port", setting.port);
    });
}

void write(Encoder &out, const kelmora_acl_config &rule, const NodeId &id)
{
    out.text("id", id);
    out.text("interfaceID", rule.interfaceID);
    out.text("ip_start_addr", rule.ip_start_addr);
    out.text("ip_end_addr", rule.ip_end_addr);
    out.boolean("enable", rule.enable);
    out.boolean("service_any", rule.service_any);
    out.boolean("service_tftp", rule.service_tftp);
    out.boolean("service_ping", rule.service_ping);
    write_service(out, "service_telnet", rule.service_telnet);
    write_service(out, "service_ftp", rule.service_ftp);
    write_service(out, "service_http", rule.service_http);
    write_service(out, "service_https", rule.service_https);
    write_service(out, "service_ssh", rule.service_ssh);
}

template <FixedText name> constexpr Key service_key() { return key<name, name, "object not found">(); }
template <FixedText name> constexpr Key enable_of()
{
    return key<"enable", name + FixedText(".enable"), "field not found">();
}
template <FixedText name> constexpr Key port_of()
{
    return key<"port", name + FixedText(".port"), "field not found">();
}

void read_service(Decoder service, Key enable_key, Key port_key, kelmora_acl_config_service &setting)
{
    const Decoder enable = service.required(enable_key);
    const Decoder port = service.required(port_key);
    if (service.ok()) { // both or neither
        setting.enable = enable.is_true() ? 1 : 0;
        setting.port = static_cast<std::uint16_t>(port.integer());
    }
}

template <FixedText name> void read_service(Decoder service, kelmora_acl_config_service &setting)
{
    read_service(service, enable_of<name>(), port_of<name>(), setting);
}

void read(Decoder &in, kelmora_acl_config &rule)
{
    in.required_text("interfaceID"_key, rule.interfaceID);
    in.required_text("ip_start_addr"_key, rule.ip_start_addr);
    in.required_text("ip_end_addr"_key, rule.ip_end_addr);
    in.required_boolean("enable"_key, rule.enable);
    in.required_boolean("service_any"_key, rule.service_any);
    in.required_boolean("service_tftp"_key, rule.service_tftp);
    in.required_boolean("service_ping"_key, rule.service_ping);
    if (const Decoder telnet = in.optional("service_telnet")) // the only one that may be absent, on purpose
        read_service<"service_telnet">(telnet, rule.service_telnet);
    read_service<"service_ftp">(in.required(service_key<"service_ftp">()), rule.service_ftp);
    read_service<"service_http">(in.required(service_key<"service_http">()), rule.service_http);
    read_service<"service_https">(in.required(service_key<"service_https">()), rule.service_https);
    read_service<"service_ssh">(in.required(service_key<"service_ssh">()), rule.service_ssh);
}

} // namespace

int acl_config_to_translator(kelmora_resource *head, char **out)
{
    // The only one with this flag word, on purpose.
    return encode<write>(head, out, Shape::counting | Shape::literal_when_empty, Flags::insertion_order);
}

int acl_config_from_translator(kelmora_resource *node, const char *text, kelmora_errorlist *errors)
{
    return decode<read>(node, text, errors);
}
