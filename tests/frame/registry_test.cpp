#include "host/gateway/resources.h"
#include "host/plugin/registry.h"

#include "host/gateway/node.h"
#include "host/plugin/errors.h"
#include "host/plugin/translate.h"

#include "kelmora_json.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <iterator>
#include <set>
#include <string>
#include <string_view>

namespace kelmora_host::frame_registry_test {

namespace {

constexpr std::size_t count = KELMORA_RESOURCE_COUNT;
constexpr int last = KELMORA_RESOURCE_COUNT - 1;

class Init : public testing::Test {
protected:
    Init() { Registry::instance().clear(); }
    ~Init() override { Registry::instance().clear(); }

    const std::vector<Registration> &log_ = Registry::instance().log();
};

TEST_F(Init, RegistersEachNumberInOrder)
{
    kelmora_json_init();
    ASSERT_EQ(log_.size(), count);
    for (int number = 0; number < KELMORA_RESOURCE_COUNT; ++number)
        EXPECT_EQ(log_[static_cast<std::size_t>(number)].number, number);
}

TEST_F(Init, RegistersThePairOfEachResourceFromBeforeTo)
{
    kelmora_json_init();
#define EXPECT_PAIR(number, name, group, directions)                                                                   \
    EXPECT_EQ(log_[number].from, name##_from_translator) << #name;                                                     \
    EXPECT_EQ(log_[number].to, name##_to_translator) << #name;
    KELMORA_RESOURCES(EXPECT_PAIR)
#undef EXPECT_PAIR
    EXPECT_EQ(log_[0].from, wireless_from_translator);
    EXPECT_EQ(log_[0].to, wireless_to_translator);
    EXPECT_EQ(log_[5].from, radio_from_translator);
    EXPECT_EQ(log_[20].to, site_survey_to_translator);
}

TEST_F(Init, ReturnsTheAnswerToTheLastPairAlone)
{
    Registry::instance().answer = [](const Registration &registration) {
        return registration.number == last ? 42 : -1;
    };
    EXPECT_EQ(kelmora_json_init(), 42);
    EXPECT_EQ(log_.size(), count);
    Registry::instance().answer = [](const Registration &registration) { return registration.number == last ? 0 : 1; };
    EXPECT_EQ(kelmora_json_init(), 0);
}

TEST_F(Init, RegistersTheSamePairsWhenCalledAgain)
{
    kelmora_json_init();
    const std::vector<Registration> first = log_;
    kelmora_json_init();
    ASSERT_EQ(log_.size(), 2 * count);
    for (std::size_t i = 0; i < count; ++i) {
        EXPECT_EQ(log_[count + i].number, first[i].number);
        EXPECT_EQ(log_[count + i].from, first[i].from);
        EXPECT_EQ(log_[count + i].to, first[i].to);
    }
}

TEST(Version, IsOneConstant)
{
    EXPECT_STREQ(kelmora_json_get_version(), "1.3.0");
    EXPECT_EQ(kelmora_json_get_version(), kelmora_json_get_version());
}

TEST(Resources, HaveTheNumbersThatTheHostKnows)
{
    // By number; with its direction where it has only one. New ones come behind them.
    const std::string_view known[] = {
        "wireless",
        "session",
        "interface",
        "natportredirect",
        "wan",
        "radio",
        "lan",
        "upgrade_by_file (from only)",
        "factory_default",
        "pppoe",
        "remote_web_access",
        "dhcp_server",
        "telnet (from only)",
        "mp_info",
        "action",
        "user",
        "device",
        "status (to only)",
        "interface_statistics",
        "connected_device (to only)",
        "site_survey (to only)",
        "system",
        "easymesh",
        "ping",
        "qos",
        "qos_rule",
        "filter",
        "limits",
        "dhcp_static_lease",
        "daily_reboot",
        "datetime",
        "traceroute",
        "wan_detect",
        "iptables",
        "mirroring",
        "pon_stats (to only)",
        "pon_settings",
        "pon_nodes (to only)",
        "pon_counters (to only)",
        "syslog",
        "gpon_status (to only)",
        "gem_port_stats (to only)",
        "pon_status (to only)",
        "http_request",
        "loop_back_detect",
        "epon_llid_status (to only)",
        "ipv6_radvd",
        "wan_lan_list",
        "wan_service_type",
        "ipv6_proxy_mld",
        "loopback_detect_status",
        "acl_capability",
        "acl_config",
        "tr069_config",
        "lan_port_status (to only)",
        "firewall_domain_blocking",
        "firewall_url_blocking",
        "firewall_mac_filtering",
        "firewall_ip_port_filtering",
        "firewall_alg",
        "tr069_inform (to only)",
        "firewall_port_forwarding_enable",
        "igmp_proxy",
        "firewall_port_forwarding_table",
        "backup_restore",
        "neighbour_hosts",
        "ipv6_acl_capability",
        "ipv6_acl_config",
        "ipv6_dhcp",
        "static_routing",
        "qos_policy",
        "qos_available_dscp (to only)",
        "qos_classification",
        "ipv6_static_route",
        "global_routing (to only)",
        "ddns",
        "qos_traffic_control",
        "bridging",
        "change_to_firmware_version",
        "igmp_mld_snooping",
        "ipv6_static_route_list (to only)",
        "rip_enable",
        "rip_config",
        "ipv6_ip_port_filter",
        "ipv6_ip_port_filter_default_rule",
        "ipv6_dhcp_server",
        "ipv6_dhcp_relay",
        "ipv6_dhcp_client (to only)",
        "dhcp_client (to only)",
        "automatic_maintenance",
        "parental_control",
        "custom_default_config",
        "ipv6_prefix_delegation",
        "wlan_access_control",
        "limited_user_permissions (to only)",
        "tr369_mqtt_client",
        "tr369_local_agent_mtp",
        "tr369_local_agent_controller",
    };
    ASSERT_LE(std::size(known), resources().size());
    for (std::size_t number = 0; number < std::size(known); ++number) {
        const Resource &resource = resources()[number];
        std::string description(resource.name);
        if (resource.directions != Directions::both)
            description += resource.directions == Directions::to_only ? " (to only)" : " (from only)";
        EXPECT_EQ(description, known[number]);
    }
}

TEST(Resources, StandInTheOrderOfTheirNumbersUnderNamesOfTheirOwn)
{
    std::set<std::string_view> names;
    int number = 0;
    for (const Resource &resource : resources()) {
        EXPECT_EQ(resource.number, number++);
        EXPECT_TRUE(names.insert(resource.name).second) << resource.name;
    }
    EXPECT_EQ(number, KELMORA_RESOURCE_COUNT);
}

} // namespace

} // namespace kelmora_host::frame_registry_test
