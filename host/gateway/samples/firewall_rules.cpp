#include "host/gateway/samples.h"

#include "records/firewall.h"

namespace kelmora_host {

namespace {

constexpr kelmora_iptables printer_rule{
    .ip_protocol = 4,
    .position = 1,
    .chain = 2,
    .protocol = 6,
    .source_ip = "192.168.18.0/24",
    .source_mac = "",
    .source_interface = "br1",
    .source_port = -1,
    .destination_ip = "192.168.17.20",
    .destination_mac = "00:1b:a9:6d:e3:0f",
    .destination_interface = "br0",
    .destination_port = 9100,
    .url = "",
    .policy = 1,
};

constexpr kelmora_iptables advertising_rule{
    .ip_protocol = 6,
    .position = 2,
    .chain = 2,
    .protocol = 6,
    .source_ip = "2001:db8:4c:1700::/64",
    .source_mac = "",
    .source_interface = "br0",
    .source_port = -1,
    .destination_ip = "",
    .destination_mac = "",
    .destination_interface = "wan0",
    .destination_port = 443,
    .url = "https://ads.example.com/",
    .policy = 2,
};

constexpr kelmora_firewall_alg gateways{
    .ftp_enabled = 1,
    .tftp_enabled = 0,
    .h323_enabled = 0,
    .rtsp_enabled = 1,
    .l2tp_enabled = 1,
    .ip_sec_enabled = 1,
    .sip_enabled = 0,
    .pptp_enabled = 0,
};

constexpr kelmora_ddns account{
    .provider = 2,
    .hostname = "nordlicht.dyn.example.net",
    .interface = "wan0",
    .username = "anna.petersen",
    .password = "otters under ice",
    .enabled = 1,
    .instance_num = 1,
    .service_port = 443,
    .status = 3,
};

} // namespace

void add_firewall_rules_samples(Gateway &gateway)
{
    gateway.add("iptables", "0", printer_rule);
    gateway.add("iptables", "1", advertising_rule);

    gateway.add("firewall_alg", "0", gateways);

    gateway.add("ddns", "0", account);
}

} // namespace kelmora_host
