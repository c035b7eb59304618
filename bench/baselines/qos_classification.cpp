#include "bench/baselines/baselines.h"
#include "bench/baselines/json.h"

#include "records/qos.h"

namespace kelmora_bench {

namespace {

using Ip4 = char[17];
using Ip6 = char[46];

json_t *ip_of(const Ip4 &ip4, const Ip4 &ip4_mask, const Ip6 &ip6, std::uint8_t ip6_prefix_length)
{
    json_t *ip = json_object();
    json_object_set_new(ip, "ip4", json_string(ip4));
    json_object_set_new(ip, "ip4_mask", json_string(ip4_mask));
    json_object_set_new(ip, "ip6", json_string(ip6));
    json_object_set_new(ip, "ip6_prefix_length", json_integer(ip6_prefix_length));
    return ip;
}

void ip_from_json(const json_t *in, Ip4 &ip4, Ip4 &ip4_mask, Ip6 &ip6, std::uint8_t &ip6_prefix_length)
{
    store_string(ip4, json_object_get(in, "ip4"));
    store_string(ip4_mask, json_object_get(in, "ip4_mask"));
    store_string(ip6, json_object_get(in, "ip6"));
    store_integer(ip6_prefix_length, json_object_get(in, "ip6_prefix_length"));
}

json_t *ports_of(std::uint16_t start, std::uint16_t end)
{
    json_t *ports = json_object();
    json_object_set_new(ports, "start", json_integer(start));
    json_object_set_new(ports, "end", json_integer(end));
    return ports;
}

void ports_from_json(const json_t *in, std::uint16_t &start, std::uint16_t &end)
{
    store_integer(start, json_object_get(in, "start"));
    store_integer(end, json_object_get(in, "end"));
}

void fill(json_t *out, const kelmora_qos_classification &rule, const char *id)
{
    json_object_set_new(out, "id", json_string(id));
    json_object_set_new(out, "rule_name", json_string(rule.rule_name));
    json_object_set_new(out, "order", json_integer(rule.order));
    json_object_set_new(out, "mode", json_integer(rule.mode));
    json_t *precedence = json_object();
    json_object_set_new(precedence, "precedence", json_integer(rule.precedence));
    json_object_set_new(precedence, "cos_802_1p", json_integer(rule.cos_802_1p));
    json_object_set_new(precedence, "dscp_remarking", json_integer(rule.dscp_remarking));
    json_object_set_new(out, "precedence", precedence);
    json_t *port = json_object();
    json_object_set_new(port, "physical_port", json_integer(rule.physical_port));
    json_object_set_new(port, "dscp_pattern", json_integer(rule.port_dscp_pattern));
    json_object_set_new(out, "port", port);
    json_t *ethertype = json_object();
    json_object_set_new(ethertype, "value", json_integer(rule.ethertype_value));
    json_object_set_new(out, "ethertype", ethertype);
    json_t *ip = json_object();
    json_object_set_new(ip, "ip_version", json_integer(rule.ip_version));
    json_object_set_new(ip, "protocol", json_integer(rule.protocol));
    json_object_set_new(ip, "dscp_pattern", json_integer(rule.ip_dscp_pattern));
    json_object_set_new(ip, "ip_config_src",
                        ip_of(rule.src_ip4, rule.src_ip4_mask, rule.src_ip6, rule.src_ip6_prefix_length));
    json_object_set_new(ip, "ip_config_dst",
                        ip_of(rule.dst_ip4, rule.dst_ip4_mask, rule.dst_ip6, rule.dst_ip6_prefix_length));
    json_object_set_new(ip, "src_port", ports_of(rule.src_port_start, rule.src_port_end));
    json_object_set_new(ip, "dst_port", ports_of(rule.dst_port_start, rule.dst_port_end));
    json_object_set_new(out, "ip_protocol", ip);
    json_t *mac = json_object();
    json_object_set_new(mac, "src", json_string(rule.mac_src));
    json_object_set_new(mac, "dst", json_string(rule.mac_dst));
    json_object_set_new(out, "mac", mac);
}

void from_json(const json_t *in, kelmora_qos_classification &rule)
{
    store_string(rule.rule_name, json_object_get(in, "rule_name"));
    if (json_object_get(in, "order") != nullptr)
        return;
    store_integer(rule.mode, json_object_get(in, "mode"));
    const json_t *precedence = json_object_get(in, "precedence");
    store_integer(rule.precedence, json_object_get(precedence, "precedence"));
    store_integer(rule.cos_802_1p, json_object_get(precedence, "cos_802_1p"));
    store_integer(rule.dscp_remarking, json_object_get(precedence, "dscp_remarking"));
    const json_t *port = json_object_get(in, "port");
    store_integer(rule.physical_port, json_object_get(port, "physical_port"));
    store_integer(rule.port_dscp_pattern, json_object_get(port, "dscp_pattern"));
    store_integer(rule.ethertype_value, json_object_get(json_object_get(in, "ethertype"), "value"));
    const json_t *ip = json_object_get(in, "ip_protocol");
    store_integer(rule.ip_version, json_object_get(ip, "ip_version"));
    store_integer(rule.protocol, json_object_get(ip, "protocol"));
    store_integer(rule.ip_dscp_pattern, json_object_get(ip, "dscp_pattern"));
    ip_from_json(json_object_get(ip, "ip_config_src"), rule.src_ip4, rule.src_ip4_mask, rule.src_ip6,
                 rule.src_ip6_prefix_length);
    ip_from_json(json_object_get(ip, "ip_config_dst"), rule.dst_ip4, rule.dst_ip4_mask, rule.dst_ip6,
                 rule.dst_ip6_prefix_length);
    ports_from_json(json_object_get(ip, "src_port"), rule.src_port_start, rule.src_port_end);
    ports_from_json(json_object_get(ip, "dst_port"), rule.dst_port_start, rule.dst_port_end);
    const json_t *mac = json_object_get(in, "mac");
    store_string(rule.mac_src, json_object_get(mac, "src"));
    store_string(rule.mac_dst, json_object_get(mac, "dst"));
}

} // namespace

} // namespace kelmora_bench

using namespace kelmora_bench;

int qos_classification_to_baseline(kelmora_resource *head, char **out)
{
    return render_nodes<kelmora_qos_classification, fill>(head, 0, out);
}

int qos_classification_from_baseline(kelmora_resource *node, const char *text, kelmora_errorlist * /*errors*/)
{
    return document_from_json<kelmora_qos_classification, from_json>(node, text);
}
