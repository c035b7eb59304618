#include "host/contract/fields.h"

#include "host/gateway/blank.h"
#include "host/gateway/resources.h"
#include "kelmora_records.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <set>
#include <string>
#include <vector>

namespace kelmora_host::fields_test {

namespace {

using testing::ElementsAre;

constexpr bool is_wide = sizeof(void *) == 8;

/// What differs between machines with pointers of 8 and of 4 bytes.
template <class T> T by_width(T on_64_bits, T on_32_bits) { return is_wide ? on_64_bits : on_32_bits; }

std::string kind_name(FieldKind kind)
{
    switch (kind) {
    case FieldKind::unsigned_integer:
        return "unsigned";
    case FieldKind::signed_integer:
        return "signed";
    case FieldKind::real:
        return "real";
    case FieldKind::string:
        return "string";
    case FieldKind::bytes:
        return "bytes";
    case FieldKind::string_pointer:
        return "string pointer";
    case FieldKind::chain:
        return "chain";
    case FieldKind::next:
        return "next";
    case FieldKind::record:
        return "record";
    case FieldKind::alternatives:
        return "alternatives";
    }
    return "";
}

/// "OFFSET+SIZE NAME: KIND", with "[COUNT]" for an array and " of RECORD" where there is one.
std::string layout(const Field &field)
{
    std::string line = std::to_string(field.offset) + '+' + std::to_string(field.size) + ' ';
    line.append(field.name).append(": ").append(kind_name(field.kind));
    if (field.count != 0)
        line += '[' + std::to_string(field.count) + ']';
    if (field.record != nullptr)
        line.append(" of ").append(field.record->name);
    return line;
}

std::vector<std::string> layouts(const RecordType *type)
{
    std::vector<std::string> lines;
    for (const Field &field : type->fields)
        lines.push_back(layout(field));
    return lines;
}

const Field &field(std::string_view resource, std::string_view name)
{
    const Field *found = record_type(resource)->find(name);
    EXPECT_NE(found, nullptr) << resource << '.' << name;
    return *found;
}

const RecordType &nodes(std::string_view resource, std::string_view chain) { return *field(resource, chain).record; }

std::string path(const RecordType &type, std::size_t offset, std::size_t size)
{
    const auto place = describe_bytes(type, offset, size);
    return place ? place->path : "nothing";
}

std::string path(std::string_view resource, std::size_t offset, std::size_t size)
{
    return path(*record_type(resource), offset, size);
}

void collect(const RecordType &type, std::set<const RecordType *> &found)
{
    if (!found.insert(&type).second)
        return;
    for (const Field &field : type.fields) {
        if (field.record != nullptr)
            collect(*field.record, found);
    }
}

/// All structs and unions of the table.
std::set<const RecordType *> all_types()
{
    std::set<const RecordType *> found;
    for (const Resource &resource : resources())
        collect(*record_type(resource.name), found);
    return found;
}

bool is_union(const RecordType &type) { return type.name.find('.') != std::string_view::npos; }

TEST(RecordType, EveryResourceHasTheStructOfItsName)
{
    for (const Resource &resource : resources()) {
        const RecordType *type = record_type(resource.name);
        ASSERT_NE(type, nullptr) << resource.name;
        EXPECT_EQ(type->name, "kelmora_" + std::string(resource.name));
        EXPECT_FALSE(type->meaning.empty()) << resource.name;
        EXPECT_FALSE(type->fields.empty()) << resource.name;
        if (resource.name != "qos_available_dscp") {
            EXPECT_EQ(type->size, blank_record(resource).size()) << resource.name;
        }
    }
}

TEST(RecordType, IsNullForNoResource)
{
    EXPECT_EQ(record_type("nonsense"), nullptr);
    EXPECT_EQ(record_type(""), nullptr);
    EXPECT_EQ(record_type("kelmora_radio"), nullptr);
}

TEST(RecordType, OneResourceIsItselfANodeOfAChain)
{
    for (const Resource &resource : resources())
        EXPECT_EQ(record_type(resource.name)->is_node(), resource.name == "qos_available_dscp") << resource.name;
    EXPECT_TRUE(nodes("limits", "wifi_limits").is_node());
    EXPECT_FALSE(field("static_routing", "route").record->is_node());
}

TEST(RecordType, FindsAFieldByItsName)
{
    EXPECT_EQ(record_type("radio")->find("power")->offset, 32U);
    EXPECT_EQ(record_type("radio")->find("powe"), nullptr);
    EXPECT_EQ(record_type("radio")->find(""), nullptr);
}

TEST(RecordType, HoldsIntegersAndStringsWithTheirWidths)
{
    EXPECT_THAT(layouts(record_type("wireless")),
                ElementsAre("0+4 mode: unsigned", "4+1 enabled: unsigned", "8+4 ieee_std: unsigned",
                            "12+129 interfaceID: string", "141+129 radioID: string", "270+1 broadcast: unsigned",
                            "271+33 ssid: string", "304+18 bssid: string", "324+4 cipher: unsigned",
                            "328+4 crypto: unsigned", "332+64 key: string", "396+1 wps: unsigned",
                            "397+1 isRoot: unsigned", "400+4 client_mode_rssi: signed",
                            "404+1 guest_network: unsigned"));
    EXPECT_EQ(record_type("wireless")->size, 408U);
}

TEST(RecordType, HoldsReals)
{
    EXPECT_THAT(layouts(record_type("pon_status")),
                ElementsAre("0+4 bias_current: real", "4+64 part_number: string", "68+4 rx_power: real",
                            "72+4 temperature: real", "76+64 vendor_name: string", "140+4 tx_power: real",
                            "144+4 voltage: real", "148+5 current_mode: string"));
    EXPECT_EQ(layout(field("ping", "packets_lost_percent")), "328+8 packets_lost_percent: real");
    EXPECT_EQ(layout(field("ping", "packet_size")), "336+4 packet_size: signed");
    EXPECT_EQ(record_type("ping")->size, 392U);
}

TEST(RecordType, HoldsChainsAndTheirNodes)
{
    EXPECT_THAT(layouts(record_type("limits")),
                ElementsAre("0+4 port_redirect: signed", "4+4 qos_rules: signed", "8+4 static_leases: signed",
                            by_width("16+8 wifi_limits: chain of kelmora_limits_wifi_limit",
                                     "12+4 wifi_limits: chain of kelmora_limits_wifi_limit"),
                            by_width("24+4 filter_ip: signed", "16+4 filter_ip: signed"),
                            by_width("28+4 filter_mac: signed", "20+4 filter_mac: signed"),
                            by_width("32+4 filter_port: signed", "24+4 filter_port: signed"),
                            by_width("36+4 filter_url: signed", "28+4 filter_url: signed")));
    EXPECT_THAT(layouts(&nodes("limits", "wifi_limits")),
                ElementsAre("0+7 radio_id: string", "8+4 value: signed",
                            by_width("16+8 next: next of kelmora_limits_wifi_limit",
                                     "12+4 next: next of kelmora_limits_wifi_limit")));
    EXPECT_EQ(record_type("limits")->size, by_width(40U, 32U));
    EXPECT_EQ(nodes("limits", "wifi_limits").size, by_width(24U, 16U));
}

TEST(RecordType, TellsAChainOfItsOwnKindFromItsSuccessor)
{
    const RecordType &neighbor = nodes("easymesh", "neighbors");
    EXPECT_EQ(neighbor.find("neighbors")->kind, FieldKind::chain);
    EXPECT_EQ(neighbor.find("next")->kind, FieldKind::next);
    EXPECT_EQ(neighbor.find("neighbors")->record, &neighbor);
    EXPECT_EQ(neighbor.find("next")->record, &neighbor);
}

TEST(RecordType, HoldsPointersToStrings)
{
    EXPECT_THAT(layouts(&nodes("datetime", "timezone_list")),
                ElementsAre("0+4 id: unsigned", by_width("8+8 region: string pointer", "4+4 region: string pointer"),
                            by_width("16+8 next: next of kelmora_datetime_timezone",
                                     "8+4 next: next of kelmora_datetime_timezone")));
    EXPECT_THAT(layouts(record_type("qos_available_dscp")),
                ElementsAre("0+4 id: unsigned", by_width("8+8 dscp: string pointer", "4+4 dscp: string pointer"),
                            by_width("16+8 next: next of kelmora_qos_available_dscp",
                                     "8+4 next: next of kelmora_qos_available_dscp")));
}

TEST(RecordType, HoldsStructsAndArraysOfThem)
{
    EXPECT_THAT(layouts(record_type("static_routing")),
                ElementsAre("0+1 state: unsigned", "2+74 route: record of kelmora_route"));
    EXPECT_THAT(layouts(record_type("loop_back_detect")),
                ElementsAre("0+1 enabled: unsigned", "2+2 detection_interval: unsigned",
                            "4+2 recovery_interval: unsigned", "6+2 frame_type: unsigned",
                            "8+64 vlan_list: record[16] of kelmora_loop_back_detect_vlan"));
    EXPECT_EQ(field("loop_back_detect", "vlan_list").element_size(), 4U);
    EXPECT_EQ(field("static_routing", "route").element_size(), 74U);
}

TEST(RecordType, HoldsArraysOfStrings)
{
    EXPECT_THAT(layouts(record_type("acl_capability")),
                ElementsAre("0+1 capability: unsigned", "1+56 available_services: string[8]"));
    EXPECT_EQ(field("acl_capability", "available_services").element_size(), 7U);
}

TEST(RecordType, HoldsBlocksOfBytes)
{
    EXPECT_THAT(layouts(record_type("backup_restore")), ElementsAre("0+8 backup: bytes"));
    const std::size_t block = KELMORA_TR069_HOST_BLOCK_SIZE;
    EXPECT_EQ(layout(field("tr069_config", "host_block")), "1820+" + std::to_string(block) + " host_block: bytes");
    EXPECT_EQ(layout(field("tr069_config", "ca_cert")), std::to_string(1820 + block) + "+4097 ca_cert: string");
}

TEST(RecordType, HoldsAlternatives)
{
    const RecordType &mtp = nodes("tr369_local_agent_controller", "mtp");
    EXPECT_THAT(layouts(&mtp),
                ElementsAre("0+1 enabled: unsigned", "4+4 protocol: unsigned",
                            "8+524 variant: alternatives of kelmora_tr369_local_agent_controller_mtp.variant",
                            by_width("536+8 next: next of kelmora_tr369_local_agent_controller_mtp",
                                     "532+4 next: next of kelmora_tr369_local_agent_controller_mtp")));
    EXPECT_THAT(layouts(mtp.find("variant")->record),
                ElementsAre("0+524 websocket: record of kelmora_tr369_local_agent_controller_websocket",
                            "0+384 mqtt: record of kelmora_tr369_local_agent_controller_mqtt"));
    EXPECT_EQ(mtp.find("variant")->record->size, 524U);
}

TEST(RecordType, HasTypesAsTheHeadersHaveThem)
{
    EXPECT_EQ(field("wireless", "ssid").type, "char[33]");
    EXPECT_EQ(field("wireless", "client_mode_rssi").type, "int32_t");
    EXPECT_EQ(field("connected_device", "txRate").type, "double");
    EXPECT_EQ(field("acl_capability", "available_services").type, "char[8][7]");
    EXPECT_EQ(field("tr069_config", "host_block").type, "unsigned char[KELMORA_TR069_HOST_BLOCK_SIZE]");
    EXPECT_EQ(field("loop_back_detect", "vlan_list").type, "struct kelmora_loop_back_detect_vlan[16]");
    EXPECT_EQ(field("http_request", "body").type, "char *");
    EXPECT_EQ(nodes("datetime", "timezone_list").find("region")->type, "const char *");
    EXPECT_EQ(field("wan_lan_list", "lan_list").type, "struct kelmora_wan_lan_list_entry[16]");
    EXPECT_EQ(field("limits", "wifi_limits").type, "struct kelmora_limits_wifi_limit *");
    EXPECT_EQ(nodes("tr369_local_agent_controller", "mtp").find("variant")->type, "union");
}

TEST(RecordType, HasTheMeaningsOfTheHeadersOnOneLine)
{
    EXPECT_EQ(record_type("radio")->meaning, "One radio: its band, channel and features.");
    EXPECT_EQ(nodes("tr369_mqtt_client", "subscription").meaning,
              "A topic that an MQTT client subscribes to. The host makes the chain "
              "(kelmora_tr369_mqttt_client_subscription_add_element), and frees it.");
    EXPECT_EQ(field("wireless", "bssid").meaning, "BSSID, six colon-separated hexadecimal pairs; read-only");
    EXPECT_EQ(field("bridging", "spanning_tree_802_1_d").meaning,
              "802.1D spanning tree on (key \"802_1_d_spanning_tree\")");
    for (const RecordType *type : all_types()) {
        for (const Field &each : type->fields) {
            EXPECT_EQ(each.meaning.empty(), each.kind == FieldKind::alternatives || is_union(*type))
                << type->name << '.' << each.name;
            EXPECT_EQ(each.meaning.find_first_of("\n\t"), std::string_view::npos) << each.meaning;
            EXPECT_EQ(each.meaning.find("*/"), std::string_view::npos) << each.meaning;
        }
    }
}

TEST(RecordType, EveryByteBelongsToOneFieldOrIsPadding)
{
    const std::set<const RecordType *> types = all_types();
    EXPECT_EQ(types.size(), std::size_t{KELMORA_RESOURCE_COUNT} + 28); // and 27 structs in or behind them, a union
    for (const RecordType *type : types) {
        if (is_union(*type))
            continue;
        std::size_t end = 0;
        for (const Field &each : type->fields) {
            EXPECT_GE(each.offset, end) << type->name << '.' << each.name;
            EXPECT_LT(each.offset - end, 8U) << type->name << '.' << each.name;
            EXPECT_GT(each.size, 0U) << type->name << '.' << each.name;
            if (each.count != 0) {
                EXPECT_EQ(each.element_size() * each.count, each.size) << type->name << '.' << each.name;
            }
            end = each.offset + each.size;
        }
        EXPECT_GE(type->size, end) << type->name;
        EXPECT_LT(type->size - end, 8U) << type->name;
    }
}

TEST(RecordType, FieldsThatHoldARecordAreAsLargeAsIt)
{
    for (const RecordType *type : all_types()) {
        for (const Field &each : type->fields) {
            const bool inside = each.kind == FieldKind::record || each.kind == FieldKind::alternatives;
            const bool behind = each.kind == FieldKind::chain || each.kind == FieldKind::next;
            EXPECT_EQ(each.record != nullptr, inside || behind) << type->name << '.' << each.name;
            if (inside) {
                EXPECT_EQ(each.element_size(), each.record->size) << type->name << '.' << each.name;
            }
            if (behind || each.kind == FieldKind::string_pointer) {
                EXPECT_EQ(each.size, sizeof(void *)) << type->name << '.' << each.name;
            }
            if (behind) {
                EXPECT_TRUE(each.record->is_node()) << type->name << '.' << each.name;
            }
        }
    }
}

TEST(DescribeBytes, NamesTheFieldThatHoldsThem)
{
    EXPECT_EQ(path("wireless", 0, 4), "mode");
    EXPECT_EQ(path("wireless", 3, 1), "mode");
    EXPECT_EQ(path("wireless", 271, 33), "ssid");
    EXPECT_EQ(path("wireless", 290, 2), "ssid");
    EXPECT_EQ(path("wireless", 404, 1), "guest_network");
    EXPECT_EQ(path("backup_restore", 7, 1), "backup");
}

TEST(DescribeBytes, NamesTheElementOfAnArray)
{
    EXPECT_EQ(path("acl_capability", 1, 7), "available_services[0]");
    EXPECT_EQ(path("acl_capability", 56, 1), "available_services[7]");
    EXPECT_EQ(path("acl_capability", 7, 2), "available_services"); // the end of one, the begin of the next
    EXPECT_EQ(path("wan_lan_list", 33, 10), "lan_list[3].lan_id");
    EXPECT_EQ(path("wan_lan_list", 43, 1), "lan_list[3].enabled");
    EXPECT_EQ(path("wan_lan_list", 175, 1), "lan_list[15].enabled");
}

TEST(DescribeBytes, NamesTheFieldInsideAStruct)
{
    EXPECT_EQ(path("static_routing", 2, 17), "route.destination");
    EXPECT_EQ(path("static_routing", 54, 2), "route.metric"); // behind three addresses and a byte of padding
}

TEST(DescribeBytes, NamesTheStructWhoseFieldsShareThem)
{
    EXPECT_EQ(path("wan_lan_list", 33, 11), "lan_list[3]");
    EXPECT_EQ(path("wan_lan_list", 33, 12), "lan_list");
    EXPECT_EQ(path("static_routing", 2, 74), "route");
    EXPECT_EQ(path("loop_back_detect", 8 + 3, 1), "vlan_list[0]"); // padding in the element
}

TEST(DescribeBytes, HasNoNameForPaddingOrForSeveralFields)
{
    EXPECT_EQ(path("wireless", 5, 1), "nothing");
    EXPECT_EQ(path("wireless", 405, 1), "nothing");
    EXPECT_EQ(path("wireless", 0, 5), "nothing");
    EXPECT_EQ(path("wireless", 0, 408), "nothing");
}

TEST(DescribeBytes, HasNoNameForBytesOutside)
{
    EXPECT_EQ(path("wireless", 408, 1), "nothing");
    EXPECT_EQ(path("backup_restore", 7, 2), "nothing");
    EXPECT_EQ(path("backup_restore", 1, static_cast<std::size_t>(-1)), "nothing");
    EXPECT_EQ(path("backup_restore", static_cast<std::size_t>(-1), 2), "nothing");
    EXPECT_EQ(path("backup_restore", 0, 0), "nothing");
}

TEST(DescribeBytes, WorksInANodeOfAChain)
{
    const RecordType &limit = nodes("limits", "wifi_limits");
    EXPECT_EQ(path(limit, 0, 7), "radio_id");
    EXPECT_EQ(path(limit, 8, 4), "value");
    EXPECT_EQ(path(limit, by_width(16U, 12U), sizeof(void *)), "next");
    EXPECT_EQ(path("qos_available_dscp", by_width(8U, 4U), sizeof(void *)), "dscp");
}

TEST(DescribeBytes, EndsAtAUnionUnlessOneAlternativeAloneCanHoldThem)
{
    const RecordType &mtp = nodes("tr369_local_agent_controller", "mtp");
    EXPECT_EQ(path(mtp, 8, 128), "variant");
    EXPECT_EQ(path(mtp, 8 + 516, 1), "variant.websocket.encryption"); // behind the other alternative's end
    EXPECT_EQ(path(*mtp.find("variant")->record->find("mqtt")->record, 0, 128), "reference");
}

TEST(DescribeBytes, SaysWhereTheInnermostFieldOrElementLies)
{
    const auto element = describe_bytes(*record_type("wan_lan_list"), 33, 11);
    ASSERT_TRUE(element);
    EXPECT_EQ(element->field->name, "lan_list");
    EXPECT_EQ(element->index, 3U);
    EXPECT_EQ(element->offset, 33U);
    EXPECT_EQ(element->size, 11U);

    const auto inside = describe_bytes(*record_type("wan_lan_list"), 36, 2);
    ASSERT_TRUE(inside);
    EXPECT_EQ(inside->field->name, "lan_id");
    EXPECT_EQ(inside->index, std::nullopt);
    EXPECT_EQ(inside->offset, 33U);
    EXPECT_EQ(inside->size, 10U);

    const auto several = describe_bytes(*record_type("acl_capability"), 7, 2);
    ASSERT_TRUE(several);
    EXPECT_EQ(several->index, std::nullopt);
    EXPECT_EQ(several->offset, 1U);
    EXPECT_EQ(several->size, 56U);
}

} // namespace

} // namespace kelmora_host::fields_test
