#include "host/gateway/samples.h"

#include "records/ipv6.h"

namespace kelmora_host {

namespace {

constexpr kelmora_ipv6_radvd home_advertisement{
    .max_rtr_adv_interval = 600,
    .min_rtr_adv_interval = 200,
    .adv_managed_flag = 0,
    .ipv6_prefix_mode_auto = 1,
    .prefix = "2001:db8:4c:1700::",
    .prefix_size = 64,
    .adv_valid_lifetime = 86400,
    .adv_preferred_lifetime = 14400,
    .adv_on_link = 1,
    .adv_autonomous = 1,
    .rdnss1 = "fe80::1",
    .rdnss2 = "2620:fe::fe",
    .enable_ula = 1,
    .ula_prefix = "fd5e:17c2:94::",
    .ula_prefix_len = 48,
    .ula_valid_time = 4294967295,
    .ula_prefer_time = 4294967295,
};

constexpr kelmora_ipv6_prefix_delegation home_delegation{
    .mode = 1,
    .prefix = "2001:db8:4c:1700::/56",
    .interfaceID = "wan0",
};

constexpr kelmora_ipv6_proxy_mld mld_proxy{
    .robust_count = 2,
    .query_interval = 125,
    .query_response_interval = 100,
    .response_interval_of_last_group_member = 10,
};

} // namespace

void add_ipv6_prefixes_samples(Gateway &gateway)
{
    gateway.add("ipv6_radvd", "br0", home_advertisement);
    gateway.add("ipv6_prefix_delegation", "br0", home_delegation);
    gateway.add("ipv6_proxy_mld", "0", mld_proxy);
}

} // namespace kelmora_host
