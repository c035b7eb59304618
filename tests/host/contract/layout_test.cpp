#include "host/contract/layout.h"

#include "kelmora_host.h"
#include "kelmora_records.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <set>
#include <string>
#include <vector>

namespace kelmora_host::contract_layout_test {

namespace {

using testing::ElementsAre;

const Target &mips() { return *find_target("mips"); }
const Target &x86_64() { return *find_target("x86-64"); }

/// The target that has pointers as this machine.
const Target &native() { return sizeof(void *) == 4 ? mips() : x86_64(); }

Layout layout(std::string_view resource, const Target &target) { return layout_of(*record_type(resource), target); }

/// "OFFSET+SIZE NAME" of each field, and the size of the whole last.
std::vector<std::string> places(const Layout &layout)
{
    std::vector<std::string> lines;
    for (const FieldLayout &field : layout.fields)
        lines.push_back(std::to_string(field.offset) + '+' + std::to_string(field.size) + ' ' +
                        std::string(field.name));
    lines.push_back(std::to_string(layout.size));
    return lines;
}

TEST(Targets, AreTheGatewaysAndTheDevelopers)
{
    ASSERT_EQ(targets().size(), 2U);
    EXPECT_EQ(targets()[0].name, "mips");
    EXPECT_EQ(targets()[1].name, "x86-64");
    EXPECT_EQ(mips().pointer_size, 4U);
    EXPECT_EQ(x86_64().pointer_size, 8U);
    EXPECT_EQ(find_target("vax"), nullptr);
    EXPECT_EQ(find_target(""), nullptr);
}

// The compiler is the judge: what it says of every field on the machine that the test runs on, MIPS or x86-64.
TEST(LayoutOf, IsTheCompilersForEveryFieldOfThisMachine)
{
    std::size_t fields = 0;
    for (const RecordType *type : all_record_types()) {
        const Layout found = layout_of(*type, native());
        EXPECT_EQ(found.size, type->size) << type->name;
        ASSERT_EQ(found.fields.size(), type->fields.size()) << type->name;
        for (std::size_t i = 0; i < found.fields.size(); ++i) {
            const Field &field = type->fields[i];
            EXPECT_EQ(found.fields[i].name, field.name);
            EXPECT_EQ(found.fields[i].offset, field.offset) << type->name << '.' << field.name;
            EXPECT_EQ(found.fields[i].size, field.size) << type->name << '.' << field.name;
            EXPECT_EQ(found.fields[i].count, field.count) << type->name << '.' << field.name;
            ++fields;
        }
    }
    EXPECT_GT(fields, 600U);
}

TEST(LayoutOf, AlignsAsTheCompilerDoes)
{
    EXPECT_EQ(layout("limits", native()).alignment, alignof(kelmora_limits));
    EXPECT_EQ(layout("ping", native()).alignment, alignof(kelmora_ping));
    EXPECT_EQ(layout("loop_back_detect", native()).alignment, alignof(kelmora_loop_back_detect));
    EXPECT_EQ(layout("wan_lan_list", native()).alignment, alignof(kelmora_wan_lan_list));
    EXPECT_EQ(layout("tr369_local_agent_controller", native()).alignment,
              alignof(kelmora_tr369_local_agent_controller));
}

TEST(LayoutOf, MakesPointersAsWideAsTheTargetHasThem)
{
    EXPECT_THAT(places(layout("limits", mips())),
                ElementsAre("0+4 port_redirect", "4+4 qos_rules", "8+4 static_leases", "12+4 wifi_limits",
                            "16+4 filter_ip", "20+4 filter_mac", "24+4 filter_port", "28+4 filter_url", "32"));
    EXPECT_THAT(places(layout("limits", x86_64())),
                ElementsAre("0+4 port_redirect", "4+4 qos_rules", "8+4 static_leases", "16+8 wifi_limits",
                            "24+4 filter_ip", "28+4 filter_mac", "32+4 filter_port", "36+4 filter_url", "40"));
    EXPECT_THAT(places(layout("qos_available_dscp", mips())), ElementsAre("0+4 id", "4+4 dscp", "8+4 next", "12"));
    EXPECT_THAT(places(layout("qos_available_dscp", x86_64())), ElementsAre("0+4 id", "8+8 dscp", "16+8 next", "24"));
}

TEST(LayoutOf, HasDoublesAtMultiplesOfEightOnBothTargets)
{
    for (const Target &target : targets()) {
        const Layout ping = layout("ping", target);
        EXPECT_EQ(ping.size, 392U) << target.name;
        EXPECT_EQ(ping.alignment, 8U) << target.name;
        EXPECT_THAT(places(ping), testing::Contains("328+8 packets_lost_percent")) << target.name;
    }
}

TEST(LayoutOf, HasStructsAndArraysInside)
{
    for (const Target &target : targets()) {
        EXPECT_THAT(places(layout("static_routing", target)), ElementsAre("0+1 state", "2+74 route", "76"));
        EXPECT_THAT(places(layout("acl_capability", target)),
                    ElementsAre("0+1 capability", "1+56 available_services", "57"));
        const Layout loops = layout("loop_back_detect", target);
        EXPECT_THAT(places(loops), ElementsAre("0+1 enabled", "2+2 detection_interval", "4+2 recovery_interval",
                                               "6+2 frame_type", "8+64 vlan_list", "72"));
        EXPECT_EQ(loops.fields.back().count, 16U);
        EXPECT_EQ(loops.fields.back().record, "kelmora_loop_back_detect_vlan");
    }
}

TEST(LayoutOf, HasTheMembersOfAUnionInOnePlace)
{
    const RecordType &mtp = *record_type("tr369_local_agent_controller")->find("mtp")->record;
    EXPECT_THAT(places(layout_of(mtp, mips())),
                ElementsAre("0+1 enabled", "4+4 protocol", "8+524 variant", "532+4 next", "536"));
    EXPECT_THAT(places(layout_of(mtp, x86_64())),
                ElementsAre("0+1 enabled", "4+4 protocol", "8+524 variant", "536+8 next", "544"));
    const Layout variant = layout_of(*mtp.find("variant")->record, mips());
    EXPECT_TRUE(variant.is_union);
    EXPECT_FALSE(layout_of(mtp, mips()).is_union);
    EXPECT_THAT(places(variant), ElementsAre("0+524 websocket", "0+384 mqtt", "524"));
}

TEST(NodeLayout, IsTheCompilers)
{
    const Layout node = node_layout(native());
    EXPECT_EQ(node.size, sizeof(kelmora_resource));
    EXPECT_EQ(node.alignment, alignof(kelmora_resource));
    const auto place = [](std::size_t offset, std::size_t size, const char *name) {
        return std::to_string(offset) + '+' + std::to_string(size) + ' ' + name;
    };
#define PLACE(field) place(offsetof(kelmora_resource, field), sizeof(kelmora_resource::field), #field)
    EXPECT_THAT(places(node), ElementsAre(PLACE(host_private), PLACE(count), PLACE(id), PLACE(is_list),
                                          std::to_string(sizeof(kelmora_resource))));
#undef PLACE
}

TEST(RecordTypes, AreTheRecordAndWhatBelongsToItEachOnce)
{
    const auto names = [](std::string_view resource) {
        std::vector<std::string_view> found;
        for (const RecordType *type : record_types(*find_resource(resource)))
            found.push_back(type->name);
        return found;
    };
    EXPECT_THAT(names("radio"), ElementsAre("kelmora_radio"));
    EXPECT_THAT(names("easymesh"), ElementsAre("kelmora_easymesh", "kelmora_easymesh_neighbor"));
    EXPECT_THAT(names("tr369_local_agent_controller"),
                ElementsAre("kelmora_tr369_local_agent_controller", "kelmora_tr369_local_agent_controller_mtp",
                            "kelmora_tr369_local_agent_controller_mtp.variant",
                            "kelmora_tr369_local_agent_controller_websocket",
                            "kelmora_tr369_local_agent_controller_mqtt"));
}

TEST(RecordTypes, OfAllResourcesAreAllThatThereAre)
{
    std::set<const RecordType *> types;
    for (const Resource &resource : resources()) {
        for (const RecordType *type : record_types(resource))
            types.insert(type);
    }
    const std::vector<const RecordType *> all = all_record_types();
    EXPECT_EQ(std::set<const RecordType *>(all.begin(), all.end()), types);
    EXPECT_EQ(all.size(), types.size());
}

} // namespace

} // namespace kelmora_host::contract_layout_test
