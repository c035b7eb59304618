#include "host/gateway/samples.h"

#include "records/firewall.h"

namespace kelmora_host {

namespace {

kelmora_firewall_domain_blocking blocked_domains()
{
    return {
        .enable = 1,
        .domains = make_chain<kelmora_firewall_domain_blocking_domain>({
            {.domain = "ads.example.com", .next = nullptr},
            {.domain = "tracker.example.net", .next = nullptr},
            {.domain = "casino.example", .next = nullptr},
        }),
    };
}

kelmora_firewall_url_blocking blocked_urls()
{
    return {
        .enable = 1,
        .urls = make_chain<kelmora_firewall_url_blocking_url>({
            {.url = "http://games.example.com/arcade", .next = nullptr},
            {.url = "http://video.example.org/live?channel=7", .next = nullptr},
        }),
        .keywords = make_chain<kelmora_firewall_url_blocking_keyword>({
            {.keyword = "lottery", .next = nullptr},
            {.keyword = "betting", .next = nullptr},
        }),
    };
}

kelmora_parental_control children()
{
    return {
        .enabled = 1,
        .parental_control_list = make_chain<kelmora_parental_control_rule>({
            {
                .username = "Mia's tablet",
                .address_type = 1,
                .ip_address_from = "",
                .ip_address_to = "",
                .mac_address = "f4:0f:24:b1:66:03",
                .days = 62,
                .hours_begin = 20,
                .minutes_begin = 30,
                .hours_end = 6,
                .minutes_end = 45,
                .next = nullptr,
            },
            {
                .username = "Games console",
                .address_type = 0,
                .ip_address_from = "192.168.17.40",
                .ip_address_to = "192.168.17.41",
                .mac_address = "",
                .days = 65,
                .hours_begin = 22,
                .minutes_begin = 0,
                .hours_end = 9,
                .minutes_end = 0,
                .next = nullptr,
            },
        }),
    };
}

} // namespace

void add_firewall_blocking_samples(Gateway &gateway)
{
    gateway.add("firewall_domain_blocking", "0", blocked_domains());

    gateway.add("firewall_url_blocking", "0", blocked_urls());

    gateway.add("parental_control", "0", children());
}

} // namespace kelmora_host
