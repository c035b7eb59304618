#include "frame/translator.h"
#include "records/ipv6.h"

using namespace kelmora;

namespace {

void to_json(Encoder &out, const kelmora_ipv6_dhcp_server &server, const NodeId &id)
{
    out.string("id", id);
    out.integer("mode", server.mode);
    out.object("addresses_config", [&](Encoder &config) {
        config.string("ip_pool_range_start", server.ip_pool_range_start);
        config.string("ip_pool_range_end", server.ip_pool_range_end);
        config.integer("prefix_length", server.prefix_length);
        config.integer("valid_lifetime", server.valid_lifetime);
        config.integer("preffered_lifetime", server.preffered_lifetime);
        config.integer("renew_time", server.renew_time);
        config.integer("rebind_time", server.rebind_time);
        config.string("client_duid", server.client_duid);
    });
    out.array("domains", [&](ArrayEncoder &list) {
        for (const auto &node : chain(server.domains))
            list.string(node.domain);
    });
    out.array("dns_servers", [&](ArrayEncoder &list) {
        for (const auto &node : chain(server.dns_servers))
            list.string(node.address);
    });
}

void from_json(Decoder &in, kelmora_ipv6_dhcp_server &server)
{
    in.required_integer("mode"_bare_key, server.mode); // Contract: the only bare message here
    in.leak_document_on_failure(true);                 // Contract: when this key is missing, and no other
    const Decoder config = in.required("addresses_config"_key);
    in.leak_document_on_failure(false);
    config.required_string("ip_pool_range_start"_key, server.ip_pool_range_start);
    config.required_string("ip_pool_range_end"_key, server.ip_pool_range_end);
    config.required_integer("prefix_length"_key, server.prefix_length);
    config.required_integer("valid_lifetime"_key, server.valid_lifetime);
    config.required_integer("preffered_lifetime"_key, server.preffered_lifetime);
    config.required_integer("renew_time"_key, server.renew_time);
    config.required_integer("rebind_time"_key, server.rebind_time);
    config.required_string("client_duid"_key, server.client_duid);
    // The host adds behind what its lists hold already; elements that are empty or no string go to it too, as empty.
    for (const Decoder element : in.optional_array("domains"))
        kelmora_ipv6_dhcp_domains_add(&server, element.string());
    for (const Decoder element : in.optional_array("dns_servers"))
        kelmora_ipv6_dhcp_dns_servers_add(&server, element.string());
}

} // namespace

int ipv6_dhcp_server_to_translator(kelmora_resource *head, char **out)
{
    return encode<to_json>(head, out, Nodes::counting, Flags::plain);
}

int ipv6_dhcp_server_from_translator(kelmora_resource *node, const char *text, kelmora_errorlist *errors)
{
    return decode<from_json>(node, text, errors);
}
