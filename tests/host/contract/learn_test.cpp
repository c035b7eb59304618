#include "host/contract/contract.h"

#include "kelmora_json.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>
#include <vector>

// What is expected is written by hand from the resources' requirements, a line a key.
//
// A key that is taken: its path, its type ("u16" an unsigned integer of 16 bits, "str32" a string of at most 32 bytes),
// and what else there is to it. Left out is what is usual: an absent required key "x" is reported as (x, "x field not
// found", json), a string that is too long is cut, and the field behind "/a/*/b" is a[].b.
// A key that is written: the same, as far as it applies.

namespace kelmora_host::learn_test {

namespace {

using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using ::testing::IsEmpty;

using Lines = std::vector<std::string>;

Contract contract_of(std::string_view name)
{
    kelmora_json_init();
    const Resource *resource = find_resource(name);
    return learn(*resource, *Registry::instance().find(resource->number));
}

std::string name_of(std::string_view path)
{
    while (path.ends_with("/*"))
        path.remove_suffix(2);
    return std::string(path.substr(path.rfind('/') + 1));
}

/// "a[].b" for "/a/*/b".
std::string usual_field(std::string_view path)
{
    std::string field;
    for (std::size_t i = 1; i < path.size(); ++i) {
        if (path.substr(i, 2) == "/*") {
            field += "[]";
            ++i;
        } else {
            field += path[i] == '/' ? '.' : path[i];
        }
    }
    return field;
}

std::string joined(const std::vector<std::string> &parts)
{
    std::string text;
    for (const std::string &part : parts)
        text += (text.empty() ? "" : ",") + part;
    return text;
}

std::string text_of(const Condition &condition)
{
    const std::string what = condition.field.empty() ? condition.path : "field " + condition.field;
    std::string text = what +
                       (condition.except           ? "!="
                        : condition.values.empty() ? " is there"
                                                   : "=") +
                       joined(condition.values);
    if (!condition.field.empty() && !condition.path.empty())
        text += " without " + condition.path;
    return text;
}

std::string text_of(const Error &error)
{
    return "(" + error.field + ", " + error.message + (error.source == "json" ? "" : ", " + error.source) + ")";
}

std::string integer_type(unsigned bits, bool is_signed) { return (is_signed ? "i" : "u") + std::to_string(bits); }

std::string type_of(const InputKey &key)
{
    static constexpr std::string_view names[] = {"bool", "", "real ", "num ", "str", "obj", "list", "text", "any"};
    std::string type(names[static_cast<std::size_t>(key.type)]);
    if (key.bits != 0)
        type += integer_type(key.bits, key.is_signed);
    if (key.longest)
        type += std::to_string(*key.longest);
    return type;
}

std::string line_of(const InputKey &key)
{
    std::string line = key.path + " " + type_of(key);
    const auto add = [&line](bool is_so, const std::string &text) { line += is_so ? " " + text : ""; };
    add(key.required, "required");
    for (const Condition &condition : key.required_when)
        add(true, "required when " + text_of(condition));
    for (const Condition &condition : key.looked_at_when)
        add(true, "looked at when " + text_of(condition));
    const std::string name = name_of(key.path);
    add(key.absent && *key.absent != Error{name, name + " field not found", "json"},
        key.absent ? text_of(*key.absent) : "");
    add(key.refused, "refused");
    add(key.checked, "checked");
    add(key.unfit.has_value(), key.unfit ? text_of(*key.unfit) : "");
    add(key.skipped, "skipped");
    add(!key.only_with.empty(), "only with " + joined(key.only_with));
    add(key.at_least_one != 0, "at least one of " + std::to_string(key.at_least_one));
    add(key.saturates, "saturates");
    add(!key.values.empty(), "values " + joined(key.values));
    add(key.unknown.has_value(), "else " + (key.unknown ? text_of(*key.unknown) : ""));
    add(key.too_long == Excess::rejected, "longer is rejected");
    add(key.least != 0, "least " + std::to_string(key.least));
    add(key.most.has_value(), "most " + std::to_string(key.most.value_or(0)));
    add(key.too_many == Excess::ignored, "more are ignored");
    add(key.too_many == Excess::rejected, "more are rejected");
    add(key.out_of_size.has_value(), key.out_of_size ? text_of(*key.out_of_size) : "");
    static constexpr std::string_view effects[] = {"", "replaces", "appends", "prepends", "keeps first", "overwrites"};
    add(key.effect != ListEffect::none, std::string(effects[static_cast<std::size_t>(key.effect)]));
    add(key.empty_keeps, "empty keeps");
    add(key.empty_is_skipped, "empty skipped");
    add(key.cleared_when_absent, "cleared");
    add(key.marked_when_absent, "marked");
    for (const KeyField &field : key.fields)
        add(field.path != usual_field(key.path), "-> " + field.path);
    for (const KeyField &field : key.also_sets)
        add(true, "also " + field.path);
    return line;
}

std::string line_of(const OutputKey &key)
{
    static constexpr std::string_view names[] = {"bool", "", "real", "str", "obj", "list"};
    std::string line = key.path;
    for (const OutputType type : key.types) {
        line += " " + std::string(names[static_cast<std::size_t>(type)]);
        if (type == OutputType::integer)
            line += integer_type(key.bits, key.is_signed);
        if (type == OutputType::string && key.longest)
            line += std::to_string(*key.longest);
    }
    line += key.values.empty() ? "" : " values " + joined(key.values);
    line += key.id ? " id" : "";
    line += key.most ? " most " + std::to_string(*key.most) : "";
    for (const Condition &condition : key.when)
        line += " when " + text_of(condition);
    line += key.always || !key.when.empty() ? "" : " sometimes";
    line += key.like.empty() ? "" : " like " + key.like;
    for (const KeyField &field : key.fields)
        line += field.path != usual_field(key.path) ? " -> " + field.path : "";
    return line;
}

std::string shape_of(const Output &output)
{
    static constexpr std::string_view roots[] = {"by list flag", "array", "object"};
    static constexpr std::string_view nodes[] = {"counted", "all", "head", "head repeated"};
    return std::string(roots[static_cast<std::size_t>(output.root)]) + ", " +
           std::string(nodes[static_cast<std::size_t>(output.nodes)]) + (output.sorted ? ", sorted" : "") +
           (output.pretty ? ", pretty" : "") + (output.empty_without_count ? ", [] without count" : "") +
           (output.head_id ? ", head's id" : "");
}

template <class Direction> std::vector<std::string> lines_of(const Direction &direction)
{
    std::vector<std::string> lines;
    for (const auto &key : direction.keys)
        lines.push_back(line_of(key));
    return lines;
}

std::vector<std::string> taken(std::string_view resource) { return lines_of(*contract_of(resource).input); }

std::vector<std::string> written(std::string_view resource) { return lines_of(*contract_of(resource).output); }

std::string shape(std::string_view resource) { return shape_of(*contract_of(resource).output); }

TEST(Learn, TakesWidthsSignsAndWhatIsRequiredOfWireless)
{
    EXPECT_THAT(taken("wireless"),
                ElementsAre("/interfaceID str128 required", "/radioID str128 required", "/broadcast bool required",
                            "/ssid str32 required", "/cipher u32 required", "/crypto u32 required", "/mode u32",
                            "/key str63 required", "/wps bool required", "/enabled bool required", "/isRoot bool",
                            "/client_mode_rssi i32", "/ieee_std u32", "/guest_network bool"));
    EXPECT_THAT(written("wireless"),
                ElementsAre("/mode u32", "/enabled bool", "/id str128 id", "/ieee_std u32", "/interfaceID str128",
                            "/radioID str128", "/broadcast bool", "/ssid str32", "/bssid str17", "/cipher u32",
                            "/crypto u32", "/key str63", "/wps bool", "/isRoot bool", "/client_mode_rssi i32",
                            "/guest_network bool"));
    EXPECT_EQ(shape("wireless"), "by list flag, counted");
}

TEST(Learn, KnowsThatPowerIsLookedForBehindTheFeaturesOfRadio)
{
    EXPECT_THAT(taken("radio"), ElementsAre("/enabled bool required", "/opMode u32 required", "/frequency u32 required",
                                            "/configuredChannel u32 required", "/channel u32 required",
                                            "/extension u32 required", "/bandwidth u32 required", "/mu_mimo bool",
                                            "/beamforming bool", "/ofdma bool", "/twt bool", "/power u32 required"));
}

TEST(Learn, FindsThatTheLeasesOfDhcpServerAreOnlyShown)
{
    EXPECT_THAT(taken("dhcp_server"),
                ElementsAre("/enabled bool required", "/interface str127 required", "/rangeStart str16 required",
                            "/rangeEnd str16 required", "/dns_mode u32", "/dhcpLeaseTime i32", "/dns1 str16 required",
                            "/dns2 str16 required"));
    EXPECT_THAT(written("dhcp_server"),
                ElementsAre("/id str128 id", "/enabled bool", "/interface str127", "/rangeStart str16",
                            "/rangeEnd str16", "/dns_mode u32", "/dhcpLeaseTime i32", "/dns1 str16", "/dns2 str16",
                            "/leases list", "/leases/* obj", "/leases/*/mac str17", "/leases/*/ip str16"));
}

TEST(Learn, FindsTheMembersOfAnObjectThatMayBeAbsentInWan)
{
    EXPECT_THAT(taken("wan"),
                ElementsAre("/interfaceID str19 required", "/mode u32 required", "/address_mode_v6 u32",
                            "/gateway str16", "/gateway_v6 str45",
                            "/dns_v4 obj required (dns_v4, dns_v4 fields not found) checked "
                            "(dns_v4.automatic, automatic field not found)",
                            "/dns_v4/automatic bool required (dns_v4.automatic, automatic field not found) "
                            "-> dns_v4_automatic",
                            "/dns_v4/dns1 str45 -> dns_v4_dns1", "/dns_v4/dns2 str45 -> dns_v4_dns2",
                            "/dns_v4/dns3 str45 -> dns_v4_dns3",
                            "/dns_v6 obj checked (dns_v6.automatic, automatic field not found)",
                            "/dns_v6/automatic bool required (dns_v6.automatic, automatic field not found) "
                            "-> dns_v6_automatic",
                            "/dns_v6/dns1 str45 -> dns_v6_dns1", "/dns_v6/dns2 str45 -> dns_v6_dns2",
                            "/dns_v6/dns3 str45 -> dns_v6_dns3", "/clonedMac str17", "/napt_enable bool",
                            "/vlan_enable bool", "/prefix_enable bool", "/vlanID u16", "/multicast_vlanID u16",
                            "/omci_configured bool", "/protocol u32"));
}

TEST(Learn, FindsTheTypeOfVlanIdThatDependsOnTheRecord)
{
    EXPECT_THAT(written("wan"), ::testing::Contains("/vlanID u16 str0 values \"\" -> vlan_enable"));
}

TEST(Learn, FindsRefusedKeysAndTheTreeOfEasymesh)
{
    EXPECT_THAT(taken("easymesh"),
                ElementsAre("/enabled bool required", "/controllerIp str16 required", "/type u32 required",
                            "/backhaul u32 required", "/syncing any refused (syncing, syncing cannot be configured)",
                            "/neighbors list replaces empty keeps",
                            "/neighbors/* obj checked (neighbors, no mac field)",
                            "/neighbors/*/mac str17 required (neighbors, no mac field)",
                            "/neighbors/*/name str63 cleared", "/neighbors/*/model str63 cleared",
                            "/neighbors/*/neighbors any refused (neighbors, neighbors of neighbors cannot be set)"));
    EXPECT_THAT(written("easymesh"),
                ElementsAre("/enabled bool", "/controllerIp str16", "/backhaul_mac str17", "/backhaul_rssi i32",
                            "/type u32", "/backhaul u32", "/syncing u32", "/neighbors list", "/neighbors/* obj",
                            "/neighbors/*/name str63", "/neighbors/*/model str63", "/neighbors/*/is_online bool",
                            "/neighbors/*/ip str16", "/neighbors/*/mac str17", "/neighbors/*/rssi i32",
                            "/neighbors/*/backhaul u32", "/neighbors/*/neighbors list like /neighbors"));
}

TEST(Learn, FindsTheBodyOfHttpRequestThatAMeshSessionHides)
{
    EXPECT_THAT(taken("http_request"),
                ElementsAre("/dest str256 required", "/mesh_session bool cleared", "/method u32 required",
                            "/token str128", "/timeout i32", "/body text looked at when /mesh_session!=true"));
    EXPECT_THAT(written("http_request"),
                ElementsAre("/id str128 id", "/dest str256", "/mesh_session bool", "/method u32", "/timeout i32",
                            "/token str128", "/status i32", "/body str"));
    EXPECT_EQ(shape("http_request"), "by list flag, all, head's id");
}

TEST(Learn, FindsCheckedTypesAndAListThatTheHostAllocatesInWlanAccessControl)
{
    EXPECT_THAT(taken("wlan_access_control"),
                ElementsAre("/mode u32 required (mode, field not found) checked "
                            "(mode, data type must be a valid integer)",
                            "/mac_list list required (mac_list, field not found) checked "
                            "(mac_list, data type must be a valid array) replaces",
                            "/mac_list/* str17 checked (mac_address, data type must be a valid string) "
                            "-> mac_list[].mac"));
    EXPECT_THAT(written("wlan_access_control"),
                ElementsAre("/id str128 id", "/mode u32", "/mac_list list", "/mac_list/* str17 -> mac_list[].mac"));
}

TEST(Learn, FindsThatAnEmptyListKeepsTheRulesOfParentalControl)
{
    EXPECT_THAT(
        taken("parental_control"),
        ElementsAre("/enabled bool required (enabled, field not found) checked "
                    "(enabled, data type must be a valid boolean)",
                    "/parental_control_list list required (parental_control_list, field not found) checked "
                    "(parental_control_list, data type must be a valid array) replaces empty keeps",
                    "/parental_control_list/* obj checked (username, field not found)",
                    "/parental_control_list/*/username str31 required (username, field not found) checked "
                    "(username, data type must be a valid string)",
                    "/parental_control_list/*/address_type u32 required (address_type, field not found) checked "
                    "(address_type, data type must be a valid integer)",
                    "/parental_control_list/*/ip_address_from str16 required (ip_address_from, field not found) "
                    "checked (ip_address_from, data type must be a valid string)",
                    "/parental_control_list/*/ip_address_to str16 required (ip_address_to, field not found) "
                    "checked (ip_address_to, data type must be a valid string)",
                    "/parental_control_list/*/mac_address str17 required (mac_address, field not found) checked "
                    "(mac_address, data type must be a valid string)",
                    "/parental_control_list/*/days u32 required (days, field not found) checked "
                    "(days, data type must be a valid integer)",
                    "/parental_control_list/*/hours_begin u8 required (hours_begin, field not found) checked "
                    "(hours_begin, data type must be a valid integer)",
                    "/parental_control_list/*/minutes_begin u8 required (minutes_begin, field not found) checked "
                    "(minutes_begin, data type must be a valid integer)",
                    "/parental_control_list/*/hours_end u8 required (hours_end, field not found) checked "
                    "(hours_end, data type must be a valid integer)",
                    "/parental_control_list/*/minutes_end u8 required (minutes_end, field not found) checked "
                    "(minutes_end, data type must be a valid integer)"));
    EXPECT_EQ(shape("parental_control"), "object, head");
}

TEST(Learn, FindsTheSixteenSlotsOfWanLanList)
{
    EXPECT_THAT(taken("wan_lan_list"),
                ElementsAre("/lan_list list required (lan_list, field not found) most 16 more are ignored replaces",
                            "/lan_list/* obj checked (lan_list.lan_id, field not found)",
                            "/lan_list/*/lan_id str9 required (lan_list.lan_id, field not found)",
                            "/lan_list/*/enabled bool required (lan_list.enabled, field not found)"));
    EXPECT_THAT(written("wan_lan_list"), ElementsAre("/id str128 id", "/lan_list list most 16",
                                                     "/lan_list/* obj when field lan_list[].lan_id!=\"\"",
                                                     "/lan_list/*/lan_id str9", "/lan_list/*/enabled bool"));
}

TEST(Learn, FindsTheSlotsOfLoopBackDetectThatStayInUse)
{
    EXPECT_THAT(taken("loop_back_detect"),
                ElementsAre("/enabled bool required", "/detection_interval u16 required",
                            "/recovery_interval u16 required", "/frame_type str required",
                            "/vlan_list list required most 16 more are rejected "
                            "(vlan_list, vlan_list with more than 16 ids) overwrites empty keeps "
                            "also vlan_list[].in_use",
                            "/vlan_list/* u16 -> vlan_list[].vlan_id"));
    EXPECT_THAT(written("loop_back_detect"),
                ElementsAre("/id str128 id", "/enabled bool", "/detection_interval u16", "/recovery_interval u16",
                            "/frame_type str5", "/vlan_list list most 16",
                            "/vlan_list/* u16 when field vlan_list[].in_use!=0 -> vlan_list[].vlan_id"));
    EXPECT_EQ(shape("loop_back_detect"), "by list flag, all");
}

TEST(Learn, FindsTheFourQueuesOfQosPolicy)
{
    const std::string queue = "(queue_config, missing an object or field with enable and/or weight)";
    const std::string bandwidth = "(bandwidth_config, missing totalbandwidth_enable and/or totalbandwidth field(s))";
    EXPECT_THAT(
        taken("qos_policy"),
        ElementsAreArray(Lines{
            "/enable bool required", "/queue_mode u32 required",
            "/queue_config list required checked " + queue + " least 4 most 4 more are ignored " + queue + " replaces",
            "/queue_config/* obj checked " + queue, "/queue_config/*/enable bool required " + queue,
            "/queue_config/*/weight u8 required " + queue, "/bandwidth_config obj required checked " + bandwidth,
            "/bandwidth_config/totalbandwidth_enable bool required " + bandwidth + " -> totalbandwidth_enable",
            "/bandwidth_config/totalbandwidth u32 required " + bandwidth + " -> totalbandwidth"}));
    EXPECT_THAT(written("qos_policy"),
                ElementsAre("/bandwidth_config obj", "/bandwidth_config/totalbandwidth u32 -> totalbandwidth",
                            "/bandwidth_config/totalbandwidth_enable bool -> totalbandwidth_enable", "/enable bool",
                            "/id str128 id", "/queue_config list most 4", "/queue_config/* obj",
                            "/queue_config/*/enable bool", "/queue_config/*/weight u8", "/queue_mode u32"));
    EXPECT_EQ(shape("qos_policy"), "by list flag, all, sorted, pretty, [] without count");
}

TEST(Learn, FindsTheOrderThatQosClassificationRefuses)
{
    const std::string precedence = "(precedence.precedence, precedence fields not found)";
    EXPECT_THAT(taken("qos_classification"),
                ElementsAreArray(
                    Lines{"/rule_name str63 required",
                          "/order any refused (order, order is read-only field)",
                          "/mode u32 required",
                          "/precedence obj required (precedence, precedence fields not found) checked " + precedence,
                          "/precedence/precedence u32 required " + precedence + " -> precedence",
                          "/precedence/cos_802_1p u32 required (precedence.cos_802_1p, cos_802_1p "
                          "fields not found) -> cos_802_1p",
                          "/precedence/dscp_remarking u8 required (precedence.dscp_remarking, "
                          "dscp_remarking fields not found) -> dscp_remarking",
                          "/port obj",
                          "/port/physical_port u32 -> physical_port",
                          "/port/dscp_pattern u8 -> port_dscp_pattern",
                          "/ethertype obj",
                          "/ethertype/value u16 -> ethertype_value",
                          "/ip_protocol obj",
                          "/ip_protocol/ip_version u32 -> ip_version",
                          "/ip_protocol/protocol u32 -> protocol",
                          "/ip_protocol/dscp_pattern u8 -> ip_dscp_pattern",
                          "/ip_protocol/ip_config_src obj",
                          "/ip_protocol/ip_config_src/ip4 str16 -> src_ip4",
                          "/ip_protocol/ip_config_src/ip4_mask str16 -> src_ip4_mask",
                          "/ip_protocol/ip_config_src/ip6 str45 -> src_ip6",
                          "/ip_protocol/ip_config_src/ip6_prefix_length u8 -> src_ip6_prefix_length",
                          "/ip_protocol/ip_config_dst obj",
                          "/ip_protocol/ip_config_dst/ip4 str16 -> dst_ip4",
                          "/ip_protocol/ip_config_dst/ip4_mask str16 -> dst_ip4_mask",
                          "/ip_protocol/ip_config_dst/ip6 str45 -> dst_ip6",
                          "/ip_protocol/ip_config_dst/ip6_prefix_length u8 -> dst_ip6_prefix_length",
                          "/ip_protocol/src_port obj",
                          "/ip_protocol/src_port/start u16 -> src_port_start",
                          "/ip_protocol/src_port/end u16 -> src_port_end",
                          "/ip_protocol/dst_port obj",
                          "/ip_protocol/dst_port/start u16 -> dst_port_start",
                          "/ip_protocol/dst_port/end u16 -> dst_port_end",
                          "/mac obj",
                          "/mac/src str17 -> mac_src",
                          "/mac/dst str17 -> mac_dst"}));
}

TEST(Learn, FindsThatTheListOfLimitsGoesInFront)
{
    EXPECT_THAT(taken("limits"),
                ElementsAre("/port_redirect i32", "/qos_rules i32", "/static_leases i32", "/filter_ip i32",
                            "/filter_mac i32", "/filter_port i32", "/filter_url i32",
                            "/wifi_limits list prepends empty keeps", "/wifi_limits/* obj",
                            "/wifi_limits/*/radio_id str6 cleared", "/wifi_limits/*/value i32 cleared"));
    EXPECT_THAT(written("limits"),
                ElementsAre("/filter_ip i32", "/filter_mac i32", "/filter_port i32", "/filter_url i32",
                            "/port_redirect i32", "/qos_rules i32", "/static_leases i32", "/wifi_limits list",
                            "/wifi_limits/* obj", "/wifi_limits/*/radio_id str6", "/wifi_limits/*/value i32"));
    EXPECT_EQ(shape("limits"), "by list flag, all, sorted, pretty, [] without count");
}

TEST(Learn, FindsTheIntegerOfDdnsThatIsASwitch)
{
    EXPECT_THAT(taken("ddns"),
                ElementsAre("/provider u32 required", "/hostname str34 required", "/interface str19 required",
                            "/username str34 required", "/password str34 required", "/enabled u1 required saturates",
                            "/instance_num u32 required", "/service_port u16 required", "/status u32"));
    EXPECT_THAT(written("ddns"),
                ElementsAre("/enabled u8", "/hostname str34", "/id str128 id", "/instance_num u32", "/interface str19",
                            "/password str34", "/provider u32", "/service_port u16", "/status u32", "/username str34"));
}

TEST(Learn, FindsTheServerThatDatetimeWantsUnlessItIsAutomatic)
{
    EXPECT_THAT(taken("datetime"),
                ElementsAre("/timezone str7", "/dst_enabled bool",
                            "/ntp_server obj checked (ntp_server, ntp_server not found)",
                            "/ntp_server/enabled bool cleared -> ntp_enabled",
                            "/ntp_server/automatic bool cleared -> ntp_automatic",
                            "/ntp_server/ntp_server1 str254 required when /ntp_server/automatic!=true "
                            "(ntp_server, ntp_server not found) -> ntp_server1",
                            "/ntp_server/ntp_server2 str254 -> ntp_server2"));
    EXPECT_THAT(written("datetime"),
                ElementsAre("/datetime u32", "/dst_enabled bool", "/id str128 id", "/ntp_server obj",
                            "/ntp_server/automatic bool -> ntp_automatic", "/ntp_server/enabled bool -> ntp_enabled",
                            "/ntp_server/ntp_server1 str254 -> ntp_server1",
                            "/ntp_server/ntp_server2 str254 -> ntp_server2", "/synced bool", "/timezone str7",
                            "/timezone_list list", "/timezone_list/* obj", "/timezone_list/*/id u32",
                            "/timezone_list/*/region str when field timezone_list[].region!=null"));
}

TEST(Learn, FindsTheRangeOfRemoteWebAccessThatTheRecordMayWant)
{
    const std::string when = " required when field enable_ip_range!=0 without /enable_ip_range required when "
                             "/enable_ip_range=true";
    EXPECT_THAT(taken("remote_web_access"),
                ElementsAreArray(Lines{"/enabled bool required", "/port u32 required", "/enable_ip_range bool",
                                       "/rangeStart str16" + when, "/rangeEnd str16" + when, "/ipv6Enabled bool",
                                       "/pingWan bool"}));
}

TEST(Learn, FindsTheLifetimesOfIpv6RadvdThatStopAtTheLargest)
{
    const auto in = [](const std::string &object, const std::string &key, const std::string &type) {
        return "/" + object + "/" + key + " " + type + " required (" + object + ":" + key + ", " + key +
               " field not found) -> " + key;
    };
    EXPECT_THAT(
        taken("ipv6_radvd"),
        ElementsAreArray(Lines{
            "/max_rtr_adv_interval u32 required", "/min_rtr_adv_interval u32 required",
            "/adv_managed_flag bool required", "/ipv6_prefix_mode_auto bool required",
            "/ipv6_prefix obj required checked (ipv6_prefix:prefix, prefix field "
            "not found)",
            in("ipv6_prefix", "prefix", "str45"), in("ipv6_prefix", "prefix_size", "u16"),
            "/ipv6_prefix/adv_valid_lifetime num u32 required "
            "(ipv6_prefix:adv_valid_lifetime, adv_valid_lifetime field not found) "
            "saturates -> adv_valid_lifetime",
            "/ipv6_prefix/adv_preferred_lifetime num u32 required "
            "(ipv6_prefix:adv_preferred_lifetime, adv_preferred_lifetime field not "
            "found) saturates -> adv_preferred_lifetime",
            in("ipv6_prefix", "adv_on_link", "bool"), in("ipv6_prefix", "adv_autonomous", "bool"),
            in("ipv6_prefix", "rdnss1", "str45"), in("ipv6_prefix", "rdnss2", "str45"), "/enable_ula bool required",
            "/ipv6_ula_settings obj required checked (ipv6_ula_settings:ula_prefix, "
            "ula_prefix field not found)",
            in("ipv6_ula_settings", "ula_prefix", "str16"), in("ipv6_ula_settings", "ula_prefix_len", "u32"),
            "/ipv6_ula_settings/ula_valid_time num u32 required "
            "(ipv6_ula_settings:ula_valid_time, ula_valid_time field not found) "
            "saturates -> ula_valid_time",
            "/ipv6_ula_settings/ula_prefer_time num u32 required "
            "(ipv6_ula_settings:ula_prefer_time, ula_prefer_time field not found) "
            "saturates -> ula_prefer_time"}));
}

TEST(Learn, FindsTheRealsThatInterfaceStatisticsTakesForIntegers)
{
    EXPECT_THAT(taken("interface_statistics"),
                ElementsAre("/interfaceID str127 required", "/tx real u32 required saturates",
                            "/rx real u32 required saturates", "/unity_size i32 required", "/time u32 required"));
    EXPECT_THAT(written("interface_statistics"), ElementsAre("/id str128 id", "/interfaceID str127", "/tx u32",
                                                             "/rx u32", "/unity_size i32", "/time u32"));
}

TEST(Learn, FindsTheFieldsOfIptablesThatAnotherKeyEmpties)
{
    EXPECT_THAT(taken("iptables"),
                ElementsAre("/chain u32 required", "/policy u32 required", "/ip_protocol u32", "/position i32",
                            "/protocol u32", "/source obj", "/source/ip str45 -> source_ip also source_mac",
                            "/source/mac str17 -> source_mac also source_interface",
                            "/source/interface str5 -> source_interface", "/source/port i32 -> source_port",
                            "/destination obj", "/destination/ip str45 -> destination_ip also destination_mac",
                            "/destination/mac str17 -> destination_mac also destination_interface",
                            "/destination/interface str5 -> destination_interface",
                            "/destination/port i32 -> destination_port", "/url str128"));
}

TEST(Learn, FindsTheVariantsOfAnMtpOfTr369LocalAgentController)
{
    const std::string websocket = "(mtp.websocket.host, missing host field)";
    const std::string mqtt = "(mtp.mqtt, missing reference field)";
    EXPECT_THAT(
        taken("tr369_local_agent_controller"),
        ElementsAreArray(Lines{
            "/enabled bool required", "/endpoint_id str255 required", "/periodic_notific_interval i32 required",
            "/mtp list required appends empty keeps", "/mtp/* obj checked (mtp, missing enabled field)",
            "/mtp/*/enabled bool required (mtp, missing enabled field)",
            "/mtp/*/protocol u32 required (mtp, missing protocol field) values 0,1 else "
            "(mtp.protocol, invalid protocol)",
            "/mtp/*/websocket obj required looked at when /mtp/*/protocol=0 " + websocket + " checked " + websocket,
            "/mtp/*/websocket/host str255 required " + websocket + " -> mtp[].variant.websocket.host",
            "/mtp/*/websocket/port i32 required (mtp.websocket.port, missing port field) "
            "-> mtp[].variant.websocket.port",
            "/mtp/*/websocket/path str255 required (mtp.websocket, missing path field) "
            "-> mtp[].variant.websocket.path",
            "/mtp/*/websocket/encryption bool required (mtp.websocket.encryption, missing "
            "encryption field) -> mtp[].variant.websocket.encryption",
            "/mtp/*/websocket/keep_alive_interval i32 required "
            "(mtp.websocket.keep_alive_interval, missing keep_alive_interval field) "
            "-> mtp[].variant.websocket.keep_alive_interval",
            "/mtp/*/mqtt obj required looked at when /mtp/*/protocol=1 " + mqtt + " checked " + mqtt,
            "/mtp/*/mqtt/reference str127 required " + mqtt + " -> mtp[].variant.mqtt.reference",
            "/mtp/*/mqtt/reference_topic str255 required (mtp.mqtt, missing "
            "reference_topic field) -> mtp[].variant.mqtt.reference_topic"}));
    EXPECT_THAT(written("tr369_local_agent_controller"),
                ElementsAre("/id str128 id", "/enabled bool", "/endpoint_id str255", "/periodic_notific_interval i32",
                            "/mtp list", "/mtp/* obj", "/mtp/*/enabled bool", "/mtp/*/protocol u32",
                            "/mtp/*/websocket obj when field mtp[].protocol=0",
                            "/mtp/*/websocket/host str255 -> mtp[].variant.websocket.host",
                            "/mtp/*/websocket/port i32 -> mtp[].variant.websocket.port",
                            "/mtp/*/websocket/path str255 -> mtp[].variant.websocket.path",
                            "/mtp/*/websocket/encryption bool -> mtp[].variant.websocket.encryption",
                            "/mtp/*/websocket/keep_alive_interval i32 -> mtp[].variant.websocket.keep_alive_interval",
                            "/mtp/*/mqtt obj when field mtp[].protocol=1",
                            "/mtp/*/mqtt/reference str127 -> mtp[].variant.mqtt.reference",
                            "/mtp/*/mqtt/reference_topic str255 -> mtp[].variant.mqtt.reference_topic"));
}

TEST(Learn, FindsTheSettingsThatTr369LocalAgentMtpTakesForMqttAlone)
{
    const auto in = [](const std::string &key, const std::string &type) {
        return "/mqtt_config/" + key + " " + type + " required (mqtt_config." + key + ", mqtt_config." + key +
               " field not found) -> " + key;
    };
    EXPECT_THAT(taken("tr369_local_agent_mtp"),
                ElementsAreArray(Lines{"/enabled bool required", "/protocol u32 required values 1",
                                       "/mqtt_config obj required looked at when /protocol=1 checked "
                                       "(mqtt_config.reference, mqtt_config.reference field not found)",
                                       in("reference", "str127"), in("reference_topic", "str256"), in("qos", "u32")}));
    EXPECT_THAT(written("tr369_local_agent_mtp"),
                ElementsAre("/enabled bool", "/id str128 id", "/protocol u32", "/mqtt_config obj",
                            "/mqtt_config/reference str127 when field protocol=1 -> reference",
                            "/mqtt_config/reference_topic str256 when field protocol=1 -> reference_topic",
                            "/mqtt_config/qos u32 when field protocol=1 -> qos"));
}

TEST(Learn, FindsTheListOfTr369MqttClientThatTheHostAppendsTo)
{
    EXPECT_THAT(taken("tr369_mqtt_client"),
                ElementsAre("/enabled bool required", "/brokeraddress str255 required", "/brokerport i32 required",
                            "/username str255 required", "/password str255 required", "/clientID str255 required",
                            "/keep_alive_time i32 required", "/protocol_version u32 required",
                            "/transport_protocol u32 required", "/subscription list required appends empty keeps",
                            "/subscription/* obj checked (subscription, no enabled field)",
                            "/subscription/*/enabled bool required (subscription, no enabled field)",
                            "/subscription/*/topic str255 required (subscription, no topic field)",
                            "/subscription/*/qos u32 required (subscription, no qos field)"));
}

TEST(Learn, FindsThatSessionSkipsValuesThatAreNoStrings)
{
    EXPECT_THAT(taken("session"),
                ElementsAre("/username str33 skipped", "/password str33 skipped", "/token str129 skipped"));
    EXPECT_THAT(written("session"), ElementsAre("/username str33"));
    EXPECT_EQ(shape("session"), "array, all, sorted, pretty");
}

TEST(Learn, FindsTheKeysWhoseAbsenceDeviceMarks)
{
    EXPECT_THAT(taken("device"),
                ElementsAre("/show_wizard bool marked", "/alias str63 marked", "/login_enable bool marked",
                            "/leds bool marked", "/is_manageable bool marked"));
    EXPECT_THAT(written("device"),
                ElementsAre("/id str128 id", "/model str63", "/uptime u32", "/fw_version str63", "/show_wizard bool",
                            "/login_enable bool", "/alias str63", "/leds bool", "/is_manageable bool"));
    EXPECT_EQ(shape("device"), "by list flag, head repeated");
}

TEST(Learn, FindsTheErrorOfFactoryDefaultThatNamesTheResource)
{
    EXPECT_THAT(taken("factory_default"),
                ElementsAre("/pressedTime i32 required (factory_default, pressedTime field not found)"));
    EXPECT_THAT(written("factory_default"), ElementsAre("/id str128 id", "/pressedTime i32"));
}

TEST(Learn, FindsTheStringsThatFirewallUrlBlockingRejects)
{
    const std::string rejected = " longer is rejected (";
    const std::string message = ", one or more elements exceeds the maximum of characters, size) empty skipped -> ";
    EXPECT_THAT(taken("firewall_url_blocking"),
                ElementsAreArray(Lines{"/enable bool required (enable, field not found)",
                                       "/urls list required (urls, field not found) keeps first empty keeps",
                                       "/urls/* str127" + rejected + "url" + message + "urls[].url",
                                       "/keywords list required (keywords, field not found) keeps first empty "
                                       "keeps",
                                       "/keywords/* str19" + rejected + "keyword" + message + "keywords[].keyword"}));
}

TEST(Learn, FindsThatTheDmzOfSystemIsStoredAsAPairOnly)
{
    EXPECT_THAT(taken("system"),
                ElementsAre("/upnp bool required", "/upnp_wan_if str19", "/operationMode u32",
                            "/limited_user_enabled bool", "/sip_alg bool", "/dmz obj",
                            "/dmz/enabled bool only with /dmz/ip4 -> dmz_enabled",
                            "/dmz/ip4 str16 looked at when /dmz/enabled is there only with /dmz/enabled -> dmz_ip4",
                            "/ipv6 obj", "/ipv6/enabled bool -> ipv6_enabled"));
    EXPECT_EQ(shape("system"), "by list flag, all, sorted, pretty");
}

TEST(Learn, FindsThatMirroringIsOneObjectOfTheHead)
{
    EXPECT_EQ(shape("mirroring"), "object, head, sorted, pretty, [] without count");
}

TEST(Learn, FindsNothingInTheDirectionsThatThereAreNot)
{
    const Contract raw = contract_of("backup_restore");
    EXPECT_FALSE(raw.input);
    EXPECT_FALSE(raw.output);
    EXPECT_FALSE(contract_of("status").input);
    EXPECT_TRUE(contract_of("status").output);
    EXPECT_TRUE(contract_of("telnet").input);
    EXPECT_FALSE(contract_of("telnet").output);
}

TEST(Learn, KnowsTypeOffsetSizeAndMeaningOfAField)
{
    const Contract contract = contract_of("radio");
    const std::vector<KeyField> &fields = contract.input->keys.at(1).fields;
    ASSERT_EQ(fields.size(), 1U);
    EXPECT_EQ(fields[0].path, "opMode");
    EXPECT_EQ(fields[0].type, "uint32_t");
    EXPECT_EQ(fields[0].offset, 4U);
    EXPECT_EQ(fields[0].size, 4U);
    EXPECT_THAT(std::string(fields[0].meaning), ::testing::Not(IsEmpty()));
}

TEST(Learn, TellsAContractAsJson)
{
    EXPECT_THAT(contract_as_json(contract_of("factory_default")),
                ::testing::StartsWith(R"({"resource": "factory_default", "group": "device", "number": )"));
    EXPECT_THAT(contract_as_json(contract_of("factory_default")),
                ::testing::HasSubstr(R"("directions": "both", "input": {"keys": [{"path": "/pressedTime", )"
                                     R"("type": "integer", "required": true, "absent": {"field": "factory_default", )"
                                     R"("message": "pressedTime field not found", "source": "json"}, "bits": 32, )"
                                     R"("is_signed": true, "fields": [{"path": "pressedTime", "type": "int32_t", )"
                                     R"("offset": 0, "size": 4, "meaning": )"));
}

} // namespace

} // namespace kelmora_host::learn_test
