#include "host/gateway/samples.h"

#include "records/firewall.h"

namespace kelmora_host {

namespace {

constexpr kelmora_natportredirect web_redirect{
    .description = "Photo album on the storage",
    .protocol = 1,
    .external_port_start = 8443,
    .external_port_end = 8443,
    .internalIP = "192.168.17.21",
    .internal_port_start = 443,
    .internal_port_end = 443,
};

constexpr kelmora_natportredirect game_redirect{
    .description = "Console in the living room",
    .protocol = 2,
    .external_port_start = 3478,
    .external_port_end = 3480,
    .internalIP = "192.168.17.130",
    .internal_port_start = 3478,
    .internal_port_end = 3480,
};

constexpr kelmora_firewall_port_forwarding_enable forwarding{.enabled = 1};

constexpr kelmora_firewall_port_forwarding_table storage_rule{
    .comment = "Backups of the office",
    .local_ip = "192.168.17.21",
    .local_port_from = 22,
    .local_port_to = 22,
    .protocol = 1,
    .remote_ip = "198.51.100.77",
    .remote_port_from = 2222,
    .remote_port_to = 2222,
    .interface = "wan0",
};

constexpr kelmora_firewall_port_forwarding_table camera_rule{
    .comment = "Camera over the garden gate",
    .local_ip = "192.168.17.42",
    .local_port_from = 554,
    .local_port_to = 555,
    .protocol = 3,
    .remote_ip = "0.0.0.0",
    .remote_port_from = 50554,
    .remote_port_to = 50555,
    .interface = "wan0",
};

} // namespace

void add_firewall_forwarding_samples(Gateway &gateway)
{
    gateway.add("natportredirect", "0", web_redirect);
    gateway.add("natportredirect", "1", game_redirect);

    gateway.add("firewall_port_forwarding_enable", "0", forwarding);

    gateway.add("firewall_port_forwarding_table", "0", storage_rule);
    gateway.add("firewall_port_forwarding_table", "1", camera_rule);
}

} // namespace kelmora_host
