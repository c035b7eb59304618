#include "host/gateway/samples.h"

#include "records/firewall.h"

namespace kelmora_host {

namespace {

constexpr kelmora_acl_capability capability{
    .capability = 1,
    .available_services = {"telnet", "ftp", "tftp", "http", "https", "ping", "ssh", ""},
};

constexpr kelmora_ipv6_acl_capability ipv6_capability{
    .capability = 1,
    .available_services = {"telnet", "ftp", "tftp", "http", "https", "ping", "ssh", ""},
};

constexpr kelmora_acl_config home_rule{
    .interfaceID = "br0",
    .ip_start_addr = "192.168.17.2",
    .ip_end_addr = "192.168.17.254",
    .enable = 1,
    .service_any = 0,
    .service_tftp = 0,
    .service_ping = 1,
    .service_telnet = {.enable = 0, .port = 23},
    .service_ftp = {.enable = 0, .port = 21},
    .service_http = {.enable = 1, .port = 80},
    .service_https = {.enable = 1, .port = 443},
    .service_ssh = {.enable = 1, .port = 22},
};

constexpr kelmora_acl_config support_rule{
    .interfaceID = "wan0",
    .ip_start_addr = "203.0.113.16",
    .ip_end_addr = "203.0.113.31",
    .enable = 0,
    .service_any = 0,
    .service_tftp = 0,
    .service_ping = 1,
    .service_telnet = {.enable = 0, .port = 23},
    .service_ftp = {.enable = 0, .port = 21},
    .service_http = {.enable = 0, .port = 80},
    .service_https = {.enable = 1, .port = 60443},
    .service_ssh = {.enable = 0, .port = 22},
};

constexpr kelmora_ipv6_acl_config ipv6_home_rule{
    .interfaceID = "br0",
    .ip6_start_addr = "2001:db8:4c:1700::",
    .ip6_prefix_length = 64,
    .enable = 1,
    .service_any = 0,
    .service_telnet = 0,
    .service_ftp = 0,
    .service_tftp = 0,
    .service_http = 1,
    .service_https = 1,
    .service_ping = 1,
    .service_ssh = 1,
};

constexpr kelmora_ipv6_acl_config ipv6_support_rule{
    .interfaceID = "wan0",
    .ip6_start_addr = "2001:db8:feed:10::",
    .ip6_prefix_length = 60,
    .enable = 0,
    .service_any = 0,
    .service_telnet = 0,
    .service_ftp = 0,
    .service_tftp = 0,
    .service_http = 0,
    .service_https = 1,
    .service_ping = 1,
    .service_ssh = 0,
};

} // namespace

void add_firewall_acl_samples(Gateway &gateway)
{
    gateway.add("acl_capability", "0", capability);
    gateway.add("ipv6_acl_capability", "0", ipv6_capability);

    gateway.add("acl_config", "0", home_rule);
    gateway.add("acl_config", "1", support_rule);

    gateway.add("ipv6_acl_config", "0", ipv6_home_rule);
    gateway.add("ipv6_acl_config", "1", ipv6_support_rule);
}

} // namespace kelmora_host
