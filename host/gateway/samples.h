#ifndef KELMORA_HOST_GATEWAY_SAMPLES_H
#define KELMORA_HOST_GATEWAY_SAMPLES_H

#include "host/gateway/gateway.h"

/// The parts of the sample gateway, in the order in which they are added: samples/PART.cpp defines add_PART_samples. A
/// new file is named here and nowhere else.
#define KELMORA_SAMPLES(PART)                                                                                          \
    PART(device_accounts)                                                                                              \
    PART(device_identity)                                                                                              \
    PART(device_maintenance)                                                                                           \
    PART(diagnostics)                                                                                                  \
    PART(firewall_acl)                                                                                                 \
    PART(firewall_blocking)                                                                                            \
    PART(firewall_filters)                                                                                             \
    PART(firewall_forwarding)                                                                                          \
    PART(firewall_rules)                                                                                               \
    PART(ipv6_dhcp)                                                                                                    \
    PART(ipv6_prefixes)                                                                                                \
    PART(ipv6_routes)                                                                                                  \
    PART(pon)                                                                                                          \
    PART(qos_classification)                                                                                           \
    PART(qos_policy)                                                                                                   \
    PART(remote_mgmt_tr069)                                                                                            \
    PART(remote_mgmt_tr369)                                                                                            \
    PART(routing_routes)                                                                                               \
    PART(routing_switching)                                                                                            \
    PART(wan_lan_lan)                                                                                                  \
    PART(wan_lan_wan)                                                                                                  \
    PART(wireless_mesh)                                                                                                \
    PART(wireless)

namespace kelmora_host {

#define PART(name) void add_##name##_samples(Gateway &gateway);
KELMORA_SAMPLES(PART)
#undef PART

} // namespace kelmora_host

#endif
