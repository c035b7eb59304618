#include "host/gateway/gateway.h"

#include "host/gateway/samples.h"

namespace kelmora_host {

std::vector<Node> &Gateway::nodes(std::string_view resource)
{
    const auto found = nodes_.find(resource);
    return found != nodes_.end() ? found->second : nodes_[std::string(resource)];
}

Gateway sample_gateway()
{
    Gateway gateway;
    add_device_accounts_samples(gateway);
    add_device_identity_samples(gateway);
    add_device_maintenance_samples(gateway);
    add_diagnostics_samples(gateway);
    add_firewall_acl_samples(gateway);
    add_firewall_blocking_samples(gateway);
    add_firewall_filters_samples(gateway);
    add_firewall_forwarding_samples(gateway);
    add_firewall_rules_samples(gateway);
    add_ipv6_dhcp_samples(gateway);
    add_ipv6_prefixes_samples(gateway);
    add_ipv6_routes_samples(gateway);
    add_pon_samples(gateway);
    add_qos_classification_samples(gateway);
    add_qos_policy_samples(gateway);
    add_remote_mgmt_tr069_samples(gateway);
    add_remote_mgmt_tr369_samples(gateway);
    add_routing_routes_samples(gateway);
    add_routing_switching_samples(gateway);
    add_wan_lan_lan_samples(gateway);
    add_wan_lan_wan_samples(gateway);
    add_wireless_mesh_samples(gateway);
    add_wireless_samples(gateway);
    return gateway;
}

} // namespace kelmora_host
