#ifndef KELMORA_HOST_GATEWAY_SAMPLES_H
#define KELMORA_HOST_GATEWAY_SAMPLES_H

#include "host/gateway/gateway.h"

namespace kelmora_host {

// The parts of the sample gateway.
void add_device_accounts_samples(Gateway &gateway);
void add_device_identity_samples(Gateway &gateway);
void add_device_maintenance_samples(Gateway &gateway);
void add_diagnostics_samples(Gateway &gateway);
void add_firewall_acl_samples(Gateway &gateway);
void add_firewall_blocking_samples(Gateway &gateway);
void add_firewall_filters_samples(Gateway &gateway);
void add_firewall_forwarding_samples(Gateway &gateway);
void add_firewall_rules_samples(Gateway &gateway);
void add_ipv6_dhcp_samples(Gateway &gateway);
void add_ipv6_prefixes_samples(Gateway &gateway);
void add_ipv6_routes_samples(Gateway &gateway);
void add_pon_samples(Gateway &gateway);
void add_qos_classification_samples(Gateway &gateway);
void add_qos_policy_samples(Gateway &gateway);
void add_remote_mgmt_tr069_samples(Gateway &gateway);
void add_remote_mgmt_tr369_samples(Gateway &gateway);
void add_routing_routes_samples(Gateway &gateway);
void add_routing_switching_samples(Gateway &gateway);
void add_wan_lan_lan_samples(Gateway &gateway);
void add_wan_lan_wan_samples(Gateway &gateway);
void add_wireless_mesh_samples(Gateway &gateway);
void add_wireless_samples(Gateway &gateway);

} // namespace kelmora_host

#endif
